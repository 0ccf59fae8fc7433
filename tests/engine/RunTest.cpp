#include "engine/AnalysisRun.hpp"
#include "engine/FileError.hpp"
#include "engine/Messages.hpp"
#include "tests/engine/FakeHost.hpp"
#include "tests/engine/TestFiles.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace tovarin {
namespace {

using Events = std::vector<std::string>;

struct RefusalCase {
    std::string count;
    RunEnd end;
    std::string message;
};

class CountRefusal : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(CountRefusal, ShowsItsMessageFocusesAndNeverOpensTheChooser) {
    test::FakeHost host;
    host.count = GetParam().count;
    EXPECT_EQ(runAnalysis(host, "\r"), GetParam().end);
    EXPECT_EQ(host.messages, Events{GetParam().message + "\r"});
    EXPECT_EQ(host.events, (Events{"message", "focus"}));
}

const std::string kEmpty = kEmptyCountMessage;
const std::string kBad = kBadCountMessage;

INSTANTIATE_TEST_SUITE_P(Counts, CountRefusal,
                         ::testing::Values(RefusalCase{"", RunEnd::EmptyCount, kEmpty},
                                           RefusalCase{"1", RunEnd::BadCount, kBad},
                                           RefusalCase{"100", RunEnd::BadCount, kBad},
                                           RefusalCase{"0", RunEnd::BadCount, kBad},
                                           RefusalCase{"abc", RunEnd::BadCount, kBad},
                                           RefusalCase{"1.99", RunEnd::BadCount, kBad},
                                           RefusalCase{"99.01", RunEnd::BadCount, kBad},
                                           RefusalCase{"99.5", RunEnd::BadCount, kBad},
                                           RefusalCase{" ", RunEnd::BadCount, kBad},
                                           RefusalCase{"1e400", RunEnd::BadCount, kBad}));

class RunFixture : public ::testing::Test {
protected:
    test::TempFolder folder;
    test::FakeHost host;

    void choose(const std::string& count, const std::string& bytes) {
        host.count = count;
        host.file = folder.write("data.txt", bytes);
    }
    std::size_t rowCount() const {
        std::size_t rows = 0;
        for (std::size_t pos = 0; (pos = host.results.find("\n", pos)) != std::string::npos;
             ++pos) {
            ++rows;
        }
        return rows - 13; // head 3, rules and headings 4, footnotes 2, closing 4
    }
};

TEST_F(RunFixture, CountsFromTwoToNinetyNineOpenTheChooserAndCutTowardsZero) {
    for (const auto& [count, rows] :
         {std::pair{"2", 2u}, {"2.9", 2u}, {"2.5", 2u}, {"99", 99u}, {" +3", 3u}}) {
        host = {};
        choose(count, "A\t10\nB\t20\nC\t30\n");
        EXPECT_EQ(runAnalysis(host, "\n"), RunEnd::Report) << count;
        EXPECT_EQ(rowCount(), rows) << count;
    }
}

TEST_F(RunFixture, CancelledOrVanishedChoiceEndsWithoutAWord) {
    host.count = "3";
    host.results = "earlier";
    EXPECT_EQ(runAnalysis(host), RunEnd::NoFile);
    host.file = folder.path() / "vanished.txt";
    EXPECT_EQ(runAnalysis(host), RunEnd::NoFile);
    EXPECT_EQ(host.events, (Events{"choose", "choose"}));
    EXPECT_EQ(host.results, "earlier");
}

TEST_F(RunFixture, NoLowBicEndsWithItsMessageAndNoReport) {
    choose("2", "A\t99999999999\nB\t1e12\n");
    EXPECT_EQ(runAnalysis(host, "\n"), RunEnd::NoLowBic);
    EXPECT_EQ(host.messages, Events{kNoLowBicMessage});
    EXPECT_EQ(host.events, (Events{"choose", "message", "focus"}));
}

TEST_F(RunFixture, ZeroWarningIsFollowedByTheReport) {
    choose("3", "A\t5\nB\t7\n"); // the missing third line reads as a BIC of 0
    EXPECT_EQ(runAnalysis(host, "\n"), RunEnd::Report);
    EXPECT_EQ(host.messages, Events{kZeroBicMessage});
    ASSERT_GE(host.events.size(), 5u);
    EXPECT_EQ((Events(host.events.begin(), host.events.begin() + 5)),
              (Events{"choose", "message", "focus", "show", "append"}));
    EXPECT_NE(host.results.find("\n                    +0.0"), std::string::npos) << host.results;
}

TEST_F(RunFixture, CleanReportNeitherWarnsNorTouchesFocus) {
    choose("3", "NCM\t67.82\nDUM\t74.15\nCXM\t72.03\n");
    EXPECT_EQ(runAnalysis(host, "\r"), RunEnd::Report);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(host.events[1], "show");
    EXPECT_EQ(std::count(host.events.begin(), host.events.end(), "focus"), 0);
    EXPECT_EQ(host.results.find('\n'), std::string::npos) << "every line ends in the given CR";
    EXPECT_NE(host.results.find("\rDUM              +74.15"), std::string::npos);
}

TEST_F(RunFixture, TwoRunsInARowLeaveTwoReportsInOrder) {
    choose("2", "First\t1\nSecond\t2\n");
    ASSERT_EQ(runAnalysis(host, "\n"), RunEnd::Report);
    const std::string first = host.results;
    host.file = folder.write("data.txt", "Third\t1\nFourth\t2\n");
    ASSERT_EQ(runAnalysis(host, "\n"), RunEnd::Report);
    EXPECT_EQ(host.results.substr(0, first.size()), first);
    EXPECT_NE(host.results.find("Third", first.size()), std::string::npos);
    EXPECT_EQ(std::count(host.events.begin(), host.events.end(), "bold 1 100"), 2);
}

TEST_F(RunFixture, UnreadableFileRaisesBeforeAnyPiece) {
    host.count = "2";
    for (const auto& file : {folder.path(), std::filesystem::path("/dev/zero")}) {
        host.file = file;
        try {
            runAnalysis(host);
            FAIL() << "no error for " << file;
        } catch (const FileError& error) {
            EXPECT_EQ(error.file(), file);
        }
    }
    EXPECT_TRUE(host.pieces.empty());
    EXPECT_EQ(std::count(host.events.begin(), host.events.end(), "show"), 0);
}

} // namespace
} // namespace tovarin

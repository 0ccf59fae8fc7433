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
};

class CountRefusal : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(CountRefusal, ShowsItsMessageFocusesAndNeverOpensTheChooser) {
    test::FakeHost host;
    host.count = GetParam().count;
    EXPECT_EQ(runAnalysis(host, "\r"), GetParam().end);
    const char* message =
        GetParam().end == RunEnd::EmptyCount ? kEmptyCountMessage : kBadCountMessage;
    EXPECT_EQ(host.messages, Events{message + std::string("\r")});
    EXPECT_EQ(host.events, (Events{"message", "focus"}));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Counts, CountRefusal, ::testing::Values(
    RefusalCase{"", RunEnd::EmptyCount}, RefusalCase{"1", RunEnd::BadCount}, RefusalCase{"100", RunEnd::BadCount},
    RefusalCase{"0", RunEnd::BadCount}, RefusalCase{"abc", RunEnd::BadCount}, RefusalCase{"1.99", RunEnd::BadCount},
    RefusalCase{"99.01", RunEnd::BadCount}, RefusalCase{" ", RunEnd::BadCount}, RefusalCase{"1e400", RunEnd::BadCount}));
// clang-format on

class Run : public ::testing::Test {
protected:
    test::TempFolder folder;
    test::FakeHost host;

    void choose(const std::string& count, const std::string& bytes) {
        host.count = count;
        host.file = folder.write("data.txt", bytes);
    }
    long count(const std::string& event) const {
        return std::count(host.events.begin(), host.events.end(), event);
    }
};

TEST_F(Run, CountsFromTwoToNinetyNineAreCutTowardsZero) {
    for (const auto& [count, rows] : {std::pair{"2", 2}, {"2.9", 2}, {"99", 99}, {" +3", 3}}) {
        host = {};
        choose(count, "A\t10\nB\t20\nC\t30\n");
        EXPECT_EQ(runAnalysis(host, "\n"), RunEnd::Report) << count;
        EXPECT_EQ(std::count(host.results.begin(), host.results.end(), '\n'), 13 + rows) << count;
    }
}

TEST_F(Run, CancelledOrVanishedChoiceEndsWithoutAWord) {
    host.count = "3";
    EXPECT_EQ(runAnalysis(host), RunEnd::NoFile);
    host.file = folder.path() / "vanished.txt";
    EXPECT_EQ(runAnalysis(host), RunEnd::NoFile);
    EXPECT_EQ(host.events, (Events{"choose", "choose"}));
}

TEST_F(Run, NoLowBicEndsWithItsMessageAndNoReport) {
    choose("2", "A\t99999999999\nB\t1e12\n");
    EXPECT_EQ(runAnalysis(host, "\n"), RunEnd::NoLowBic);
    EXPECT_EQ(host.messages, Events{kNoLowBicMessage});
    EXPECT_EQ(host.events, (Events{"choose", "message", "focus"}));
}

TEST_F(Run, ZeroWarningIsFollowedByTheReport) {
    choose("3", "A\t5\nB\t7\n"); // the missing third line reads as a BIC of 0
    EXPECT_EQ(runAnalysis(host, "\n"), RunEnd::Report);
    EXPECT_EQ(host.messages, Events{kZeroBicMessage});
    EXPECT_EQ((Events(host.events.begin(), host.events.begin() + 5)),
              (Events{"choose", "message", "focus", "show", "append"}));
    EXPECT_NE(host.results.find("\n                    +0.0"), std::string::npos);
}

TEST_F(Run, CleanReportNeitherWarnsNorFocusesAndEndsLinesAsTold) {
    choose("3", "NCM\t67.82\nDUM\t74.15\nCXM\t72.03\n");
    EXPECT_EQ(runAnalysis(host, "\r"), RunEnd::Report);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(count("focus"), 0);
    EXPECT_EQ(host.results.find('\n'), std::string::npos);
    EXPECT_NE(host.results.find("\rDUM              +74.15"), std::string::npos);
}

TEST_F(Run, TwoRunsInARowLeaveTwoReportsInOrder) {
    choose("2", "First\t1\nSecond\t2\n");
    ASSERT_EQ(runAnalysis(host, "\n"), RunEnd::Report);
    const std::string first = host.results;
    host.file = folder.write("data.txt", "Third\t1\nFourth\t2\n");
    ASSERT_EQ(runAnalysis(host, "\n"), RunEnd::Report);
    EXPECT_EQ(host.results.substr(0, first.size()), first);
    EXPECT_NE(host.results.find("Third", first.size()), std::string::npos);
    EXPECT_EQ(count("bold 1 100"), 2);
}

TEST_F(Run, UnreadableFileRaisesBeforeAnyPiece) {
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
    EXPECT_EQ(count("show"), 0);
}

} // namespace
} // namespace tovarin

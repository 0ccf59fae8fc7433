#include "cli/ReportCommand.hpp"
#include "engine/Messages.hpp"
#include "tests/engine/TestFiles.hpp"

#include <gtest/gtest.h>

#include <sstream>

namespace tovarin {
namespace {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome run(const std::vector<std::string>& args) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = reportCommand(args, out, err);
    return {status, out.str(), err.str()};
}

class ReportCommand : public ::testing::Test {
protected:
    test::TempFolder folder;
    std::string file(const std::string& bytes) { return folder.write("bics.txt", bytes).string(); }
};

TEST_F(ReportCommand, WritesTheReportWithLineFeeds) {
    const Outcome outcome = run({"3", file("NCM\t67.82\nDUM\t74.15\nCXM\t72.03\n")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(outcome.out.find("\nFile: bics.txt\n\n"), std::string::npos);
    EXPECT_NE(outcome.out.find("\nCXM              +72.03             4.21                 "
                               "0.1047           8.21                \n"),
              std::string::npos);
    EXPECT_EQ(outcome.out.find('\r'), std::string::npos);
}

TEST_F(ReportCommand, ExitStatusAndMessageForEachEnding) {
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string err; // empty: no message at all
        bool report;
    };
    const std::string twoModels = file("A\t100\nB\t130\n");
    const std::string noLow = folder.write("high.txt", "A\t1e11\nB\t2e11\n").string();
    const std::string zero = folder.write("zero.txt", "A\t0\nB\t3\n").string();
    const Case cases[] = {
        {{"", twoModels}, 2, std::string(kEmptyCountMessage) + "\n", false},
        {{"abc", twoModels}, 2, std::string(kBadCountMessage) + "\n", false},
        {{"100", twoModels}, 2, std::string(kBadCountMessage) + "\n", false},
        {{"2.9", twoModels}, 0, "", true},
        {{"2", noLow}, 1, std::string(kNoLowBicMessage) + "\n", false},
        {{"2", zero}, 0, std::string(kZeroBicMessage) + "\n", true},
        {{"--", "2", twoModels}, 0, "", true},
    };
    for (const Case& c : cases) {
        const Outcome outcome = run(c.args);
        EXPECT_EQ(outcome.status, c.status) << c.args[0];
        EXPECT_EQ(outcome.err, c.err) << c.args[0];
        EXPECT_EQ(outcome.out.find("Date: ") == 0, c.report) << c.args[0];
    }
}

TEST_F(ReportCommand, FileProblemsNameTheFile) {
    const std::string missing = (folder.path() / "no-such.txt").string();
    for (const std::string& path : {missing, folder.path().string()}) {
        const Outcome outcome = run({"2", path});
        EXPECT_EQ(outcome.status, 1) << path;
        EXPECT_NE(outcome.err.find(path), std::string::npos) << outcome.err;
        EXPECT_EQ(outcome.out, "");
    }
}

TEST_F(ReportCommand, UsageHelpAndVersion) {
    for (const auto& args : std::vector<std::vector<std::string>>{
             {}, {"3"}, {"3", "a", "b"}, {"--frobnicate", "3", "x"}}) {
        const Outcome outcome = run(args);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_NE(outcome.err.find("Usage: tovarin-report COUNT FILE"), std::string::npos);
        EXPECT_EQ(outcome.out, "");
    }
    EXPECT_EQ(run({"--version"}).out, "tovarin-report 1.1\n");
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Usage: tovarin-report COUNT FILE"), std::string::npos);
}

} // namespace
} // namespace tovarin

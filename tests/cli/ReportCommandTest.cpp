#include "cli/ReportCommand.hpp"
#include "engine/Messages.hpp"
#include "tests/engine/TestFiles.hpp"

#include <gtest/gtest.h>

#include <sstream>

namespace tovarin {
namespace {

struct Outcome {
    int status;
    std::string out, err;
};

Outcome run(const std::vector<std::string>& args) {
    std::ostringstream out, err;
    const int status = reportCommand(args, out, err);
    return {status, out.str(), err.str()};
}

TEST(ReportCommand, ExitStatusAndMessageForEachEnding) {
    const test::TempFolder folder;
    const std::string two = folder.write("two.txt", "A\t100\nB\t130\n").string();
    const std::string high = folder.write("high.txt", "A\t1e11\nB\t2e11\n").string();
    const std::string zero = folder.write("zero.txt", "A\t0\nB\t3\n").string();
    const std::string missing = (folder.path() / "no-such.txt").string();
    const std::string line = "\n";
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string err; // the whole of stderr, or a part of it that names the problem
        bool report;
    };
    // clang-format off
    const Case cases[] = {{{"", two}, 2, kEmptyCountMessage + line, false},
        {{"abc", two}, 2, kBadCountMessage + line, false}, {{"100", two}, 2, kBadCountMessage + line, false},
        {{"2.9", two}, 0, "", true}, {{"--", "2", two}, 0, "", true},
        {{"2", high}, 1, kNoLowBicMessage + line, false}, {{"2", zero}, 0, kZeroBicMessage + line, true},
        {{"2", missing}, 1, missing, false}, {{"2", folder.path().string()}, 1, folder.path().string(), false},
        {{}, 2, "Usage: tovarin-report COUNT FILE", false}, {{"3"}, 2, "missing FILE", false},
        {{"3", "a", "b"}, 2, "too many", false}, {{"--frobnicate", "3", two}, 2, "unknown option", false}};
    // clang-format on
    for (const Case& c : cases) {
        const Outcome outcome = run(c.args);
        const std::string what = c.args.empty() ? "(none)" : c.args.front();
        EXPECT_EQ(outcome.status, c.status) << what;
        EXPECT_TRUE(c.err.empty() ? outcome.err.empty()
                                  : outcome.err.find(c.err) != std::string::npos)
            << what << ": " << outcome.err;
        EXPECT_EQ(outcome.out.rfind("Date: ", 0) == 0, c.report) << what;
        EXPECT_EQ(outcome.out.find('\r'), std::string::npos);
    }
}

TEST(ReportCommand, HelpAndVersionGoToStandardOutput) {
    EXPECT_EQ(run({"--version"}).out, "tovarin-report 1.1\n");
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Usage: tovarin-report COUNT FILE"), std::string::npos);
}

} // namespace
} // namespace tovarin

// tovarin-report in process: the classic form's endings and hints, the table
// formats against an independent computation in long double, and the careful
// reading's refusals with their line numbers.
#include "cli/ReportCommand.hpp"
#include "engine/Version.hpp"
#include "engine/report/Messages.hpp"
#include "tests/engine/TestFiles.hpp"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <random>
#include <sstream>

namespace tovarin {
namespace {

struct Outcome {
    int status;
    std::string out, err;
};

Outcome run(const std::vector<std::string>& args, bool hints = false) {
    std::ostringstream out, err;
    const int status = static_cast<int>(reportCommand(args, out, err, hints));
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
    const Case cases[] = {{{"", two}, 2, kEmptyCountMessage + line, false},
                          {{"abc", two}, 2, kBadCountMessage + line, false},
                          {{"100", two}, 2, kBadCountMessage + line, false},
                          {{"2.9", two}, 0, "", true},
                          {{"--", "2", two}, 0, "", true},
                          {{"2", high}, 1, kNoLowBicMessage + line, false},
                          {{"2", zero}, 0, kZeroBicMessage + line, true},
                          {{"2", missing}, 1, missing, false},
                          {{"2", folder.path().string()}, 1, folder.path().string(), false},
                          {{}, 2, "Usage: tovarin-report COUNT FILE", false},
                          {{"3"}, 2, "missing FILE", false},
                          {{"3", "a", "b"}, 2, "too many", false},
                          {{"--frobnicate", "3", two}, 2, "unknown option", false}};
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
    EXPECT_EQ(run({"--version"}).out, std::string("tovarin-report ") + kShortVersion + "\n");
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("Usage: tovarin-report COUNT FILE"), std::string::npos);
}

// The hint is one more line behind the run's own messages; the report itself
// doesn't change.
TEST(ReportCommand, ClassicHintFollowsTheMessages) {
    const test::TempFolder folder;
    const std::pair<std::string, std::string> cases[] = {
        {"Model\tBIC\nA\t1\nB\t2\n", "f:1: looks like a header line"},
        {"lm_base;2451.5\nB;2\n", "f:1: separates its fields with a semicolon"},
        {"A\t1\nB\t2,5\n", "f:2: the BIC \"2,5\" is not a number"},
        {"A\t1\n\nB\t2\n", "f: 2 model lines, but COUNT is 3"},
        {"lm_age_sex\t1\nlm_age_sex_bmi\t2\nC\t3\n", "both print as \"lm_age_s\""},
        {"A\t1\nB\t2\nC\t3\n", ""}};
    for (const auto& [content, hint] : cases) {
        const std::string file = folder.write("f", content).string();
        const Outcome plain = run({"3", file}), hinted = run({"3", file}, true);
        EXPECT_EQ(hinted.status, plain.status);
        EXPECT_EQ(hinted.out.substr(hinted.out.find('\n')), plain.out.substr(plain.out.find('\n')));
        ASSERT_EQ(hinted.err.substr(0, plain.err.size()), plain.err) << content;
        const std::string extra = hinted.err.substr(plain.err.size());
        EXPECT_TRUE(hint.empty() ? extra.empty()
                                 : extra.rfind("tovarin-report: hint: ", 0) == 0 &&
                                       extra.find(hint) != std::string::npos &&
                                       extra.find('\n') == extra.size() - 1)
            << content + "\n" + extra;
    }
}

std::vector<std::string> splitAt(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

// BIC sets with ties, differences near the evidence bands and far into the
// range where terms underflow and Bayes factors overflow a double.
std::string randomSet(std::mt19937_64& random, std::vector<double>& bics) {
    const double base = std::uniform_real_distribution<double>(-5000.0, 5000.0)(random);
    bics.assign(1 + random() % 40, base);
    std::string text;
    for (std::size_t i = 0; i < bics.size(); ++i) {
        const double spread[] = {12.0, 1600.0, 40.0, 0.0};
        bics[i] = random() % 4 == 3 ? bics[random() % (i + 1)]
                                    : base + spread[random() % 4] * std::ldexp(random() >> 11, -53);
        char line[64];
        std::snprintf(line, sizeof line, "m%zu\t%.17g\n", i, bics[i]);
        text += line;
    }
    return text;
}

TEST(TableFormats, AgreeWithLogSumExpInLongDouble) {
    const test::TempFolder folder;
    std::mt19937_64 random(20261123);
    for (int set = 0; set < 300; ++set) {
        std::vector<double> bics;
        const std::string file = folder.write("set.tsv", randomSet(random, bics)).string();
        const Outcome outcome = run({"--format", "tsv", "--sort=file", file});
        const std::vector<std::string> rows = splitAt(outcome.out, '\n');
        ASSERT_EQ(rows.size(), bics.size() + 1) << outcome.err;
        const auto lowest = std::min_element(bics.begin(), bics.end());
        long double sum = 0, reached = 0, outBefore = 1;
        for (double bic : bics)
            sum += expl(-(bic - *lowest) / 2);
        for (std::size_t i = 0; i < bics.size(); ++i) {
            const std::vector<std::string> f = splitAt(rows[i + 1], '\t');
            ASSERT_EQ(f.size(), 10U) << rows[i + 1];
            const long double delta = bics[i] - *lowest, weight = expl(-delta / 2 - logl(sum));
            const auto near = [](const std::string& got, long double want) {
                return std::fabs(std::strtod(got.c_str(), nullptr) - want) <=
                       1e-11L * want + 1e-320L;
            };
            EXPECT_EQ(std::strtod(f[2].c_str(), nullptr), bics[i]) << f[2];
            EXPECT_TRUE(near(f[3], delta) && near(f[4], weight) && near(f[7], delta / 2))
                << rows[i + 1] << " vs " << static_cast<double>(weight);
            const long double lnMax = logl(DBL_MAX);
            EXPECT_TRUE(delta / 2 > lnMax + 1e-6L
                            ? f[6] == "Inf"
                            : delta / 2 > lnMax - 1e-6L || near(f[6], expl(delta / 2)))
                << f[6];
            const bool best = f[0] == "1";
            EXPECT_EQ(best, lowest - bics.begin() == static_cast<std::ptrdiff_t>(i));
            const char* bands[] = {"weak", "positive", "strong", "very strong"};
            EXPECT_EQ(f[8], best ? "best model" : bands[(delta > 2) + (delta > 6) + (delta > 10)]);
            // The members' weight reaches 0.95, which it had before each model left out.
            const long double cumulative = std::strtold(f[5].c_str(), nullptr);
            if (f[9] == "true")
                reached = std::max(reached, cumulative);
            else
                outBefore = std::min(outBefore, cumulative - std::strtold(f[4].c_str(), nullptr));
        }
        EXPECT_GE(std::min(reached, outBefore), 0.95L - 1e-12L);
    }
}

TEST(TableFormats, CarefulReadingNamesFileAndLine) {
    const test::TempFolder folder;
    struct Case {
        std::string content, extra, err; // err: the part of stderr that must be there
        int status;
    };
    const Case cases[] = {
        {"model;BIC\nlm_base;2451,37\n", "",
         "f:2: the BIC \"2451,37\" is not a number (a decimal comma?", 1},
        {"A\t100\nB\t2,5\n", "", "f:2: the BIC \"2,5\" is not a number (a decimal comma?", 1},
        {"A,1\n\nB,x\n", "", "f:3: the BIC \"x\" is not a number", 1},
        {"A,1\r\nB,\r\n", "", "f:2: the BIC field is empty", 1},
        {"A,1\rB\r", "", "f:2: the BIC field is empty", 1},
        {"A,1\nB,12abc\n", "", "f:2: the BIC \"12abc\" is not a number", 1},
        {"A,1\nB,1e999\n", "", "f:2: the BIC \"1e999\" is out of the range of a double", 1},
        {"A,1\nB,nan\n", "", "f:2: the BIC \"nan\" is not a finite number", 1},
        {"A,1\n,5\n", "", "f:2: the model has no name", 1},
        {"A,1\n\"B,5\n", "", "f:2: field 1: its opening quote is never closed", 1},
        {"A,1\n\"B\"x,5\n", "", "f:2: field 1: text follows its closing quote", 1},
        {"A,1\nB\xff,5\n", "", "f:2: the name is not UTF-8 text", 1},
        {"A,1\nB,2\n\nC,3\n", "--count=2", "f:4: model line 3, but --count is 2", 1},
        {"A,1\nB,2\n\n", "--count=3", "f:3: the file ends after 2 model lines, but --count is 3",
         1},
        {"\xef\xbb\xbfName,BIC\nA,1\nB,2\n", "",
         "f:1: skipped as a header line: its BIC field \"BIC\" is not a number", 0},
        {"A,1\nB,2\nA,3\n", "", "f:3: the name \"A\" is already used on line 1", 0},
        {"Name,BIC\n\n", "", "f: no model lines", 1},
        {"A,1\n", "--format=report", "1 model lines; the report compares 2 to 99", 1},
        {"A,1\n", "--sort=rank", "--sort is bic or file, not \"rank\"", 2},
        {"A,1\n", "--confidence=0", "--confidence needs a level above 0 and at most 1", 2},
    };
    for (const Case& c : cases) {
        const std::string file = folder.write("f", c.content).string();
        const Outcome outcome =
            run({"--format", "csv", c.extra.empty() ? "--sort=bic" : c.extra, file});
        EXPECT_EQ(outcome.status, c.status) << c.content;
        EXPECT_NE(outcome.err.find(c.err), std::string::npos) << c.content << "\n" << outcome.err;
        EXPECT_EQ(outcome.out.empty(), c.status != 0) << c.content;
    }
}

} // namespace
} // namespace tovarin

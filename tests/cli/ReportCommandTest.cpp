// tovarin-report in process: endings, hints, the tables against long double and the
// classic report's own doubles, the careful reading's refusals.
#include "cli/ReportCommand.hpp"
#include "engine/Version.hpp"
#include "engine/report/BicStatistics.hpp"
#include "engine/report/Messages.hpp"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>

namespace tovarin {
namespace {

// A fresh folder for one test's data files, removed with the object.
class TempFolder {
public:
    TempFolder() { std::filesystem::create_directories(path_); }
    ~TempFolder() { std::filesystem::remove_all(path_, ignored_); }
    std::filesystem::path write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return path_ / name;
    }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                  ("tovarin-test-" + std::to_string(std::random_device{}()) +
                                   std::to_string(std::random_device{}()));
    std::error_code ignored_;
};

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
    const TempFolder folder;
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
                          {{"--", "2", two}, 0, "", true},
                          {{"2", high}, 1, kNoLowBicMessage + line, false},
                          {{"2", zero}, 0, kZeroBicMessage + line, true},
                          {{"2", missing}, 1, missing, false},
                          {{"2", folder.path().string()}, 1, folder.path().string(), false},
                          {{"2", "/dev/zero"}, 1, "/dev/zero\": a line is longer than", false},
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
    const TempFolder folder;
    const std::pair<std::string, std::string> cases[] = {
        {"Model\tBIC\nA\t1\nB\t2\n", "f:1: looks like a header line"},
        {"lm_base;2451.5\nB;2\n", "f:1: separates its fields with a semicolon"},
        {"A\t1\nB\t2,5\nC\t3\n", "f:2: writes a number with a decimal comma"},
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

// BIC sets with ties, differences on and near the evidence bands' edges and far
// into the range where terms underflow and Bayes factors overflow a double.
std::string randomSet(std::mt19937_64& random, std::vector<double>& bics) {
    const double base = std::round(std::uniform_real_distribution<double>(-5000.0, 5000.0)(random));
    bics.assign(1 + random() % 40, base);
    std::string text;
    for (std::size_t i = 0; i < bics.size(); ++i) {
        const double spread[] = {12.0, 1600.0, 40.0, 0.0}, edge[] = {2.0, 6.0, 10.0, 0.0};
        const int kind = int(random() % 5);
        bics[i] = kind == 4   ? bics[random() % (i + 1)]
                  : kind == 3 ? base + edge[random() % 4]
                              : base + spread[kind] * std::ldexp(random() >> 11, -53);
        char line[64];
        std::snprintf(line, sizeof line, "m%zu\t%.17g\n", i, bics[i]);
        text += line;
    }
    return text;
}

TEST(TableFormats, AgreeWithLogSumExpAndTheReportsDoubles) {
    const TempFolder folder;
    std::mt19937_64 random(20261123);
    for (int set = 0; set < 300; ++set) {
        std::vector<double> bics;
        const std::string file = folder.write("set.tsv", randomSet(random, bics)).string();
        const std::string level = set % 3 == 0 ? "1" : set % 3 == 1 ? "0.5" : "0.95";
        const bool jeffreys = set % 2 == 1;
        const Outcome outcome = run({"--format", "tsv", "--sort=file", "--confidence", level,
                                     "--scale", jeffreys ? "jeffreys" : "raftery", file});
        const std::vector<std::string> rows = splitAt(outcome.out, '\n');
        ASSERT_EQ(rows.size(), bics.size() + 1) << outcome.err;
        const auto lowest = std::min_element(bics.begin(), bics.end());
        long double sum = 0, reached = 0, outBefore = 1;
        for (double bic : bics)
            sum += expl(-(bic - *lowest) / 2);
        ModelSet report; // the classic report's statistics of the same models
        report.resize(std::int64_t(bics.size()));
        for (std::size_t i = 0; i < bics.size(); ++i)
            report.row(std::int64_t(i) + 1).bic = bics[i];
        ASSERT_TRUE(findLowBic(report));
        computeResults(report);
        std::map<double, std::string> inSetByBic;
        for (std::size_t i = 0; i < bics.size(); ++i) {
            const std::vector<std::string> f = splitAt(rows[i + 1], '\t');
            ASSERT_EQ(f.size(), 11U) << rows[i + 1];
            const long double delta = bics[i] - *lowest, weight = expl(-delta / 2 - logl(sum));
            const auto near = [](const std::string& got, long double want) {
                return std::fabs(std::strtod(got.c_str(), nullptr) - want) <=
                       1e-11L * want + 1e-320L;
            };
            EXPECT_EQ(std::strtod(f[2].c_str(), nullptr), bics[i]) << f[2];
            EXPECT_TRUE(near(f[3], delta) && near(f[4], weight) && near(f[7], delta / 2))
                << rows[i + 1] << " vs " << static_cast<double>(weight);
            const double reportWeight = report.row(std::int64_t(i) + 1).probability;
            EXPECT_TRUE(reportWeight < DBL_MIN ||
                        std::strtod(f[4].c_str(), nullptr) == reportWeight)
                << rows[i + 1] << " vs the report's " << reportWeight;
            const long double lnMax = logl(DBL_MAX);
            EXPECT_TRUE(delta / 2 > lnMax + 1e-6L
                            ? f[6] == "Inf"
                            : delta / 2 > lnMax - 1e-6L || near(f[6], expl(delta / 2)))
                << f[6];
            const char* raftery[] = {"weak", "positive", "strong", "very strong"};
            const char* jeffreysBands[] = {"anecdotal", "moderate", "strong", "very strong",
                                           "extreme"};
            const long double factor = expl(delta / 2);
            EXPECT_EQ(
                f[8],
                bics[i] == *lowest ? "best model"
                : jeffreys
                    ? jeffreysBands[(factor > 3) + (factor > 10) + (factor > 30) + (factor > 100)]
                    : raftery[(delta > 2) + (delta > 6) + (delta > 10)])
                << rows[i + 1];
            EXPECT_EQ(f[0] == "1", lowest - bics.begin() == std::ptrdiff_t(i));
            // Tied models are in or out together; the members' weight reaches
            // the level, which it had not before each model left out.
            EXPECT_EQ(inSetByBic.emplace(bics[i], f[9]).first->second, f[9]) << rows[i + 1];
            const long double cumulative = std::strtold(f[5].c_str(), nullptr);
            if (f[9] == "TRUE")
                reached = std::max(reached, cumulative);
            else
                outBefore = std::min(outBefore, cumulative - std::strtold(f[4].c_str(), nullptr));
        }
        const long double wanted = std::strtold(level.c_str(), nullptr);
        EXPECT_GE(std::min(reached, outBefore), wanted - 1e-12L) << level;
        EXPECT_TRUE(level != "1" || outBefore == 1) << "--confidence 1 leaves a model out";
    }
}

TEST(TableFormats, CarefulReadingNamesFileAndLine) {
    const TempFolder folder;
    struct Case {
        std::string content, extra,
            err; // err: the part of stderr (or of the table) that must be there
        int status;
    };
    const Case cases[] = {
        {"A\t100,5\nB\t2.5\n", "", "f:2: a decimal point, where line 1 has a decimal comma", 1},
        {"A,2451,37\n", "", "f:1: 3 fields and no header line to name them", 1},
        {"A,\"2,5\"\n", "", "f:1: the BIC \"2,5\" is not a number (a decimal comma?", 1},
        {"A,1\n\nB,x\n", "", "f:3: the BIC \"x\" is not a number", 1},
        {"A,1\r\nB,\r\n", "", "f:2: the BIC field is empty", 1},
        {"A,1\rB\r", "", "f:2: the BIC field is empty", 1},
        {"A,1\nB,12abc\n", "", "f:2: the BIC \"12abc\" is not a number", 1},
        {"A,1\nB,1e999\n", "", "f:2: the BIC \"1e999\" is out of the range of a double", 1},
        {"m1,NaN\nm2,5\n", "", "f:1: the BIC \"NaN\" is not a finite number", 1},
        {"m1,NA\nm2,5\n", "", "f:1: the BIC \"NA\" is a missing value", 1},
        {"m1,-Inf\nm2,5\n", "", "f:1: the BIC \"-Inf\" is not a finite number", 1},
        {"A,1\n,5\n", "", "f:2: the model has no name", 1},
        {"A,1\n\"B,5\n", "", "f:2: field 1: its opening quote is never closed", 1},
        {"A,1\n\"B\"x,5\n", "", "f:2: field 1: text follows its closing quote", 1},
        {"\"a;b\",5\nc,6\n", "", "1,a;b,5,", 0},
        {"A,1\nB\xff,5\n", "", "f:2: the name is not UTF-8 text", 1},
        {"A,1\nB,2,3\n", "", "f:2: has 3 fields where the first line has 2", 1},
        {"\"\",df,AIC\nm1,3,5\n", "",
         "no column is named \"BIC\"; the header's cells are \"\", "
         "\"df\", \"AIC\"",
         1},
        {"model,df,BIC\nm1,3,5\nm2,4\n", "", "f:3: has 2 fields where the header line has 3", 1},
        {"\"\",BIC\n0,5\n1,6\n", "--name-column=model", "no column is named \"model\"", 1},
        {"A,1,3\nB,2,4\n", "--bic-column=2", "1,A,1,", 0},
        {"n,LL,K\nA,-10,2\n", "--loglik-column=LL", "needs --params-column and --nobs", 2},
        {"n,LL,K\nA,-10,-2\n", "--loglik-column=LL --params-column=K --nobs=5",
         "f:2: the number of parameters is negative", 1},
        {"A,1,2\nB,2,3\n\nC,3,4\n", "--bic-column=2 --count=2",
         "f:4: model line 3, but --count is 2", 1},
        {"A,1\nB,2\n\n", "--count=3", "f:3: the file ends after 2 model lines, but --count is 3",
         1},
        {"\xef\xbb\xbfName,BIC\nA,1\nB,2\n", "",
         "f:1: header line: BIC from column 2 \"BIC\", names from column 1 \"Name\"", 0},
        {"A,1\nB,2\nA,3\n", "", "f:3: the name \"A\" is already used on line 1", 0},
        {"A,7\nB,9\nC,7\n", "",
         "2 models share the lowest BIC, 7, and each is marked \"best model\": \"A\" (line 1), "
         "\"C\" (line 3)",
         0},
        {"Name,BIC\n\n", "", "f: no model lines", 1},
        {"A,1\n", "--format=report", "1 model lines; the report compares 2 to 99", 1},
        {"A,1\n", "--sort=rank", "--sort is bic or file, not \"rank\"", 2},
        {"A,1\n", "--confidence=0", "--confidence needs a level above 0 and at most 1", 2},
        {"A,1\n", "--columns=name,bic,name", "--columns names \"name\" twice", 2},
    };
    for (const Case& c : cases) {
        const std::string file = folder.write("f", c.content).string();
        std::vector<std::string> args = {"--format", "csv"};
        for (std::istringstream extra(c.extra.empty() ? "--sort=bic" : c.extra); !extra.eof();)
            extra >> args.emplace_back();
        args.push_back(file);
        const Outcome outcome = run(args);
        EXPECT_EQ(outcome.status, c.status) << c.content;
        EXPECT_NE((outcome.err + outcome.out).find(c.err), std::string::npos) << c.content << "\n"
                                                                              << outcome.err;
        EXPECT_EQ(outcome.out.empty(), c.status != 0) << c.content;
    }
}

// The formats for scripts reach the stream in pieces as they are made, never
// as one text built whole: a million models would hold it all in memory.
TEST(TableFormats, ReachTheStreamInBoundedPieces) {
    class Pieces : public std::streambuf {
    public:
        std::size_t total = 0, largest = 0;

    protected:
        std::streamsize xsputn(const char*, std::streamsize count) override {
            total += std::size_t(count);
            largest = std::max(largest, std::size_t(count));
            return count;
        }
        int_type overflow(int_type c) override {
            xsputn(nullptr, 1);
            return traits_type::not_eof(c);
        }
    };
    const TempFolder folder;
    std::string text;
    for (int i = 0; i < 20000; ++i)
        text += "model_" + std::to_string(i) + "," + std::to_string(1000 + i % 977) + ".25\n";
    const std::string file = folder.write("many.csv", text).string();
    for (const char* format : {"json", "csv", "tsv"}) {
        Pieces pieces;
        std::ostream out(&pieces);
        std::ostringstream err;
        ASSERT_EQ(reportCommand({"--format", format, file}, out, err), ExitStatus::Done);
        EXPECT_GT(pieces.total, 2'000'000U) << format;
        EXPECT_LE(pieces.largest, pieces.total / 16) << format;
    }
}

} // namespace
} // namespace tovarin

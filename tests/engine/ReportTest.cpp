#include "engine/BicStatistics.hpp"
#include "engine/Credit.hpp"
#include "engine/ReportCells.hpp"
#include "engine/ReportWriter.hpp"
#include "tests/engine/FakeHost.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace tovarin {
namespace {

TEST(Cells, FixedAndShrinkingCountCharactersAndCutFromNinetyNineSpaces) {
    // clang-format off
    const std::tuple<std::string, std::int64_t, std::string, std::string> cases[] = {
        {"NCM", 20, "NCM" + std::string(17, ' '), "NCM" + std::string(14, ' ')},
        {"+1234567.8901", 25, "+1234567.8901" + std::string(12, ' '), "+1234567.890"},
        {"Модель", 20, "Модель" + std::string(14, ' '), "Модель" + std::string(8, ' ')},
        {std::string(300, '9'), 25, std::string(25, '9'), ""}, {"x", 200, "x" + std::string(99, ' '), "x" + std::string(99, ' ')}};
    // clang-format on
    for (const auto& [text, width, fixed, shrinking] : cases) {
        std::string a, b;
        appendFixedCell(a, text, width);
        appendShrinkingCell(b, text, width);
        EXPECT_EQ(a + "|" + b, fixed + "|" + shrinking);
    }
}

// The replacements follow the number the cell would show, not the stored double.
TEST(Cells, ReplacementsLookAtThePrintedNumber) {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    FormatBuffer buffer;
    // clang-format off
    for (const auto& [value, text] : {std::pair{0.0, "<.0001"}, {0.00003999, "<.0001"}, {0.00004, "<.0001"},
             {0.0000499, "<.0001"}, {0.00005, "0.0001"}, {0.0001, "0.0001"}, {-0.00006, "<.0001"},
             {-kInf, "<.0001"}, {kNaN, "nan"}})
        EXPECT_EQ(probabilityText(value, buffer), text) << value;
    for (const auto& [value, text] : {std::pair{1.0, "1.0"}, {-5.0, "-5.0"}, {99998.994, "99998.99"},
             {99998.996, "99999.0"}, {99999.0, "99999.0"}, {99999.004, "99999.0"}, {99999.006, ">99999"},
             {kInf, ">99999"}, {-kInf, "-inf"}, {kNaN, "nan"}})
        EXPECT_EQ(bayesFactorText(value, buffer), text) << value;
    // clang-format on
}

// The one worked example: three models, every line of the report, and the pieces it comes in.
TEST(Report, WorkedExampleLineByLine) {
    ModelSet set = test::modelSet({{"NCM", 67.82}, {"DUM", 74.15}, {"CXM", 72.03}});
    ASSERT_TRUE(findLowBic(set));
    computeResults(set);
    test::FakeHost host;
    writeReport(host, set, "/some/folder/models.txt", "\n");
    const std::string rule = [] {
        std::string line;
        for (int i = 0; i < 63; ++i)
            line += "–";
        return line;
    }();
    // clang-format off
    const std::vector<std::string> expected = {"Date: 4/5/26  09:30", "File: models.txt", "", rule,
        "Model                BIC                Tovarin             prob*               BF**                ",
        rule,
        "NCM              +67.82             0.00                 0.8591           1.0                 ",
        "DUM              +74.15             6.33                 0.0363           23.69               ",
        "CXM              +72.03             4.21                 0.1047           8.21                ",
        rule, "* BIC posterior probability or Schwarz weight",
        "** Bayes Factor with best model compared to each candidate model", "", kCreditLine, "", ""};
    // clang-format on
    std::vector<std::string> lines;
    std::istringstream stream(host.results);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    EXPECT_EQ(lines, expected);
    // Head, rule, headings, rule, five cells per row, rule, two footnotes, then
    // the bold over the start of the results and the closing piece.
    ASSERT_EQ(host.pieces.size(), 4u + 5u * 3u + 3u + 1u);
    EXPECT_EQ(host.pieces[4], "NCM" + std::string(14, ' '));
    EXPECT_EQ(host.events[host.events.size() - 2], "bold 1 100");
    EXPECT_EQ(host.pieces.back(), "\n" + std::string(kCreditLine) + "\n\n\n");
}

} // namespace
} // namespace tovarin

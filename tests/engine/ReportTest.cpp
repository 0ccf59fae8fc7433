#include "engine/BicStatistics.hpp"
#include "engine/Credit.hpp"
#include "engine/ReportCells.hpp"
#include "engine/ReportWriter.hpp"
#include "tests/engine/FakeHost.hpp"
#include "text/Utf8.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace tovarin {
namespace {

std::string fixedCell(std::string_view text, std::int64_t width) {
    std::string cell;
    appendFixedCell(cell, text, width);
    return cell;
}
std::string shrinkingCell(std::string_view text, std::int64_t width) {
    std::string cell;
    appendShrinkingCell(cell, text, width);
    return cell;
}
std::string probabilityText(double value) {
    FormatBuffer buffer;
    return std::string(tovarin::probabilityText(value, buffer));
}
std::string bayesFactorText(double value) {
    FormatBuffer buffer;
    return std::string(tovarin::bayesFactorText(value, buffer));
}

TEST(Cells, FixedAndShrinkingCutFromTheSameSpaces) {
    struct CellCase {
        std::string text;
        std::int64_t width;
        std::string fixed, shrinking;
    };
    // clang-format off
    const CellCase cases[] = {{"NCM", 20, "NCM" + std::string(17, ' '), "NCM" + std::string(14, ' ')},
        {"", 20, std::string(20, ' '), std::string(20, ' ')},
        {"ABCDEFGH", 20, "ABCDEFGH" + std::string(12, ' '), "ABCDEFGH" + std::string(4, ' ')},
        {"+1234567.8901", 25, "+1234567.8901" + std::string(12, ' '), "+1234567.890"},
        {"Модель", 20, "Модель" + std::string(14, ' '), "Модель" + std::string(8, ' ')},
        {std::string(25, '9'), 25, std::string(25, '9'), ""}, {std::string(300, '9'), 25, std::string(25, '9'), ""},
        {"x", 200, "x" + std::string(99, ' '), "x" + std::string(99, ' ')}};
    // clang-format on
    for (const CellCase& c : cases) {
        EXPECT_EQ(fixedCell(c.text, c.width), c.fixed) << c.text;
        EXPECT_EQ(shrinkingCell(c.text, c.width), c.shrinking) << c.text;
    }
}

TEST(Cells, ReplacementsLookAtThePrintedNumber) {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const std::pair<double, const char*> probabilities[] = {
        {0, "<.0001"},         {0.00003999, "<.0001"}, {0.00004, "<.0001"},
        {0.0000499, "<.0001"}, {0.00005, "0.0001"},    {0.0001, "0.0001"},
        {-0.00006, "<.0001"},  {-kInf, "<.0001"},      {kNaN, "nan"}};
    for (const auto& [value, text] : probabilities) {
        EXPECT_EQ(probabilityText(value), text) << value;
    }
    // clang-format off
    const std::pair<double, const char*> factors[] = {
        {1, "1.0"}, {-5, "-5.0"}, {99998.994, "99998.99"}, {99998.996, "99999.0"},
        {99999.0, "99999.0"}, {99999.004, "99999.0"}, {99999.006, ">99999"}, {99999.01, ">99999"},
        {kInf, ">99999"}, {-kInf, "-inf"}, {kNaN, "nan"}};
    // clang-format on
    for (const auto& [value, text] : factors) {
        EXPECT_EQ(bayesFactorText(value), text) << value;
    }
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

test::FakeHost reportOf(const std::vector<std::pair<std::string, double>>& models) {
    ModelSet set;
    set.resize(static_cast<std::int64_t>(models.size()));
    for (std::size_t i = 0; i < models.size(); ++i) {
        set.row(static_cast<std::int64_t>(i) + 1).name = models[i].first;
        set.row(static_cast<std::int64_t>(i) + 1).bic = models[i].second;
    }
    EXPECT_TRUE(findLowBic(set));
    computeResults(set);
    test::FakeHost host;
    writeReport(host, set, "/some/folder/models.txt", "\n");
    return host;
}

TEST(Report, WorkedExampleLineByLine) {
    const test::FakeHost host = reportOf({{"NCM", 67.82}, {"DUM", 74.15}, {"CXM", 72.03}});
    // clang-format off
    const std::vector<std::string> expected = {"Date: 4/5/26  09:30", "File: models.txt", "", ruleLine(),
        "Model                BIC                Tovarin             prob*               BF**                ",
        ruleLine(),
        "NCM              +67.82             0.00                 0.8591           1.0                 ",
        "DUM              +74.15             6.33                 0.0363           23.69               ",
        "CXM              +72.03             4.21                 0.1047           8.21                ",
        ruleLine(), "* BIC posterior probability or Schwarz weight",
        "** Bayes Factor with best model compared to each candidate model", "", kCreditLine, "", ""};
    // clang-format on
    EXPECT_EQ(linesOf(host.results), expected);
    EXPECT_EQ(Len(ruleLine()), 63);
    EXPECT_EQ(ruleLine().find_first_not_of("–"), std::string::npos);
}

TEST(Report, AppendsPieceByPieceAndBoldsBeforeTheClosingPiece) {
    const test::FakeHost host = reportOf({{"A", 100}, {"B", 130}});
    // Head, rule, headings, rule, five cells per row, rule, two footnotes, closing.
    ASSERT_EQ(host.pieces.size(), 4u + 5u * 2u + 3u + 1u);
    EXPECT_EQ(host.pieces[4], "A" + std::string(18, ' '));
    EXPECT_EQ(host.pieces[13], ">99999              \n");
    EXPECT_EQ(host.events[host.events.size() - 2], "bold 1 100");
    EXPECT_EQ(host.pieces.back(), "\n" + std::string(kCreditLine) + "\n\n\n");
    const auto lines = linesOf(host.results);
    EXPECT_EQ(lines[6], "A                  +100.0             0.00                 1.00           "
                        "    1.0                 ");
    EXPECT_EQ(lines[7], "B                  +130.0             30.00               <.0001          "
                        " >99999              ");
}

} // namespace
} // namespace tovarin

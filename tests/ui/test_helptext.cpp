#include "ui/secondary/HelpText.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <regex>
#include <string>
#include <vector>

namespace {

using tovarin::helpText;

// The lines of the text, line n at index n - 1 as a reader counts them.
std::vector<std::string> lines() {
    std::vector<std::string> out(1);
    for (char c : helpText()) {
        if (c == '\r')
            out.emplace_back();
        else
            out.back() += c;
    }
    return out;
}

std::string repeat(std::string_view piece, std::size_t n) {
    std::string s;
    for (std::size_t i = 0; i < n; ++i)
        s += piece;
    return s;
}

// 87 lines joined by lone carriage returns, empty exactly where the layout
// leaves gaps, the bold run as long as the title.
TEST(HelpText, LinesGapsAndTitle) {
    const auto text = helpText();
    EXPECT_EQ(text.find('\n'), std::string_view::npos);
    std::vector<std::size_t> empty = {2,  4,  6,  8,  10, 12, 17, 19, 23,
                                      25, 28, 45, 48, 80, 81, 84, 86};
    for (std::size_t n = 52; n <= 78; n += 2)
        empty.push_back(n);
    const auto all = lines();
    ASSERT_EQ(all.size(), 87u);
    for (std::size_t n = 1; n <= all.size(); ++n) {
        const bool shouldBeEmpty = std::find(empty.begin(), empty.end(), n) != empty.end();
        EXPECT_EQ(all[n - 1].empty(), shouldBeEmpty) << "line " << n;
    }
    EXPECT_EQ(text.substr(0, tovarin::kHelpTitleLength + 1), "Tovarin\r");
    // The difference is always called Tovarin.
    EXPECT_EQ(text.find("BIC difference"), std::string_view::npos);
}

// The reference entries, lines 51 to 79, every other one, "Surname, I. (Year). Title",
// in alphabetical order of the first author.
TEST(HelpText, FifteenReferencesInAlphabeticalOrder) {
    static const std::regex entry(R"(^([A-Z][A-Za-z'-]+), .* \(\d{4}\)\. )");
    std::vector<std::string> firstAuthors;
    for (std::size_t n = 51; n <= 79; n += 2) {
        std::smatch m;
        const std::string reference = lines().at(n - 1);
        ASSERT_TRUE(std::regex_search(reference, m, entry)) << reference;
        firstAuthors.push_back(m[1]);
    }
    EXPECT_TRUE(std::is_sorted(firstAuthors.begin(), firstAuthors.end()));
}

struct Line {
    std::size_t number;
    std::string text;
    bool exact = true; // else the text only stands somewhere on the line
};

class HelpTextLine : public testing::TestWithParam<Line> {};

TEST_P(HelpTextLine, Reads) {
    const std::string actual = lines().at(GetParam().number - 1);
    if (GetParam().exact)
        EXPECT_EQ(actual, GetParam().text);
    else
        EXPECT_NE(actual.find(GetParam().text), std::string::npos) << actual;
}

const std::string kOutputRule = repeat("\u2013", 66);

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    FixedLines, HelpTextLine,
    testing::Values(
        Line{20, "Bayes Factor"}, Line{26, "Input"}, Line{29, "Example"}, Line{46, "Cautions"},
        Line{31, "\tModel\tBIC\t\tProb"}, Line{32, "\tNCM\t67.82\t.86"},
        Line{33, "\tDUM\t74.15\t.04"}, Line{34, "\tCXM\t72.03\t.10"},
        Line{36, kOutputRule},
        Line{37, "Model                BIC                Tovarin                prob*  "
                  "             BF**                "},
        Line{38, kOutputRule},
        Line{39, "NCM              +67.82             0.00                 0.8591       "
                  "    1.0                 "},
        Line{40, "DUM              +74.15             6.33                 0.0363       "
                  "    23.69               "},
        Line{41, "CXM              +72.03             4.21                 0.1047       "
                  "     8.21                "},
        Line{42, kOutputRule}, Line{43, "* BIC posterior probability or Schwarz weight"},
        Line{44, "** Bayes Factor with best model compared to each candidate models"},
        Line{50, "     " + repeat("\u2022", 62)}, Line{82, repeat("\u2013", 80)}));

INSTANTIATE_TEST_SUITE_P(
    QuotedAndFormulas, HelpTextLine,
    testing::Values(
        Line{3, "Bayesian Information Criterion (BIC)", false},
        Line{7, "BIC = -2 ln(ML) + k ln(n)", false}, Line{9, "exp(-BIC1/2) / exp(-BIC2/2)", false},
        Line{9, "p = exp(-(BIC/2))", false}, Line{9, "Tovarin(i) = BICi - BICmin", false},
        Line{14, "1. Identify the most plausible model (i.e., Tovarin = 0).", false},
        Line{22, "2 log(BF)", false}, Line{24, "20-150", false},
        Line{27, "A tab-delimited text file (.txt) is used for data input.", false},
        Line{49, "The BIC values must have been derived from models of the same data set.", false},
        Line{83, "Copyright", false}, Line{87, "warranty", false}));
// clang-format on

} // namespace

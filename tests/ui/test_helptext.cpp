#include "ui/secondary/HelpText.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <regex>
#include <string>
#include <vector>

namespace {

using tovarin::helpText;

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

// Line n of the text, counted from 1 as a reader counts them.
std::string line(std::size_t n) {
    return lines().at(n - 1);
}

std::size_t characters(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::string repeat(std::string_view piece, std::size_t n) {
    std::string s;
    for (std::size_t i = 0; i < n; ++i)
        s += piece;
    return s;
}

const std::string kEnDash = "\u2013";
const std::string kBullet = "\u2022";

TEST(HelpTextShape, EightySevenLinesJoinedByLoneCarriageReturns) {
    const auto text = helpText();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 86);
    EXPECT_EQ(text.find('\n'), std::string_view::npos);
    EXPECT_NE(text.back(), '\r');
    EXPECT_EQ(lines().size(), 87u);
}

TEST(HelpTextShape, EmptyExactlyWhereTheLayoutLeavesGaps) {
    std::vector<std::size_t> empty = {2,  4,  6,  8,  10, 12, 17, 19, 23,
                                      25, 28, 45, 48, 80, 81, 84, 86};
    for (std::size_t n = 52; n <= 78; n += 2)
        empty.push_back(n);
    const auto all = lines();
    for (std::size_t n = 1; n <= all.size(); ++n) {
        const bool shouldBeEmpty = std::find(empty.begin(), empty.end(), n) != empty.end();
        EXPECT_EQ(all[n - 1].empty(), shouldBeEmpty) << "line " << n;
    }
}

TEST(HelpTextShape, TitleLengthMatchesTheBoldRun) {
    EXPECT_EQ(characters(line(1)), tovarin::kHelpTitleLength);
    EXPECT_EQ(helpText().substr(tovarin::kHelpTitleLength, 1), "\r");
}

TEST(HelpTextShape, DifferenceIsAlwaysCalledTovarin) {
    EXPECT_EQ(helpText().find("BIC difference"), std::string_view::npos);
}

struct ExactLine {
    std::size_t number;
    std::string text;
};

class HelpTextExactLine : public testing::TestWithParam<ExactLine> {};

TEST_P(HelpTextExactLine, ReadsExactly) {
    EXPECT_EQ(line(GetParam().number), GetParam().text);
}

const std::string kOutputRule = repeat(kEnDash, 66);

INSTANTIATE_TEST_SUITE_P(
    FixedLines, HelpTextExactLine,
    testing::Values(
        ExactLine{1, "Tovarin"}, ExactLine{20, "Bayes Factor"}, ExactLine{26, "Input"},
        ExactLine{29, "Example"}, ExactLine{46, "Cautions"},
        ExactLine{14, "1. Identify the most plausible model (i.e., Tovarin = 0)."},
        ExactLine{15, "2. Determine the magnitude of the BIC posterior for this most plausible "
                      "model."},
        ExactLine{16, "3. Specify a cutoff value (.50 for general purposes) and determine if the "
                      "most plausible model exceeds it. If it does, that is the final model. If it "
                      "does not, consider competing models."},
        ExactLine{27, "A tab-delimited text file (.txt) is used for data input. This file must "
                      "contain data in two columns: (1) model name (string of 8 or fewer "
                      "characters) and (2) the BIC value. Tabs separate the two data columns and "
                      "each line ends with a return."},
        ExactLine{31, "\tModel\tBIC\t\tProb"}, ExactLine{32, "\tNCM\t67.82\t.86"},
        ExactLine{33, "\tDUM\t74.15\t.04"}, ExactLine{34, "\tCXM\t72.03\t.10"},
        ExactLine{35, "When this data was processed with Tovarin, the following output was "
                      "produced:"},
        ExactLine{36, kOutputRule},
        ExactLine{37, "Model                BIC                Tovarin                prob*      "
                      "         BF**                "},
        ExactLine{38, kOutputRule},
        ExactLine{39, "NCM              +67.82             0.00                 0.8591           "
                      "1.0                 "},
        ExactLine{40, "DUM              +74.15             6.33                 0.0363           "
                      "23.69               "},
        ExactLine{41, "CXM              +72.03             4.21                 0.1047           "
                      " 8.21                "},
        ExactLine{42, kOutputRule}, ExactLine{43, "* BIC posterior probability or Schwarz weight"},
        ExactLine{44, "** Bayes Factor with best model compared to each candidate models"},
        ExactLine{50, "     " + repeat(kBullet, 62)}, ExactLine{82, repeat(kEnDash, 80)}));

struct Fragment {
    std::size_t number;
    std::string text;
};

class HelpTextFragment : public testing::TestWithParam<Fragment> {};

TEST_P(HelpTextFragment, StandsOnItsLine) {
    EXPECT_NE(line(GetParam().number).find(GetParam().text), std::string::npos)
        << "line " << GetParam().number << ": " << line(GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    QuotedAndFormulas, HelpTextFragment,
    testing::Values(
        Fragment{3, "Bayesian Information Criterion (BIC)"},
        Fragment{5, "In current practice, several plausible models are tested and the one with the "
                    "minimum BIC value is selected as the most likely to generalize."},
        Fragment{5, "multiple working hypotheses"}, Fragment{7, "BIC = -2 ln(ML) + k ln(n)"},
        Fragment{7, "These BIC values can be rank ordered but their absolute value has no "
                    "meaning."},
        Fragment{7, "0-2"}, Fragment{7, "2-6"}, Fragment{7, "6-10"}, Fragment{7, "> 10"},
        Fragment{9, "exp(-BIC1/2) / exp(-BIC2/2)"}, Fragment{9, "p = exp(-(BIC/2))"},
        Fragment{9, "Tovarin(i) = BICi - BICmin"}, Fragment{11, "Schwarz weights"},
        Fragment{11, "Akaike Information Criterion"}, Fragment{18, "Occam's window"},
        Fragment{21, "it gives the weight"}, Fragment{22, "2 log(BF)"},
        Fragment{24, "When the BF = 5, for example, the observed data are 5 times more likely to "
                     "have occurred under Model 1 than under Model 2."},
        Fragment{24, "1-3"}, Fragment{24, "3-20"}, Fragment{24, "20-150"}, Fragment{24, "> 150"},
        Fragment{47, "Additionally, the BIC values must have been calculated with the log "
                     "likelihood as specified above (for example, not the BIC version that is "
                     "corrected for sample size)."},
        Fragment{49, "The BIC values must have been derived from models of the same data set."},
        Fragment{83, "Copyright"}, Fragment{85, "cite"}, Fragment{87, "warranty"}));

TEST(HelpTextShape, QuotationBreaksAfterTheWeight) {
    const std::string l21 = line(21);
    EXPECT_EQ(l21.substr(l21.size() - std::string("it gives the weight").size()),
              "it gives the weight");
}

// The reference entries: lines 51 to 79, every other one.
std::vector<std::string> references() {
    std::vector<std::string> out;
    for (std::size_t n = 51; n <= 79; n += 2)
        out.push_back(line(n));
    return out;
}

struct Entry {
    std::vector<std::string> surnames;
    std::string year;
};

Entry parse(const std::string& reference) {
    static const std::regex year(R"( \((\d{4})\)\. )");
    std::smatch m;
    if (!std::regex_search(reference, m, year))
        return {};
    Entry e{{}, m[1]};
    static const std::regex surname(R"((?:^|& )([A-Z][A-Za-z'-]+),)");
    const std::string authors = m.prefix();
    for (auto it = std::sregex_iterator(authors.begin(), authors.end(), surname);
         it != std::sregex_iterator(); ++it)
        e.surnames.push_back((*it)[1]);
    return e;
}

TEST(HelpTextReferences, FifteenEntriesInAlphabeticalOrderEachWithAuthorsAndYear) {
    const auto refs = references();
    ASSERT_EQ(refs.size(), 15u);
    std::vector<std::string> firstAuthors;
    for (const auto& r : refs) {
        const Entry e = parse(r);
        ASSERT_FALSE(e.surnames.empty()) << r;
        firstAuthors.push_back(e.surnames.front());
    }
    EXPECT_TRUE(std::is_sorted(firstAuthors.begin(), firstAuthors.end()));
}

TEST(HelpTextReferences, EveryEntryIsCitedAbove) {
    const std::string body(helpText().substr(0, helpText().find(line(50))));
    for (const auto& r : references()) {
        const Entry e = parse(r);
        ASSERT_FALSE(e.surnames.empty()) << r;
        std::vector<std::string> forms;
        if (e.surnames.size() == 1) {
            forms = {e.surnames[0] + ", " + e.year, e.surnames[0] + " (" + e.year + ")"};
        } else {
            const std::string& a = e.surnames[0];
            const std::string& b = e.surnames[1];
            forms = {a + " & " + b + ", " + e.year, a + " and " + b + " (" + e.year + ")"};
        }
        const bool cited = std::any_of(forms.begin(), forms.end(), [&](const std::string& f) {
            return body.find(f) != std::string::npos;
        });
        EXPECT_TRUE(cited) << r;
    }
}

} // namespace

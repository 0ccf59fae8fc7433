#include "engine/table/PaperTableWriter.hpp"

#include "engine/table/NumberText.hpp"
#include "engine/table/TableColumns.hpp"
#include "text/Utf8.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>

namespace tovarin {

namespace {

constexpr int kBicDecimals = 2;
constexpr int kWeightDecimals = 3;
constexpr double kPlainFactorLimit = 100000.0;
// pandoc sizes a pipe table to its cells while no line is longer than this.
constexpr std::int64_t kPandocColumns = 72;
constexpr std::size_t kLeastDashes = 3;

// The confidence level as a percentage without trailing zeros: "95", "99.9".
std::string percentText(double confidence) {
    std::string text = fixedText(confidence * 100.0, 4);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

// How a format writes what plain digits can't.
struct Dialect {
    std::string (*power)(const std::string& mantissa, const std::string& exponent);
    std::string negative; // what stands for the minus sign
    std::string less;     // what stands for "<"
    std::string overflow; // a Bayes factor past the largest double
};

std::string factorText(double factor, const Dialect& dialect) {
    if (std::isinf(factor)) {
        return dialect.overflow;
    }
    if (factor < kPlainFactorLimit) {
        return fixedText(factor, kBicDecimals);
    }
    const std::string text = scientificText(factor, kBicDecimals);
    const std::size_t e = text.find('e');
    std::string exponent = text.substr(e + 2);
    exponent.erase(0, std::min(exponent.find_first_not_of('0'), exponent.size() - 1));
    return dialect.power(text.substr(0, e), (text[e + 1] == '-' ? "-" : "") + exponent);
}

std::string signedText(double value, const Dialect& dialect) {
    std::string text = fixedText(value, kBicDecimals);
    if (text.starts_with('-')) {
        text.replace(0, 1, dialect.negative);
    }
    return text;
}

// A cell as the paper prints it; names and other text still to be escaped.
std::string paperCell(const TableRow& row, Column column, const Dialect& dialect) {
    switch (column) {
    case Column::Rank:
        return std::to_string(row.rank);
    case Column::Name:
        return std::string(row.name);
    case Column::Bic:
        return signedText(row.bic, dialect);
    case Column::DeltaBic:
        return fixedText(row.deltaBic, kBicDecimals);
    case Column::Weight: {
        const std::string text = fixedText(row.weight, kWeightDecimals);
        return text == "0.000" ? dialect.less + "0.001" : text;
    }
    case Column::CumulativeWeight:
        return fixedText(row.cumulativeWeight, kWeightDecimals);
    case Column::BayesFactor:
        return factorText(row.bayesFactor(), dialect);
    case Column::LnBayesFactor:
        return fixedText(row.lnBayesFactor(), kBicDecimals);
    case Column::Evidence:
        return evidenceLabel(row.evidence);
    case Column::InConfidenceSet:
        return row.inConfidenceSet ? "yes" : "no";
    case Column::BicSource:
        return bicSourceLabel(row.bicSource);
    }
    return {};
}

// A heading with the confidence level put in for "{P}".
std::string heading(std::string_view text, const std::string& percent) {
    std::string out(text);
    if (const std::size_t at = out.find("{P}"); at != std::string::npos) {
        out.replace(at, 3, percent);
    }
    return out;
}

bool shows(const TableDocument& table, Column column) {
    return std::find(table.columns.begin(), table.columns.end(), column) != table.columns.end();
}

// The caption a paper table has unless it is given one: what was compared,
// how the BICs came about, and what the columns shown mean. `escape` makes
// plain text safe, `file` is the file's name as the format sets it.
std::string defaultCaption(const TableDocument& table, const std::string& file,
                           const std::string& percent,
                           const std::function<std::string(std::string_view)>& escape) {
    std::string text =
        escape("BIC comparison of the " + std::to_string(table.rows.size()) + " models in ") +
        file + ".";
    if (!table.rows.empty() && table.rows.front().bicSource == BicSource::Computed) {
        text += escape(" BIC computed as ") + "$-2 \\ln L + k \\ln n$" +
                escape(" from each model's log-likelihood L, parameters k and observations n.");
    }
    const auto add = [&](Column column, const std::string& meaning) {
        if (shows(table, column)) {
            text += escape(" " + meaning + ".");
        }
    };
    add(Column::Weight, "Weight: BIC posterior probability (Schwarz weight)");
    add(Column::BayesFactor, "BF: Bayes factor of the best model against each model");
    add(Column::Evidence, table.scale == EvidenceScale::Jeffreys
                              ? "Evidence: by the Bayes factor, on Jeffreys' scale as "
                                "Lee & Wagenmakers (2013) give it"
                              : "Evidence: by the BIC difference, on the scale of Raftery (1995)");
    if (shows(table, Column::InConfidenceSet)) {
        text += escape(" Set: the smallest set of top models holding ") + percent +
                escape(" of the weight.");
    }
    return text;
}

// The code point of the UTF-8 character at `pos`, `length` bytes long; a
// byte that starts no character is U+FFFD.
char32_t codePointAt(std::string_view text, std::size_t pos, std::size_t length) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[pos + i]); };
    if (length == 1) {
        return byte(0) < 0x80U ? byte(0) : 0xFFFDU;
    }
    constexpr std::array<unsigned, 5> kLeadBits{0, 0, 0x1FU, 0x0FU, 0x07U};
    char32_t code = byte(0) & kLeadBits[length];
    for (std::size_t i = 1; i < length; ++i) {
        code = (code << 6U) | (byte(i) & 0x3FU);
    }
    return code;
}

struct CodeRange {
    char32_t first;
    char32_t last;
};

template <std::size_t N> bool within(const std::array<CodeRange, N>& ranges, char32_t code) {
    return std::any_of(ranges.begin(), ranges.end(), [&](const CodeRange& range) {
        return code >= range.first && code <= range.last;
    });
}

// What pdflatex sets with its default encoding (OT1) and a plain preamble,
// found by setting each character of these blocks.
constexpr std::array<CodeRange, 35> kPlainLatex{{
    {0xA0, 0xAA},     {0xAC, 0xBA},     {0xBC, 0xCF},     {0xD1, 0xDD},     {0xDF, 0xEF},
    {0xF1, 0xFD},     {0xFF, 0x103},    {0x106, 0x10F},   {0x112, 0x117},   {0x11A, 0x125},
    {0x128, 0x12D},   {0x130, 0x137},   {0x139, 0x13E},   {0x141, 0x148},   {0x14C, 0x165},
    {0x168, 0x171},   {0x174, 0x17E},   {0x192, 0x192},   {0x1C4, 0x1D4},   {0x1E2, 0x1E3},
    {0x1E6, 0x1E9},   {0x1F0, 0x1F0},   {0x1F4, 0x1F5},   {0x218, 0x21B},   {0x232, 0x233},
    {0x237, 0x237},   {0x2010, 0x2016}, {0x2018, 0x2019}, {0x201C, 0x201D}, {0x2020, 0x2022},
    {0x2026, 0x2026}, {0x2030, 0x2031}, {0x20AC, 0x20AC}, {0x2122, 0x2122}, {0x2126, 0x2126},
}};
// What it sets once \usepackage[T1]{fontenc} is there.
constexpr std::array<CodeRange, 16> kT1Latex{{
    {0xAB, 0xAB},
    {0xBB, 0xBB},
    {0xD0, 0xD0},
    {0xDE, 0xDE},
    {0xF0, 0xF0},
    {0xFE, 0xFE},
    {0x104, 0x105},
    {0x110, 0x111},
    {0x118, 0x119},
    {0x12E, 0x12F},
    {0x14A, 0x14B},
    {0x172, 0x173},
    {0x1EA, 0x1EB},
    {0x201A, 0x201A},
    {0x201E, 0x201E},
    {0x2039, 0x203A},
}};
constexpr std::array<CodeRange, 4> kCjk{{
    {0x2E80, 0x9FFF},
    {0xAC00, 0xD7AF},
    {0xF900, 0xFAFF},
    {0xFF00, 0xFFEF},
}};

// Greek letters from U+0391 to U+03C9 in math mode, or as the Latin letters
// that look the same; empty where pdflatex has no way to set one.
constexpr char32_t kFirstGreek = 0x391;
constexpr std::array<std::string_view, 57> kGreek{
    "A",       "B",          "\\Gamma",  "\\Delta", "E",         "Z",        "H",     "\\Theta",
    "I",       "K",          "\\Lambda", "M",       "N",         "\\Xi",     "O",     "\\Pi",
    "P",       "",           "\\Sigma",  "T",       "\\Upsilon", "\\Phi",    "X",     "\\Psi",
    "\\Omega", "",           "",         "",        "",          "",         "",      "",
    "\\alpha", "\\beta",     "\\gamma",  "\\delta", "\\epsilon", "\\zeta",   "\\eta", "\\theta",
    "\\iota",  "\\kappa",    "\\lambda", "\\mu",    "\\nu",      "\\xi",     "o",     "\\pi",
    "\\rho",   "\\varsigma", "\\sigma",  "\\tau",   "\\upsilon", "\\varphi", "\\chi", "\\psi",
    "\\omega"};

// Text for pdflatex with its default encoding. Each package a character
// needs is named once, in a note on the line the text came from.
class LatexText {
public:
    explicit LatexText(std::vector<TableNote>& notes) : notes_(notes) {}

    std::string operator()(std::string_view text, std::int64_t line = 0) {
        std::string out;
        for (std::size_t pos = 0; pos < text.size();) {
            const std::size_t length = utf8CharLength(text, pos);
            const char32_t code = codePointAt(text, pos, length);
            if (code < 0x80U) {
                appendAscii(out, static_cast<char>(code), text.substr(pos + 1));
            } else if (code == 0x2212U) {
                out += "$-$";
            } else if (code >= kFirstGreek && code - kFirstGreek < kGreek.size() &&
                       !kGreek[code - kFirstGreek].empty()) {
                const std::string_view greek = kGreek[code - kFirstGreek];
                out += greek.starts_with('\\') ? "$" + std::string(greek) + "$" : greek;
            } else {
                out += text.substr(pos, length);
                if (!within(kPlainLatex, code)) {
                    tell(code, text.substr(pos, length), line);
                }
            }
            pos += length;
        }
        return out;
    }

private:
    static void appendAscii(std::string& out, char c, std::string_view rest) {
        switch (c) {
        case '\\':
            out += "\\textbackslash{}";
            return;
        case '~':
            out += "\\textasciitilde{}";
            return;
        case '^':
            out += "\\textasciicircum{}";
            return;
        case '<':
            out += "\\textless{}";
            return;
        case '>':
            out += "\\textgreater{}";
            return;
        case '|':
            out += "\\textbar{}";
            return;
        case '"':
            out += "\\texttt{\\char34}";
            return;
        case '`':
            out += "\\textasciigrave{}";
            return;
        case '\'':
            out += "\\textquotesingle{}";
            return;
        case '&':
        case '%':
        case '$':
        case '#':
        case '_':
        case '{':
        case '}':
            out += '\\';
            out += c;
            return;
        case '-': // two hyphens would join into a dash
            out += rest.starts_with('-') ? "-{}" : "-";
            return;
        default:
            out += static_cast<unsigned char>(c) < 0x20U || c == 0x7F ? ' ' : c;
        }
    }

    void tell(char32_t code, std::string_view character, std::int64_t line) {
        const char* need = within(kT1Latex, code)             ? "\\usepackage[T1]{fontenc}"
                           : code >= 0x400U && code <= 0x4FFU ? "\\usepackage[T2A]{fontenc}"
                           : within(kCjk, code)               ? "\\usepackage{CJKutf8}"
                                                              : nullptr;
        const std::string_view key = need != nullptr ? need : "";
        if (std::find(told_.begin(), told_.end(), key) != told_.end()) {
            return;
        }
        told_.push_back(key);
        std::array<char, 8> hex{};
        const auto end = std::to_chars(hex.data(), hex.data() + hex.size(), code, 16).ptr;
        std::string number(hex.data(), end);
        std::transform(number.begin(), number.end(), number.begin(),
                       [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
        number.insert(0, number.size() < 4 ? 4 - number.size() : 0, '0');
        const std::string what = "\"" + std::string(character) + "\" (U+" + number + ")";
        notes_.push_back(
            {line, need != nullptr
                       ? "pdflatex sets " + what + " only with " + need + " in the preamble"
                       : "pdflatex has no font for " + what + "; xelatex or lualatex sets it"});
    }

    std::vector<TableNote>& notes_;
    std::vector<std::string_view> told_;
};

// Escaped for pandoc's Markdown and GitHub's, where each of these marks
// something, and pandoc's smart typography would curl quotes and join dashes.
std::string markdownText(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (std::string_view("\\`*_[]<>|~^$@&'\"").find(c) != std::string_view::npos ||
            (c == '-' && text.substr(i + 1).starts_with('-'))) {
            out += '\\';
        }
        out += static_cast<unsigned char>(c) < 0x20U || c == 0x7F ? ' ' : c;
    }
    return out;
}

std::string markdownPower(const std::string& mantissa, const std::string& exponent) {
    return mantissa + "e" + exponent;
}

std::string latexPower(const std::string& mantissa, const std::string& exponent) {
    return "$" + mantissa + " \\times 10^{" + exponent + "}$";
}

const Dialect kMarkdown{markdownPower, "-", "<", ">1.8e308"};
const Dialect kLatex{latexPower, "$-$", "$<$", "$>10^{308}$"};

// One pipe table line of `cells`, no padding. A backslash before a pipe
// would escape it for GitHub, so a cell that ends in one gets a space.
std::string pipeLine(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        line += "|" + cell + (cell.ends_with('\\') ? " " : "");
    }
    return line + "|";
}

} // namespace

void writeMarkdownTable(std::string& out, const TableDocument& table) {
    const std::string percent = percentText(table.confidence);
    out += "Table: " +
           (table.caption.empty()
                ? defaultCaption(table, markdownText(table.file), percent + " %", markdownText)
                : markdownText(table.caption)) +
           "\n\n";
    std::vector<std::vector<std::string>> lines(1);
    // What a reader sees of each column's widest cell, the heading's ΔBIC as
    // the two letters it shows.
    std::vector<std::int64_t> widths;
    for (const Column column : table.columns) {
        const std::string text = heading(columnSpec(column).markdown, percent);
        lines.front().push_back(text);
        widths.push_back(Len(text) - (text.find("$\\Delta$") != std::string::npos ? 7 : 0));
    }
    for (const TableRow& row : table.rows) {
        std::vector<std::string>& cells = lines.emplace_back();
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const std::string text = paperCell(row, table.columns[i], kMarkdown);
            widths[i] = std::max(widths[i], Len(text));
            cells.push_back(table.columns[i] == Column::Name ? markdownText(text) : text);
        }
    }
    const bool sized = std::all_of(lines.begin(), lines.end(), [](const auto& cells) {
        return Len(pipeLine(cells)) <= kPandocColumns;
    });
    std::vector<std::string> rule;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const auto dashes =
            sized ? kLeastDashes : std::max(kLeastDashes, static_cast<std::size_t>(widths[i]));
        rule.push_back(columnSpec(table.columns[i]).numeric ? std::string(dashes, '-') + ":"
                                                            : ":" + std::string(dashes, '-'));
    }
    out += pipeLine(lines.front()) + "\n" + pipeLine(rule) + "\n";
    for (std::size_t i = 1; i < lines.size(); ++i) {
        out += pipeLine(lines[i]) + "\n";
    }
}

void writeLatexTable(std::string& out, const TableDocument& table, std::vector<TableNote>& notes) {
    LatexText latex(notes);
    const std::string percent = percentText(table.confidence);
    const auto plain = [&](std::string_view text) { return latex(text); };
    out += "% Needs \\usepackage{booktabs} in the preamble.\n";
    out += "\\begin{table}[htbp]\n  \\centering\n  \\small\n  \\setlength{\\tabcolsep}{4pt}\n  "
           "\\caption{" +
           (table.caption.empty() ? defaultCaption(table, "\\texttt{" + latex(table.file) + "}",
                                                   percent + "\\,\\%", plain)
                                  : latex(table.caption)) +
           "}\n";
    if (!table.label.empty()) {
        out += "  \\label{" + table.label + "}\n";
    }
    out += "  \\begin{tabular}{@{}";
    for (const Column column : table.columns) {
        out += columnSpec(column).numeric ? 'r' : 'l';
    }
    out += "@{}}\n    \\toprule\n";
    const auto line = [&](const auto& cell) {
        out += "    ";
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            out += (i == 0 ? "" : " & ") + cell(table.columns[i]);
        }
        out += " \\\\\n";
    };
    line([&](Column column) { return heading(columnSpec(column).latex, percent); });
    out += "    \\midrule\n";
    for (const TableRow& row : table.rows) {
        line([&](Column column) {
            const std::string text = paperCell(row, column, kLatex);
            return column == Column::Name ? latex(text, row.line) : text;
        });
    }
    out += "    \\bottomrule\n  \\end{tabular}\n\\end{table}\n";
}

} // namespace tovarin

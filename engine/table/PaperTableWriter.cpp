#include "engine/table/PaperTableWriter.hpp"

#include "engine/table/NumberText.hpp"
#include "engine/table/TableColumns.hpp"

#include <cmath>

namespace tovarin {

namespace {

constexpr int kBicDecimals = 2;
constexpr int kWeightDecimals = 3;
constexpr double kPlainFactorLimit = 100000.0;
// The confidence level as a percentage without trailing zeros: "95", "99.9".
std::string percentText(double confidence) {
    std::string text = fixedText(confidence * 100.0, 4);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

std::string weightText(double weight) {
    const std::string text = fixedText(weight, kWeightDecimals);
    return text == "0.000" ? "<0.001" : text;
}

struct Dialect {
    std::string (*escape)(std::string_view);
    std::string (*power)(const std::string& mantissa, const std::string& exponent);
    std::string negative; // what stands for the minus sign
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

std::string paperCell(const TableRow& row, Column column, const Dialect& dialect) {
    switch (column) {
    case Column::Rank:
        return std::to_string(row.rank);
    case Column::Name:
        return dialect.escape(row.name);
    case Column::Bic:
        return signedText(row.bic, dialect);
    case Column::DeltaBic:
        return fixedText(row.deltaBic, kBicDecimals);
    case Column::Weight:
        return weightText(row.weight);
    case Column::CumulativeWeight:
        return fixedText(row.cumulativeWeight, kWeightDecimals);
    case Column::BayesFactor:
        return factorText(row.bayesFactor, dialect);
    case Column::LnBayesFactor:
        return fixedText(row.lnBayesFactor, kBicDecimals);
    case Column::Evidence:
        return evidenceLabel(row.evidence);
    case Column::InConfidenceSet:
        return row.inConfidenceSet ? "yes" : "no";
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

std::string captionText(const TableDocument& table, const std::string& file,
                        const std::string& percent) {
    return "BIC comparison of the " + std::to_string(table.rows.size()) + " models in " + file +
           ". Weight: BIC posterior probability (Schwarz weight); BF: Bayes factor of the best "
           "model against each model; set: the smallest set of top models holding " +
           percent + " of the weight.";
}

std::string markdownEscape(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (std::string_view("\\|*_`<[]").find(c) != std::string_view::npos) {
            out += '\\';
        }
        out += c;
    }
    return out;
}

std::string markdownPower(const std::string& mantissa, const std::string& exponent) {
    return mantissa + "e" + exponent;
}

std::string latexEscape(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '\\':
            out += "\\textbackslash{}";
            break;
        case '~':
            out += "\\textasciitilde{}";
            break;
        case '^':
            out += "\\textasciicircum{}";
            break;
        case '&':
        case '%':
        case '$':
        case '#':
        case '_':
        case '{':
        case '}':
            out += '\\';
            out += c;
            break;
        default:
            out += c;
        }
    }
    return out;
}

std::string latexPower(const std::string& mantissa, const std::string& exponent) {
    return "$" + mantissa + " \\times 10^{" + exponent + "}$";
}

const Dialect kMarkdown{markdownEscape, markdownPower, "-", "> 1.8e308"};
const Dialect kLatex{latexEscape, latexPower, "$-$", "$> 1.8 \\times 10^{308}$"};

} // namespace

void writeMarkdownTable(std::string& out, const TableDocument& table) {
    const std::string percent = percentText(table.confidence);
    out += "Table: " + captionText(table, markdownEscape(table.file), percent + " %") + "\n\n";
    for (const ColumnSpec& spec : kTableColumns) {
        out += "| " + heading(spec.markdown, percent) + " ";
    }
    out += "|\n";
    for (const ColumnSpec& spec : kTableColumns) {
        out += spec.numeric ? "|---:" : "|:---";
    }
    out += "|\n";
    for (const TableRow& row : table.rows) {
        for (const ColumnSpec& spec : kTableColumns) {
            out += "| " + paperCell(row, spec.column, kMarkdown) + " ";
        }
        out += "|\n";
    }
}

void writeLatexTable(std::string& out, const TableDocument& table) {
    const std::string percent = percentText(table.confidence);
    out += "% Needs \\usepackage{booktabs} in the preamble.\n";
    out += "\\begin{table}[htbp]\n  \\centering\n  \\caption{" +
           captionText(table, "\\texttt{" + latexEscape(table.file) + "}", percent + "\\,\\%") +
           "}\n";
    out += "  \\begin{tabular}{";
    for (const ColumnSpec& spec : kTableColumns) {
        out += spec.numeric ? 'r' : 'l';
    }
    out += "}\n    \\toprule\n";
    const auto line = [&](const auto& cell) {
        out += "    ";
        for (const ColumnSpec& spec : kTableColumns) {
            if (spec.column != kTableColumns.front().column) {
                out += " & ";
            }
            out += cell(spec);
        }
        out += " \\\\\n";
    };
    line([&](const ColumnSpec& spec) { return heading(spec.latex, percent); });
    out += "    \\midrule\n";
    for (const TableRow& row : table.rows) {
        line([&](const ColumnSpec& spec) { return paperCell(row, spec.column, kLatex); });
    }
    out += "    \\bottomrule\n  \\end{tabular}\n\\end{table}\n";
}

} // namespace tovarin

#include "engine/table/DelimitedTableWriter.hpp"

#include "engine/table/NumberText.hpp"

#include <cmath>

namespace tovarin {

namespace {

constexpr const char* kFieldNames[] = {"rank",         "name",
                                       "bic",          "delta_bic",
                                       "weight",       "cumulative_weight",
                                       "bayes_factor", "ln_bayes_factor",
                                       "evidence",     "in_confidence_set"};

// Full precision; an infinity as R and Python's float() both read it.
std::string numberField(double value) {
    if (std::isinf(value)) {
        return value > 0 ? "Inf" : "-Inf";
    }
    return std::isnan(value) ? "NaN" : shortestText(value);
}

void appendField(std::string& out, const std::string& text, char separator) {
    if (text.find_first_of(std::string{separator, '"', '\r', '\n'}) == std::string::npos) {
        out += text;
        return;
    }
    out += '"';
    for (const char c : text) {
        out += c;
        if (c == '"') {
            out += '"';
        }
    }
    out += '"';
}

void writeTable(std::string& out, const TableDocument& table, char separator, const char* lineEnd) {
    const auto row = [&](const auto& fields) {
        bool first = true;
        for (const std::string& field : fields) {
            if (!first) {
                out += separator;
            }
            first = false;
            appendField(out, field, separator);
        }
        out += lineEnd;
    };
    row(std::vector<std::string>(std::begin(kFieldNames), std::end(kFieldNames)));
    for (const TableRow& model : table.rows) {
        row(std::vector<std::string>{
            std::to_string(model.rank), model.name, numberField(model.bic),
            numberField(model.deltaBic), numberField(model.weight),
            numberField(model.cumulativeWeight), numberField(model.bayesFactor),
            numberField(model.lnBayesFactor), evidenceLabel(model.evidence),
            model.inConfidenceSet ? "true" : "false"});
    }
}

} // namespace

void writeCsvTable(std::string& out, const TableDocument& table) {
    writeTable(out, table, ',', "\r\n");
}

void writeTsvTable(std::string& out, const TableDocument& table) {
    writeTable(out, table, '\t', "\n");
}

} // namespace tovarin

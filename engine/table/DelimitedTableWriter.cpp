#include "engine/table/DelimitedTableWriter.hpp"

#include "engine/table/NumberText.hpp"
#include "engine/table/TableColumns.hpp"

#include <cmath>

namespace tovarin {

namespace {

// Full precision; an infinity as R and Python's float() both read it.
std::string numberField(double value) {
    if (std::isinf(value)) {
        return value > 0 ? "Inf" : "-Inf";
    }
    return std::isnan(value) ? "NaN" : shortestText(value);
}

void appendField(std::string& out, std::string_view text, char separator) {
    if (text.find_first_of(std::string{separator, '"', '\r', '\n'}) == std::string_view::npos) {
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

struct FieldText {
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(std::string_view text) const { return std::string(text); }
    std::string operator()(double value) const { return numberField(value); }
    // As R's read.csv, pandas and spreadsheets all read a truth value.
    std::string operator()(bool value) const { return value ? "TRUE" : "FALSE"; }
};

void writeTable(std::string& out, const TableDocument& table, char separator, const char* lineEnd) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        out += i == 0 ? "" : std::string(1, separator);
        appendField(out, columnSpec(table.columns[i]).field, separator);
    }
    out += lineEnd;
    for (const TableRow& row : table.rows) {
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            out += i == 0 ? "" : std::string(1, separator);
            appendField(out, std::visit(FieldText{}, cellOf(row, table.columns[i])), separator);
        }
        out += lineEnd;
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

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
    std::string operator()(bool value) const { return value ? "true" : "false"; }
};

void writeTable(std::string& out, const TableDocument& table, char separator, const char* lineEnd) {
    for (const ColumnSpec& spec : kTableColumns) {
        if (spec.column != kTableColumns.front().column) {
            out += separator;
        }
        appendField(out, spec.field, separator);
    }
    out += lineEnd;
    for (const TableRow& row : table.rows) {
        for (const ColumnSpec& spec : kTableColumns) {
            if (spec.column != kTableColumns.front().column) {
                out += separator;
            }
            appendField(out, std::visit(FieldText{}, cellOf(row, spec.column)), separator);
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

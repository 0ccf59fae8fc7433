#include "engine/table/DelimitedTableWriter.hpp"

#include "engine/table/TableColumns.hpp"

#include <algorithm>
#include <cmath>

namespace tovarin {

namespace {

void appendField(TextSink& out, std::string_view text, char separator) {
    const auto special = [separator](char c) {
        return c == separator || c == '"' || c == '\r' || c == '\n';
    };
    if (std::none_of(text.begin(), text.end(), special)) {
        out.append(text);
        return;
    }
    out.append('"');
    for (const char c : text) {
        out.append(c);
        if (c == '"') {
            out.append('"');
        }
    }
    out.append('"');
}

// Numbers and truth values hold no separator, quote or line end, so they need no quotes.
struct Field {
    TextSink& out;
    char separator;
    void operator()(std::int64_t value) const { out.appendInteger(value); }
    void operator()(std::string_view text) const { appendField(out, text, separator); }
    // Full precision; an infinity as R and Python's float() both read it.
    void operator()(double value) const {
        if (std::isinf(value)) {
            out.append(value > 0 ? "Inf" : "-Inf");
        } else if (std::isnan(value)) {
            out.append("NaN");
        } else {
            out.appendShortest(value);
        }
    }
    // As R's read.csv, pandas and spreadsheets all read a truth value.
    void operator()(bool value) const { out.append(value ? "TRUE" : "FALSE"); }
};

void writeTable(TextSink& out, const TableDocument& table, char separator,
                std::string_view lineEnd) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        if (i != 0) {
            out.append(separator);
        }
        appendField(out, columnSpec(table.columns[i]).field, separator);
    }
    out.append(lineEnd);
    const Field field{out, separator};
    for (const TableRow& row : table.rows) {
        if (out.failed()) {
            return;
        }
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            if (i != 0) {
                out.append(separator);
            }
            std::visit(field, cellOf(row, table.columns[i]));
        }
        out.append(lineEnd);
    }
}

} // namespace

void writeCsvTable(TextSink& out, const TableDocument& table) {
    writeTable(out, table, ',', "\r\n");
}

void writeTsvTable(TextSink& out, const TableDocument& table) {
    writeTable(out, table, '\t', "\n");
}

} // namespace tovarin

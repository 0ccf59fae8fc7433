#include "engine/table/JsonTableWriter.hpp"

#include "engine/table/TableColumns.hpp"
#include "text/Utf8.hpp"

#include <algorithm>
#include <cmath>

namespace tovarin {

namespace {

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

// A JSON string. Names are checked UTF-8 when read, but a file's path need
// not be; a byte that starts no character becomes U+FFFD.
void appendString(TextSink& out, std::string_view text) {
    out.append('"');
    for (std::size_t pos = 0; pos < text.size();) {
        // Plain printable ASCII goes over in one piece.
        const auto plain =
            std::find_if(text.begin() + static_cast<std::ptrdiff_t>(pos), text.end(), [](char c) {
                const auto u = static_cast<unsigned char>(c);
                return u < 0x20U || u >= 0x80U || c == '"' || c == '\\';
            });
        const auto run = static_cast<std::size_t>(plain - text.begin()) - pos;
        out.append(text.substr(pos, run));
        pos += run;
        if (pos == text.size()) {
            break;
        }
        const auto byte = static_cast<unsigned char>(text[pos]);
        const std::size_t length = utf8CharLength(text, pos);
        if (byte >= 0x80U) {
            out.append(length > 1 ? text.substr(pos, length) : kReplacementCharacter);
        } else if (byte == '"' || byte == '\\') {
            out.append('\\');
            out.append(static_cast<char>(byte));
        } else if (byte < 0x20U) {
            constexpr std::string_view hex = "0123456789abcdef";
            out.append("\\u00");
            out.append(hex[byte >> 4U]);
            out.append(hex[byte & 0xFU]);
        } else {
            out.append(static_cast<char>(byte));
        }
        pos += length;
    }
    out.append('"');
}

void appendNumber(TextSink& out, double value) {
    if (std::isfinite(value)) {
        out.appendShortest(value);
    } else {
        out.append("null");
    }
}

struct JsonValue {
    TextSink& out;
    void operator()(std::int64_t value) const { out.appendInteger(value); }
    void operator()(std::string_view text) const { appendString(out, text); }
    void operator()(double value) const { appendNumber(out, value); }
    void operator()(bool value) const { out.append(value ? "true" : "false"); }
};

} // namespace

void writeJsonTable(TextSink& out, const TableDocument& table) {
    out.append("{\n  \"file\": ");
    appendString(out, table.file);
    out.append(",\n  \"count\": ");
    out.appendInteger(static_cast<std::int64_t>(table.rows.size()));
    out.append(",\n  \"best_model\": ");
    appendString(out, table.best().name);
    out.append(",\n  \"tied_best\": [");
    const std::vector<const TableRow*> tied = table.tiedBest();
    for (std::size_t i = 0; i < tied.size(); ++i) {
        out.append(i == 0 ? "" : ", ");
        appendString(out, tied[i]->name);
    }
    out.append("],\n  \"confidence\": ");
    appendNumber(out, table.confidence);
    out.append(",\n  \"scale\": ");
    out.append(table.scale == EvidenceScale::Jeffreys ? "\"jeffreys\"" : "\"raftery\"");
    out.append(",\n  \"models\": [");
    // Each key with what stands before it, made once: field names need no escapes.
    std::vector<std::string> keys;
    for (const Column column : table.columns) {
        keys.push_back((keys.empty() ? "\"" : ", \"") + std::string(columnSpec(column).field) +
                       "\": ");
    }
    bool first = true;
    for (const TableRow& row : table.rows) {
        if (out.failed()) {
            return;
        }
        out.append(first ? "\n    {" : ",\n    {");
        first = false;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            out.append(keys[i]);
            std::visit(JsonValue{out}, cellOf(row, table.columns[i]));
        }
        out.append('}');
    }
    out.append("\n  ]\n}\n");
}

} // namespace tovarin

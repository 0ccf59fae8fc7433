#include "engine/table/JsonTableWriter.hpp"

#include "engine/table/NumberText.hpp"
#include "engine/table/TableColumns.hpp"
#include "text/Utf8.hpp"

#include <algorithm>
#include <cmath>

namespace tovarin {

namespace {

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

// A JSON string. Names are checked UTF-8 when read, but a file's path need
// not be; a byte that starts no character becomes U+FFFD.
void appendString(std::string& out, std::string_view text) {
    out += '"';
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
            out += length > 1 ? text.substr(pos, length) : kReplacementCharacter;
        } else if (byte == '"' || byte == '\\') {
            out += '\\';
            out += static_cast<char>(byte);
        } else if (byte < 0x20U) {
            constexpr std::string_view hex = "0123456789abcdef";
            out += "\\u00";
            out += hex[byte >> 4U];
            out += hex[byte & 0xFU];
        } else {
            out += static_cast<char>(byte);
        }
        pos += length;
    }
    out += '"';
}

void appendNumber(std::string& out, double value) {
    if (std::isfinite(value)) {
        appendShortest(out, value);
    } else {
        out += "null";
    }
}

struct JsonValue {
    std::string& out;
    void operator()(std::int64_t value) const { out += std::to_string(value); }
    void operator()(std::string_view text) const { appendString(out, text); }
    void operator()(double value) const { appendNumber(out, value); }
    void operator()(bool value) const { out += value ? "true" : "false"; }
};

} // namespace

void writeJsonTable(std::string& out, const TableDocument& table) {
    constexpr std::size_t kBytesPerModel = 320;
    out.reserve(out.size() + table.rows.size() * kBytesPerModel);
    out += "{\n  \"file\": ";
    appendString(out, table.file);
    out += ",\n  \"count\": " + std::to_string(table.rows.size());
    out += ",\n  \"best_model\": ";
    appendString(out, table.best().name);
    out += ",\n  \"tied_best\": [";
    const std::vector<const TableRow*> tied = table.tiedBest();
    for (std::size_t i = 0; i < tied.size(); ++i) {
        out += i == 0 ? "" : ", ";
        appendString(out, tied[i]->name);
    }
    out += "],\n  \"confidence\": ";
    appendNumber(out, table.confidence);
    out += ",\n  \"scale\": ";
    out += table.scale == EvidenceScale::Jeffreys ? "\"jeffreys\"" : "\"raftery\"";
    out += ",\n  \"models\": [";
    bool first = true;
    for (const TableRow& row : table.rows) {
        out += first ? "\n    {" : ",\n    {";
        first = false;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            out += i == 0 ? "" : ", ";
            appendString(out, columnSpec(table.columns[i]).field);
            out += ": ";
            std::visit(JsonValue{out}, cellOf(row, table.columns[i]));
        }
        out += '}';
    }
    out += "\n  ]\n}\n";
}

} // namespace tovarin

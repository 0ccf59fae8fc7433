#include "engine/table/ModelTableReader.hpp"

#include "text/Utf8.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <unordered_map>

namespace tovarin {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// Past this many, repeated names are counted in one closing note, so that a
// file of ten thousand copies doesn't bury the output in warnings.
constexpr std::int64_t kRepeatNotes = 10;

std::string_view trimSpaces(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

bool isValidUtf8(std::string_view text) {
    const auto ascii = std::find_if(text.begin(), text.end(),
                                    [](char c) { return static_cast<unsigned char>(c) >= 0x80U; });
    for (auto pos = static_cast<std::size_t>(ascii - text.begin()); pos < text.size();) {
        const std::size_t length = utf8CharLength(text, pos);
        if (length == 1 && static_cast<unsigned char>(text[pos]) >= 0x80U) {
            return false;
        }
        pos += length;
    }
    return true;
}

// The separator of one line: a tab wins, then a semicolon, then the comma.
// Quoted text doesn't count; every quote flips the state, so "" inside
// quotes flips it twice.
char separatorOf(std::string_view line) {
    bool quoted = false;
    bool semicolon = false;
    for (const char c : line) {
        if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && c == '\t') {
            return '\t';
        } else if (!quoted && c == ';') {
            semicolon = true;
        }
    }
    return semicolon ? ';' : ',';
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

TableReadError quoteProblem(std::int64_t line, std::size_t field, const char* what) {
    return TableReadError(line, "field " + std::to_string(field) + ": " + what);
}

// The first two fields of a line, into strings whose room is reused from line to line.
struct LineFields {
    std::string name;
    std::string bic;
    std::string rest; // later fields, only checked
    std::size_t count = 0;

    std::string& next() {
        std::string& field = count == 0 ? name : count == 1 ? bic : rest;
        ++count;
        field.clear();
        return field;
    }
};

// Splits line `number` at `separator`, unquoting quoted fields as RFC 4180
// does. A broken quote throws.
void splitFields(std::string_view line, char separator, std::int64_t number, LineFields& fields) {
    fields.count = 0;
    fields.bic.clear();
    std::size_t pos = 0;
    while (true) {
        const std::size_t start = line.find_first_not_of(' ', pos);
        if (start == std::string_view::npos || line[start] != '"') {
            const std::size_t end = line.find(separator, pos);
            fields.next() = trimSpaces(line.substr(pos, end - pos));
            if (end == std::string_view::npos) {
                return;
            }
            pos = end + 1;
            continue;
        }
        std::string& field = fields.next();
        std::size_t at = start + 1;
        while (true) {
            const std::size_t quote = line.find('"', at);
            if (quote == std::string_view::npos) {
                throw quoteProblem(number, fields.count, "its opening quote is never closed");
            }
            field.append(line.substr(at, quote - at));
            if (quote + 1 < line.size() && line[quote + 1] == '"') {
                field += '"';
                at = quote + 2;
                continue;
            }
            at = quote + 1;
            break;
        }
        const std::size_t after = line.find_first_not_of(' ', at);
        if (after == std::string_view::npos) {
            return;
        }
        if (line[after] != separator) {
            throw quoteProblem(number, fields.count, "text follows its closing quote");
        }
        pos = after + 1;
    }
}

// Notes on names used before, in line order: the first kRepeatNotes, then one
// that counts the rest. The models are all read, so views of their names stay valid.
void noteRepeatedNames(ModelTableRead& read) {
    std::unordered_map<std::string_view, std::int64_t> firstUse;
    firstUse.reserve(read.models.size());
    std::int64_t repeats = 0;
    for (const TableModel& model : read.models) {
        const auto [used, fresh] = firstUse.emplace(model.name, model.line);
        if (!fresh && ++repeats <= kRepeatNotes) {
            read.notes.push_back({model.line, "the name " + quoted(model.name) +
                                                  " is already used on line " +
                                                  std::to_string(used->second)});
        }
    }
    if (repeats > kRepeatNotes) {
        read.notes.push_back({read.lineCount, std::to_string(repeats - kRepeatNotes) +
                                                  " more lines repeat a name used before"});
    }
}

// Why `field` is no BIC, with the likely cause where there is one.
std::string notANumber(std::string_view field) {
    if (field.empty()) {
        return "the BIC field is empty (name and BIC are separated by a tab, a comma or a "
               "semicolon)";
    }
    std::string reason = "the BIC " + quoted(field) + " is not a number";
    if (field.find(',') != std::string_view::npos) {
        reason += " (a decimal comma? BICs need a decimal point)";
    } else {
        double any = 0.0;
        const auto [end, ec] = std::from_chars(field.data(), field.data() + field.size(), any);
        if (ec == std::errc::result_out_of_range) {
            reason = "the BIC " + quoted(field) + " is out of the range of a double";
        } else if (ec == std::errc() && !std::isfinite(any) && end == field.data() + field.size()) {
            reason = "the BIC " + quoted(field) + " is not a finite number";
        }
    }
    return reason;
}

} // namespace

std::optional<double> parseWholeNumber(std::string_view text) {
    // from_chars takes a minus but no plus; a plus before a sign is no number.
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-') || text.starts_with('+')) {
            return std::nullopt;
        }
    }
    double value = 0.0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

ModelTableRead readModelTable(std::string_view text, std::optional<std::int64_t> expectedCount) {
    ModelTableRead read;
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    LineFields fields;
    bool seenContent = false;
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t end = text.find_first_of("\r\n", pos);
        const std::string_view line =
            text.substr(pos, end == std::string_view::npos ? std::string_view::npos : end - pos);
        pos = end == std::string_view::npos ? text.size() : end + 1;
        if (end != std::string_view::npos && text[end] == '\r' && pos < text.size() &&
            text[pos] == '\n') {
            ++pos;
        }
        const std::int64_t number = ++read.lineCount;
        if (isBlank(line)) {
            continue;
        }
        const char separator = separatorOf(line);
        splitFields(line, separator, number, fields);
        const std::string& bicField = fields.bic;
        const std::optional<double> bic = parseWholeNumber(bicField);
        const bool first = !seenContent;
        seenContent = true;
        if (!bic && first) {
            read.headerLine = number;
            read.notes.push_back({number, "skipped as a header line: its BIC field " +
                                              quoted(bicField) + " is not a number"});
            continue;
        }
        if (!bic) {
            throw TableReadError(number, notANumber(bicField));
        }
        if (fields.name.empty()) {
            throw TableReadError(number, "the model has no name");
        }
        if (!isValidUtf8(fields.name)) {
            throw TableReadError(number, "the name is not UTF-8 text");
        }
        if (separator == ';' && read.firstSemicolonLine == 0) {
            read.firstSemicolonLine = number;
        }
        read.models.push_back({fields.name, *bic, number});
        if (expectedCount && std::ssize(read.models) > *expectedCount) {
            throw TableReadError(number, "model line " + std::to_string(read.models.size()) +
                                             ", but --count is " + std::to_string(*expectedCount));
        }
    }
    if (expectedCount && std::ssize(read.models) != *expectedCount) {
        throw TableReadError(read.lineCount,
                             "the file ends after " + std::to_string(read.models.size()) +
                                 " model lines, but --count is " + std::to_string(*expectedCount));
    }
    noteRepeatedNames(read);
    return read;
}

} // namespace tovarin

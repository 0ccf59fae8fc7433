#include "engine/table/ModelTableReader.hpp"

#include "text/DoubleChars.hpp"
#include "text/Utf8.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <deque>
#include <functional>
#include <limits>

namespace tovarin {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// Past this many, repeated names are counted in one closing note, so that a
// file of ten thousand copies doesn't bury the output in warnings.
constexpr std::int64_t kRepeatNotes = 10;
constexpr std::size_t kNone = std::string_view::npos;
// Stata frames a table with a rule above, one under the header and one below;
// the title above and the notes below are no rows.
constexpr int kFrameRules = 3;
// The longest number text with a decimal comma worth reading.
constexpr std::size_t kNumberRoom = 128;

// The one call that turns text into a double: its value, whether the whole
// text was read, and std::errc::result_out_of_range past a double's range.
struct DoubleRead {
    double value = 0.0;
    bool whole = false;
    std::errc error{};
};

DoubleRead readDouble(std::string_view text) {
    DoubleRead read;
    const auto [end, ec] = doubleFromChars(text.data(), text.data() + text.size(), read.value);
    read.whole = end == text.data() + text.size();
    read.error = ec;
    return read;
}

std::string_view trimSpaces(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == kNone) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t") == kNone;
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

// Whether `part` lies in `whole`; std::less orders any two pointers.
bool within(std::string_view part, std::string_view whole) {
    const std::less<const char*> before;
    return !before(part.data(), whole.data()) &&
           !before(whole.data() + whole.size(), part.data() + part.size());
}

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameInAnyCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return asciiLower(x) == asciiLower(y); });
}

// What R, Stata and the C library write where a value is missing or infinite.
bool isMissing(std::string_view text) {
    constexpr std::array<std::string_view, 10> kMissing{
        "", ".", "na", "nan", "inf", "-inf", "+inf", "infinity", "-infinity", "+infinity"};
    return std::any_of(kMissing.begin(), kMissing.end(),
                       [&](std::string_view missing) { return sameInAnyCase(text, missing); });
}

// A header's cell: letters that don't start a number ("BIC", "ll(model)",
// "ΔBIC", but not "12abc", "1e999", "NA" or "Inf").
bool isWord(std::string_view text) {
    if (isMissing(text)) {
        return false;
    }
    const std::size_t lead = text.find_first_not_of("+-.");
    if (lead != kNone && lead <= 2 && text[lead] >= '0' && text[lead] <= '9') {
        return false;
    }
    return std::any_of(text.begin(), text.end(), [](char c) {
        const char low = asciiLower(c);
        return static_cast<unsigned char>(c) >= 0x80U || (low >= 'a' && low <= 'z');
    });
}

// A line of dashes (with `+` and `|` where rules cross) between the parts of
// a table aligned with spaces.
bool isRule(std::string_view line) {
    return line.find_first_not_of(" \t-=+|") == kNone &&
           std::count_if(line.begin(), line.end(), [](char c) { return c == '-' || c == '='; }) >=
               3;
}

// Walks the lines of a text; LF, CR and CR LF end them. The next of each kind
// of line end is remembered, so that each part of the text is searched once
// for each, whichever of them the file uses.
class LineCursor {
public:
    explicit LineCursor(std::string_view text) : text_(text) {}

    bool next(std::string_view& line) {
        if (pos_ >= text_.size()) {
            return false;
        }
        if (nextLf_ < pos_ || pos_ == 0) {
            nextLf_ = text_.find('\n', pos_);
        }
        if (nextCr_ < pos_ || pos_ == 0) {
            nextCr_ = text_.find('\r', pos_);
        }
        const std::size_t end = std::min(nextLf_, nextCr_);
        line = text_.substr(pos_, end == kNone ? kNone : end - pos_);
        pos_ = end == kNone ? text_.size() : end + 1;
        if (end != kNone && text_[end] == '\r' && pos_ < text_.size() && text_[pos_] == '\n') {
            ++pos_;
        }
        ++number_;
        return true;
    }
    std::int64_t number() const { return number_; }

private:
    std::string_view text_;
    std::size_t pos_ = 0;
    std::size_t nextLf_ = 0;
    std::size_t nextCr_ = 0;
    std::int64_t number_ = 0;
};

// The fields of one line: views into the line or, for a quoted field whose
// doubled quotes were undone, into `unquoted`. Room is reused from line to line.
struct Fields {
    std::vector<std::string_view> views;
    std::deque<std::string> unquoted; // growing a deque moves no text a view points into

    std::size_t size() const { return views.size(); }
    std::string_view operator[](std::size_t i) const {
        return i < views.size() ? views[i] : std::string_view();
    }
};

TableReadError quoteProblem(std::int64_t line, std::size_t field, const char* what) {
    return TableReadError(line, "field " + std::to_string(field) + ": " + what);
}

// The quoted field that opens at `open`, its doubled quotes undone; `close`
// is set to its closing quote. A quote never closed throws.
std::string_view unquoteField(std::string_view line, std::size_t open, std::int64_t number,
                              Fields& fields, std::size_t& close) {
    bool doubled = false;
    for (std::size_t at = open + 1;; at = close + 2) {
        close = line.find('"', at);
        if (close == kNone) {
            throw quoteProblem(number, fields.size() + 1, "its opening quote is never closed");
        }
        if (close + 1 >= line.size() || line[close + 1] != '"') {
            break;
        }
        doubled = true;
    }
    const std::string_view inside = line.substr(open + 1, close - open - 1);
    if (!doubled) {
        return inside;
    }
    if (fields.unquoted.size() <= fields.size()) {
        fields.unquoted.resize(fields.size() + 1);
    }
    std::string& text = fields.unquoted[fields.size()];
    text.clear();
    for (std::size_t i = 0; i < inside.size(); ++i) {
        text += inside[i];
        i += inside[i] == '"' ? 1 : 0;
    }
    return text;
}

// Splits `line` at `separator`, where ' ' stands for runs of spaces, tabs and
// `|` rules. Quoted fields are unquoted as RFC 4180 does; a broken quote
// throws. Empty unquoted fields at the end don't count: spreadsheets pad lines
// with separators.
void splitFields(std::string_view line, char separator, std::int64_t number, Fields& fields) {
    fields.views.clear();
    const bool spaced = separator == ' ';
    const std::string_view spaces = " \t|";
    const auto separatorAfter = [&](std::size_t from) {
        return spaced ? line.find_first_of(spaces, from) : line.find(separator, from);
    };
    std::size_t kept = 0;
    std::size_t pos = 0;
    while (true) {
        if (spaced && (pos = line.find_first_not_of(spaces, pos)) == kNone) {
            break;
        }
        const std::size_t start = line.find_first_not_of(' ', pos);
        if (start == kNone || line[start] != '"') {
            const std::size_t end = separatorAfter(pos);
            fields.views.push_back(trimSpaces(line.substr(pos, end == kNone ? kNone : end - pos)));
            kept = fields.views.back().empty() ? kept : fields.size();
            if (end == kNone) {
                break;
            }
            pos = end + 1;
            continue;
        }
        std::size_t close = 0;
        fields.views.push_back(unquoteField(line, start, number, fields, close));
        kept = fields.size();
        // Spaces after the quote are the separator in an aligned table, padding elsewhere.
        const std::size_t after = spaced ? close + 1 : line.find_first_not_of(' ', close + 1);
        if (after >= line.size()) {
            break;
        }
        if (spaced ? spaces.find(line[after]) == kNone : line[after] != separator) {
            throw quoteProblem(number, fields.size(), "text follows its closing quote");
        }
        pos = after + 1;
    }
    fields.views.resize(kept);
}

// The separator the first line shows: a tab outside quotes, else a
// semicolon, else a comma, else the spaces between two fields or more.
char detectSeparator(std::string_view line) {
    bool quotedText = false;
    bool semicolon = false;
    bool comma = false;
    for (const char c : line) {
        if (c == '"') {
            quotedText = !quotedText;
        } else if (!quotedText && c == '\t') {
            return '\t';
        } else if (!quotedText) {
            semicolon = semicolon || c == ';';
            comma = comma || c == ',';
        }
    }
    if (semicolon || comma) {
        return semicolon ? ';' : ',';
    }
    return trimSpaces(line).find(' ') != kNone ? ' ' : ',';
}

char separatorFor(FieldSeparator separator) {
    switch (separator) {
    case FieldSeparator::Tab:
        return '\t';
    case FieldSeparator::Semicolon:
        return ';';
    case FieldSeparator::Space:
        return ' ';
    case FieldSeparator::Comma:
    case FieldSeparator::Auto:
        break;
    }
    return ',';
}

// Which fields hold what, and which lines form the table.
struct Layout {
    char separator = ',';
    std::int64_t topRule = 0;    // with a frame of rules, the lines outside
    std::int64_t bottomRule = 0; // it are no part of the table
    std::int64_t headerLine = 0;
    std::size_t fieldCount = 2;
    std::size_t bic = 1;
    std::size_t name = kNone;
    std::size_t logLik = kNone;
    std::size_t params = kNone;
    std::size_t nobs = kNone;
    std::vector<std::string> cells; // the header's, one over each field

    bool spaced() const { return separator == ' '; }
    bool commaDecimals() const { return separator != ','; }
    bool inside(std::int64_t line) const {
        return topRule == 0 || (line > topRule && line < bottomRule);
    }
    bool content(std::string_view line, std::int64_t number) const {
        return !isBlank(line) && !(spaced() && isRule(line)) && inside(number);
    }
};

std::string cellList(const std::vector<std::string>& cells) {
    std::string list;
    for (const std::string& cell : cells) {
        list += (list.empty() ? "" : ", ") + quoted(cell);
    }
    return list;
}

std::optional<std::size_t> cellNamed(const Fields& cells, std::string_view name) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (sameInAnyCase(cells[i], name)) {
            return i;
        }
    }
    return std::nullopt;
}

// Whether a line looks like a header: words, some cells left empty.
bool headerLike(const Fields& fields) {
    return std::all_of(fields.views.begin(), fields.views.end(),
                       [](std::string_view cell) { return cell.empty() || isWord(cell); }) &&
           std::any_of(fields.views.begin(), fields.views.end(), isWord);
}

// The field of `choice` (a column for `what`), found in the header or by position.
std::size_t resolveColumn(const ColumnChoice& choice, const char* what, const Layout& layout,
                          std::int64_t line) {
    if (choice.position > 0) {
        const auto index = static_cast<std::size_t>(choice.position - 1);
        if (index >= layout.fieldCount) {
            throw TableReadError(line, "column " + std::to_string(choice.position) + " for the " +
                                           what + " is past the line's " +
                                           std::to_string(layout.fieldCount) + " fields");
        }
        return index;
    }
    if (layout.headerLine == 0) {
        throw TableReadError(line, "no header line names a column " + quoted(choice.name) +
                                       " for the " + what);
    }
    for (std::size_t i = 0; i < layout.cells.size(); ++i) {
        if (sameInAnyCase(layout.cells[i], choice.name)) {
            return i;
        }
    }
    throw TableReadError(line, "no column is named " + quoted(choice.name) + " for the " + what +
                                   "; the header's cells are " + cellList(layout.cells));
}

// Finds the header and the field of the BIC (or of the log-likelihood it is
// computed from) in the first line `first` and the field count of the next.
void findKeyColumn(Layout& layout, const Fields& first, std::size_t nextCount,
                   const TableReadOptions& options, std::int64_t line) {
    const bool computed = options.logLik.given();
    const ColumnChoice& key = computed ? options.logLik : options.bic;
    const std::size_t count = first.size();
    // R prints its row names under no cell: the header is one cell short.
    std::size_t shift = headerLike(first) && nextCount == count + 1 ? 1 : 0;
    bool header = false;
    std::size_t keyIndex = 0;
    if (key.position > 0) {
        keyIndex = static_cast<std::size_t>(key.position - 1);
        header = keyIndex >= shift && isWord(first[keyIndex - shift]);
    } else if (const auto at = cellNamed(first, key.given() ? key.name : "BIC")) {
        header = true;
        keyIndex = *at + shift;
    } else if (!key.given() && count <= 2) {
        shift = 0;
        keyIndex = 1;
        header = isWord(first[1]);
    } else if (headerLike(first)) {
        throw TableReadError(
            line,
            "no column is named " + quoted(key.given() ? key.name : std::string("BIC")) +
                "; the header's cells are " + cellList({first.views.begin(), first.views.end()}) +
                " (choose the column with --" + (computed ? "loglik" : "bic") + "-column NAME|N)");
    } else {
        throw TableReadError(line, std::to_string(count) +
                                       " fields and no header line to name them: which is the "
                                       "BIC? (a header with a \"BIC\" cell, or --bic-column N)");
    }
    if (header) {
        layout.headerLine = line;
        layout.cells.assign(shift, std::string());
        layout.cells.insert(layout.cells.end(), first.views.begin(), first.views.end());
    }
    layout.fieldCount = header ? count + shift : std::max<std::size_t>(count, 2);
    if (keyIndex >= layout.fieldCount) {
        throw TableReadError(line, "column " + std::to_string(keyIndex + 1) +
                                       " is chosen, but the line has " +
                                       std::to_string(layout.fieldCount) + " fields");
    }
    (computed ? layout.logLik : layout.bic) = keyIndex;
}

// The first column besides the numbers' that holds text somewhere: R's row
// names and a names column are text, pandas' index column is not.
std::size_t findNameColumn(std::string_view text, const Layout& layout, std::int64_t line) {
    std::vector<std::size_t> candidates;
    for (std::size_t i = 0; i < layout.fieldCount; ++i) {
        if (i != layout.bic && i != layout.logLik && i != layout.params && i != layout.nobs) {
            candidates.push_back(i);
        }
    }
    if (candidates.size() <= 1) {
        if (candidates.empty()) {
            throw TableReadError(line, "no column is left for the models' names");
        }
        return candidates.front();
    }
    std::vector<bool> holdsText(layout.fieldCount, false);
    LineCursor lines(text);
    Fields fields;
    std::string_view current;
    while (!holdsText[candidates.front()] && lines.next(current)) {
        if (!layout.content(current, lines.number()) || lines.number() == layout.headerLine) {
            continue;
        }
        try {
            splitFields(current, layout.separator, lines.number(), fields);
        } catch (const TableReadError&) {
            continue; // the reading proper names the line
        }
        for (const std::size_t i : candidates) {
            DecimalMark mark = DecimalMark::None;
            holdsText[i] =
                holdsText[i] || (!isMissing(fields[i]) &&
                                 !parseFieldNumber(fields[i], layout.commaDecimals(), mark));
        }
    }
    for (const std::size_t i : candidates) {
        if (holdsText[i]) {
            return i;
        }
    }
    throw TableReadError(line, "no column holds the models' names as text (choose it with "
                               "--name-column NAME|N)");
}

std::string headerNote(const Layout& layout) {
    std::string note = "header line:";
    const auto add = [&](const char* what, std::size_t index) {
        if (index != kNone) {
            note += std::string(note.ends_with(':') ? " " : ", ") + what + " from column " +
                    std::to_string(index + 1) + " " + quoted(layout.cells[index]);
        }
    };
    add("BIC", layout.bic);
    add("log-likelihoods", layout.logLik);
    add("parameters", layout.params);
    add("observations", layout.nobs);
    add("names", layout.name);
    return note;
}

// Where the fields of `text` are and which of them hold what.
Layout planLayout(std::string_view text, const TableReadOptions& options) {
    Layout layout;
    LineCursor lines(text);
    std::string_view line;
    layout.separator = separatorFor(options.separator);
    int rules = 0;
    std::int64_t firstLine = 0;
    while (lines.next(line)) {
        if (isBlank(line)) {
            continue;
        }
        if (firstLine == 0 && options.separator == FieldSeparator::Auto) {
            layout.separator = detectSeparator(line);
        }
        firstLine = firstLine == 0 ? lines.number() : firstLine;
        if (!layout.spaced()) {
            break;
        }
        if (isRule(line)) {
            layout.topRule = ++rules == 1 ? lines.number() : layout.topRule;
            layout.bottomRule = lines.number();
        }
    }
    if (rules < kFrameRules) {
        layout.topRule = layout.bottomRule = 0;
    }

    Fields first;
    Fields next;
    firstLine = 0;
    for (LineCursor scan(text); scan.next(line);) {
        if (!layout.content(line, scan.number())) {
            continue;
        }
        if (firstLine == 0) {
            firstLine = scan.number();
            splitFields(line, layout.separator, firstLine, first);
            continue;
        }
        try {
            splitFields(line, layout.separator, scan.number(), next);
        } catch (const TableReadError&) {
            next.views.clear(); // the reading proper names the line
        }
        break;
    }
    if (firstLine == 0) {
        return layout;
    }
    findKeyColumn(layout, first, next.size(), options, firstLine);
    if (options.logLik.given()) {
        layout.bic = kNone;
        layout.params = resolveColumn(options.params, "number of parameters", layout, firstLine);
        if (options.nobsColumn.given()) {
            layout.nobs =
                resolveColumn(options.nobsColumn, "number of observations", layout, firstLine);
        }
    }
    layout.name = options.name.given() ? resolveColumn(options.name, "names", layout, firstLine)
                                       : findNameColumn(text, layout, firstLine);
    if (layout.name == layout.bic || layout.name == layout.logLik || layout.name == layout.params ||
        layout.name == layout.nobs) {
        throw TableReadError(firstLine, "the names' column is one of the numbers' columns");
    }
    return layout;
}

// Why `field` is no number (the `what` of a model), with the likely cause.
std::string numberProblem(std::string_view field, const std::string& what, bool commaDecimals) {
    if (field.empty()) {
        return "the " + what + " field is empty" +
               (what == "BIC" ? " (name and BIC are separated by a tab, a comma or a semicolon)"
                              : "");
    }
    const std::string start = "the " + what + " " + quoted(field) + " is ";
    if (sameInAnyCase(field, "na") || field == ".") {
        return start + "a missing value";
    }
    if (field.find(',') != kNone) {
        return start + "not a number" +
               (commaDecimals ? " (a number has one decimal mark and no thousands separators)"
                              : " (a decimal comma? BICs need a decimal point where commas "
                                "separate fields)");
    }
    const DoubleRead read = readDouble(field);
    if (read.error == std::errc::result_out_of_range) {
        return start + "out of the range of a double";
    }
    if (isMissing(field) || (read.error == std::errc() && read.whole)) {
        return start + "not a finite number";
    }
    return start + "not a number";
}

// The lines where each decimal mark was first seen: one file keeps one mark.
struct DecimalMarks {
    std::int64_t pointLine = 0;
    std::int64_t commaLine = 0;

    void see(DecimalMark mark, std::int64_t line) {
        if (mark == DecimalMark::None) {
            return;
        }
        const bool point = mark == DecimalMark::Point;
        std::int64_t& first = point ? pointLine : commaLine;
        first = first == 0 ? line : first;
        if (pointLine != 0 && commaLine != 0) {
            throw TableReadError(
                line, std::string("a decimal ") + (point ? "point" : "comma") + ", where line " +
                          std::to_string(point ? commaLine : pointLine) + " has a decimal " +
                          (point ? "comma" : "point") + ": a file keeps one decimal mark");
        }
    }
};

// The model of one line's fields: the BIC read, or computed from its parts.
class ModelValues {
public:
    ModelValues(const Layout& layout, const TableReadOptions& options)
        : layout_(layout), options_(options) {}

    double bic(const Fields& fields, std::int64_t line) {
        if (layout_.logLik == kNone) {
            return value(fields[layout_.bic], "BIC", line);
        }
        const double logLik = value(fields[layout_.logLik], "log-likelihood", line);
        const double k = value(fields[layout_.params], "number of parameters", line);
        const double n = options_.nobs
                             ? *options_.nobs
                             : value(fields[layout_.nobs], "number of observations", line);
        if (k < 0.0 || n < 1.0) {
            throw TableReadError(line, k < 0.0 ? "the number of parameters is negative"
                                               : "the number of observations is below 1");
        }
        // In the order of R's BIC(), so that the doubles are R's.
        const double bic = -2.0 * logLik + std::log(n) * k;
        if (!std::isfinite(bic)) {
            throw TableReadError(line, "the BIC computed is out of the range of a double");
        }
        return bic;
    }
    std::int64_t firstCommaLine() const { return marks_.commaLine; }

private:
    double value(std::string_view field, const std::string& what, std::int64_t line) {
        DecimalMark mark = DecimalMark::None;
        const std::optional<double> number = parseFieldNumber(field, layout_.commaDecimals(), mark);
        if (!number) {
            throw TableReadError(line, numberProblem(field, what, layout_.commaDecimals()));
        }
        marks_.see(mark, line);
        return *number;
    }

    const Layout& layout_;
    const TableReadOptions& options_;
    DecimalMarks marks_;
};

std::string fieldCountProblem(std::size_t count, const Layout& layout) {
    const std::string has = "has " + std::to_string(count) + " fields where ";
    if (layout.headerLine != 0) {
        return has + "the header line has " + std::to_string(layout.fieldCount);
    }
    return has + "the first line has " + std::to_string(layout.fieldCount) +
           " (a name holding the separator needs quotes; a file of more columns, a header line "
           "or --bic-column)";
}

// Notes on names used before, in line order: the first kRepeatNotes, then one
// that counts the rest. The names are found again by open addressing over
// their hashes, in a table half full at most, so that a million names cost
// one array of 16 MB rather than a million allocations: a slot holds a
// model's number (1-based; 0 is an empty slot) and the top bits of its name's
// hash, in 32 bits each while the models are that few. The hashes of a batch
// of names come first, then their look-ups, which are cache misses all: with
// nothing else between them, many are under way at once.
template <typename Index> void noteRepeatedNames(ModelTableRead& read) {
    struct Slot {
        Index tag = 0;
        Index model = 0;
    };
    constexpr int kTagShift =
        std::numeric_limits<std::size_t>::digits - std::numeric_limits<Index>::digits;
    constexpr std::size_t kBatch = 32;
    const std::vector<TableModel>& models = read.models;
    std::size_t size = 2;
    while (size < 2 * models.size()) {
        size *= 2;
    }
    std::vector<Slot> slots(size);
    std::array<std::size_t, kBatch> hashes{};
    std::int64_t repeats = 0;
    for (std::size_t first = 0; first < models.size(); first += kBatch) {
        const std::size_t end = std::min(models.size(), first + kBatch);
        for (std::size_t i = first; i < end; ++i) {
            hashes[i - first] = std::hash<std::string_view>{}(models[i].name);
        }
        for (std::size_t i = first; i < end; ++i) {
            const auto tag = static_cast<Index>(hashes[i - first] >> kTagShift);
            std::size_t at = hashes[i - first] & (size - 1);
            while (slots[at].model != 0 &&
                   (slots[at].tag != tag || models[slots[at].model - 1].name != models[i].name)) {
                at = (at + 1) & (size - 1);
            }
            if (slots[at].model == 0) {
                slots[at] = {tag, static_cast<Index>(i + 1)};
            } else if (++repeats <= kRepeatNotes) {
                read.notes.push_back(
                    {models[i].line, "the name " + quoted(models[i].name) +
                                         " is already used on line " +
                                         std::to_string(models[slots[at].model - 1].line)});
            }
        }
    }
    if (repeats > kRepeatNotes) {
        read.notes.push_back({read.lineCount, std::to_string(repeats - kRepeatNotes) +
                                                  " more lines repeat a name used before"});
    }
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
    const DoubleRead read = readDouble(text);
    if (read.error != std::errc() || !read.whole || !std::isfinite(read.value)) {
        return std::nullopt;
    }
    return read.value;
}

std::optional<double> parseFieldNumber(std::string_view text, bool commaAllowed,
                                       DecimalMark& mark) {
    const std::size_t comma = text.find(',');
    if (comma == kNone) {
        mark = text.find('.') == kNone ? DecimalMark::None : DecimalMark::Point;
        return parseWholeNumber(text);
    }
    if (!commaAllowed || text.size() > kNumberRoom || text.find('.') != kNone ||
        text.find(',', comma + 1) != kNone) {
        return std::nullopt;
    }
    std::array<char, kNumberRoom> pointed{};
    std::copy(text.begin(), text.end(), pointed.begin());
    pointed[comma] = '.';
    mark = DecimalMark::Comma;
    return parseWholeNumber({pointed.data(), text.size()});
}

ModelTableRead readModelTable(std::string_view text, const TableReadOptions& options) {
    ModelTableRead read;
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    const Layout layout = planLayout(text, options);
    if (layout.headerLine != 0) {
        read.headerLine = layout.headerLine;
        read.notes.push_back({layout.headerLine, headerNote(layout)});
    }
    const BicSource source = options.logLik.given() ? BicSource::Computed : BicSource::Read;
    ModelValues values(layout, options);
    // Room for a model on every line, so that a million are never moved.
    read.models.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1);
    Fields fields;
    LineCursor lines(text);
    std::string_view line;
    while (lines.next(line)) {
        const std::int64_t number = lines.number();
        if (isBlank(line) || (layout.spaced() && isRule(line)) || number == layout.headerLine) {
            continue;
        }
        if (!layout.inside(number)) {
            read.notes.push_back({number, "skipped: outside the rules around the table"});
            continue;
        }
        splitFields(line, layout.separator, number, fields);
        if (fields.size() > layout.fieldCount ||
            (layout.fieldCount > 2 && fields.size() < layout.fieldCount)) {
            throw TableReadError(number, fieldCountProblem(fields.size(), layout));
        }
        const double bic = values.bic(fields, number);
        const std::string_view name = fields[layout.name];
        if (name.empty()) {
            throw TableReadError(number, "the model has no name");
        }
        if (!isValidUtf8(name)) {
            throw TableReadError(number, "the name is not UTF-8 text");
        }
        read.models.push_back({within(name, text) ? name : read.unquotedNames.emplace_back(name),
                               bic, number, source});
        if (options.expectedCount && std::ssize(read.models) > *options.expectedCount) {
            throw TableReadError(number, "model line " + std::to_string(read.models.size()) +
                                             ", but --count is " +
                                             std::to_string(*options.expectedCount));
        }
    }
    read.lineCount = lines.number();
    if (options.expectedCount && std::ssize(read.models) != *options.expectedCount) {
        throw TableReadError(read.lineCount, "the file ends after " +
                                                 std::to_string(read.models.size()) +
                                                 " model lines, but --count is " +
                                                 std::to_string(*options.expectedCount));
    }
    if (layout.separator == ';' && !read.models.empty()) {
        read.firstSemicolonLine = read.models.front().line;
    }
    read.firstDecimalCommaLine = values.firstCommaLine();
    if (read.models.size() < std::numeric_limits<std::uint32_t>::max()) {
        noteRepeatedNames<std::uint32_t>(read);
    } else {
        noteRepeatedNames<std::size_t>(read);
    }
    std::stable_sort(read.notes.begin(), read.notes.end(),
                     [](const TableNote& a, const TableNote& b) { return a.line < b.line; });
    return read;
}

} // namespace tovarin

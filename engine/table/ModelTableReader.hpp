#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tovarin {

// One model line of a data file read for a table: the whole name and the BIC.
struct TableModel {
    std::string name;
    double bic = 0.0;
    std::int64_t line = 0; // 1-based line number in the file
};

// Something worth saying about a file that was read all the same.
struct TableNote {
    std::int64_t line = 0;
    std::string text;
};

struct ModelTableRead {
    std::vector<TableModel> models;      // in file order
    std::vector<TableNote> notes;        // header skipped, repeated names
    std::int64_t headerLine = 0;         // 0 when the file has no header line
    std::int64_t firstSemicolonLine = 0; // 0 when no line is split at semicolons
    std::int64_t lineCount = 0;
};

// A line that cannot be read as a model. what() says why, without the file name.
class TableReadError : public std::runtime_error {
public:
    TableReadError(std::int64_t line, const std::string& reason)
        : std::runtime_error(reason), line_(line) {}
    std::int64_t line() const { return line_; }

private:
    std::int64_t line_;
};

// Reads every model line of `text`, where a script's data may be less tidy than
// a hand-made file, and refuses rather than guesses:
// - CR, LF and CR LF end lines; blank lines and a leading byte order mark are skipped;
// - a line with a tab is split at tabs only, else one with a semicolon at
//   semicolons only, else at commas, so a decimal comma stays inside its field;
// - fields in double quotes are unquoted ("" is a quote), unquoted fields lose
//   their surrounding spaces; field 1 is the name, field 2 the BIC, more are ignored;
// - a first line whose BIC is no number is a header, skipped with a note;
// - any other line whose BIC is not wholly a finite number, or whose name is
//   empty or not UTF-8, throws TableReadError with its line number;
// - a name used before gets a note (the first ten; then one note counts the
//   rest);
// - with `expectedCount`, a different number of model lines throws.
ModelTableRead readModelTable(std::string_view text,
                              std::optional<std::int64_t> expectedCount = std::nullopt);

// The double that `text` writes wholly (an optional "+" or "-", digits, point,
// exponent), or nullopt for anything else, including inf, nan and out-of-range values.
std::optional<double> parseWholeNumber(std::string_view text);

} // namespace tovarin

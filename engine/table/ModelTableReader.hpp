#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tovarin {

// How a BIC came to the table: read from the file, or computed from a
// log-likelihood, a number of parameters and a number of observations.
enum class BicSource : std::uint8_t { Read, Computed };

// One model line of a data file read for a table: the whole name and the BIC.
// The name is a view of the text read, or of the read's own copy where the
// text holds it quoted with doubled quotes; both must outlive the model.
struct TableModel {
    std::string_view name;
    double bic = 0.0;
    std::int64_t line = 0; // 1-based line number in the file
    BicSource source = BicSource::Read;
};

// Something worth saying about a file that was read all the same.
struct TableNote {
    std::int64_t line = 0;
    std::string text;
};

struct ModelTableRead {
    std::vector<TableModel> models;         // in file order
    std::deque<std::string> unquotedNames;  // what names the text doesn't hold as they are
    std::vector<TableNote> notes;           // in line order: header, skipped lines, repeated names
    std::int64_t headerLine = 0;            // 0 when the file has no header line
    std::int64_t firstSemicolonLine = 0;    // 0 unless the fields are split at semicolons
    std::int64_t firstDecimalCommaLine = 0; // 0 when no number has a decimal comma
    std::int64_t lineCount = 0;
};

// What separates the fields of a line. Auto takes the first line's: a tab,
// else a semicolon, else a comma, else runs of spaces.
enum class FieldSeparator { Auto, Tab, Comma, Semicolon, Space };

// A column named by its header cell (in any case) or by its 1-based
// position; not chosen when neither is given.
struct ColumnChoice {
    std::string name;
    std::int64_t position = 0;
    bool given() const { return position > 0 || !name.empty(); }
};

struct TableReadOptions {
    std::optional<std::int64_t> expectedCount;
    FieldSeparator separator = FieldSeparator::Auto;
    ColumnChoice bic;  // else the header's "BIC" cell, or field 2 of a two-field file
    ColumnChoice name; // else the first other column that holds text
    // With logLik, BIC = -2 logLik + k ln n: k from `params`, n from `nobs` or
    // from the column `nobsColumn`.
    ColumnChoice logLik;
    ColumnChoice params;
    ColumnChoice nobsColumn;
    std::optional<double> nobs;
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

// Reads every model line of `text`, where a script's or a statistics
// package's data may be less tidy than a hand-made file, and refuses rather
// than guesses:
// - CR, LF and CR LF end lines; blank lines and a leading byte order mark are skipped;
// - every line is split as the first one is (see FieldSeparator); in a table
//   aligned with spaces, `|` rules separate fields too and lines of dashes are
//   skipped, and with three such rules or more, so is what stands outside them;
// - fields in double quotes are unquoted ("" is a quote), unquoted fields lose
//   their surrounding spaces, empty fields at the end of a line don't count;
// - the first line is a header when its BIC field (its cell named BIC, or the
//   one a choice names) is a word; a header one cell short is that of R's
//   printed tables, whose row names stand under no cell;
// - lines of more than two fields need a header or a chosen BIC column, and
//   every line has as many fields as the first;
// - a BIC is wholly a finite number; where the comma separates no fields it
//   may be the decimal mark, but one file keeps one mark;
// - anything else, or a name that is empty or not UTF-8, throws TableReadError
//   with its line number;
// - a name used before gets a note (the first ten; then one note counts the rest);
// - with `expectedCount`, a different number of model lines throws.
ModelTableRead readModelTable(std::string_view text, const TableReadOptions& options = {});

// The double that `text` writes wholly (an optional "+" or "-", digits, point,
// exponent), or nullopt for anything else, including inf, nan and out-of-range values.
std::optional<double> parseWholeNumber(std::string_view text);

// The mark a number field puts before its decimals.
enum class DecimalMark { None, Point, Comma };

// parseWholeNumber's double, or with `commaAllowed` that of a number whose
// decimal mark is a comma ("2451,37"); `mark` tells which mark the text had.
std::optional<double> parseFieldNumber(std::string_view text, bool commaAllowed, DecimalMark& mark);

} // namespace tovarin

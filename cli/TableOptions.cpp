#include "cli/TableOptions.hpp"

#include "system/Files.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <set>
#include <utility>

namespace tovarin {

namespace {

constexpr std::array<std::pair<const char*, TableFormat>, 7> kFormats{{
    {"report", TableFormat::Report},
    {"tsv", TableFormat::Tsv},
    {"csv", TableFormat::Csv},
    {"json", TableFormat::Json},
    {"markdown", TableFormat::Markdown},
    {"latex", TableFormat::Latex},
    {"svg", TableFormat::Svg},
}};
constexpr std::array<std::pair<const char*, FieldSeparator>, 4> kSeparators{{
    {"tab", FieldSeparator::Tab},
    {"comma", FieldSeparator::Comma},
    {"semicolon", FieldSeparator::Semicolon},
    {"space", FieldSeparator::Space},
}};
constexpr std::array<const char*, 14> kOptions{
    "--format",     "--count",       "--sort",          "--confidence",    "--sep",
    "--bic-column", "--name-column", "--loglik-column", "--params-column", "--nobs",
    "--columns",    "--scale",       "--caption",       "--label"};
// The options that shape a table; the report has its own fixed form.
constexpr std::array<const char*, 6> kTableOnly{"--sort",  "--confidence", "--columns",
                                                "--scale", "--caption",    "--label"};
constexpr std::int64_t kMaxCount = 1'000'000'000;
// What a \label may hold without upsetting LaTeX or a cross-reference.
constexpr std::string_view kLabelCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789:-_./+";

std::string optionName(const std::string& arg) {
    return arg.substr(0, arg.find('='));
}

std::optional<std::int64_t> wholeNumber(const std::string& value, std::int64_t most) {
    std::int64_t number = 0;
    const auto [end, ec] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (ec != std::errc() || end != value.data() + value.size() || number < 1 || number > most) {
        return std::nullopt;
    }
    return number;
}

template <typename T, std::size_t N>
std::optional<T> named(const std::array<std::pair<const char*, T>, N>& words,
                       const std::string& value) {
    for (const auto& [word, meaning] : words) {
        if (value == word) {
            return meaning;
        }
    }
    return std::nullopt;
}

// A column given by its position (digits) or by its header cell.
std::optional<ColumnChoice> columnChoice(const std::string& value) {
    if (value.empty()) {
        return std::nullopt;
    }
    if (value.find_first_not_of("0123456789") != std::string::npos) {
        return ColumnChoice{value, 0};
    }
    const auto position = wholeNumber(value, kMaxCount);
    return position ? std::optional<ColumnChoice>(ColumnChoice{{}, *position}) : std::nullopt;
}

std::optional<std::string> columnList(TableOptions& options, const std::string& value) {
    std::string names;
    for (const ColumnSpec& spec : kTableColumns) {
        names += (names.empty() ? "" : ",") + std::string(spec.field);
    }
    for (std::size_t start = 0; start <= value.size();) {
        const std::size_t end = std::min(value.find(',', start), value.size());
        const std::string field = value.substr(start, end - start);
        const std::optional<Column> column = columnNamed(field);
        if (!column) {
            return "--columns takes names from " + names + ", not \"" + field + "\"";
        }
        if (std::find(options.columns.begin(), options.columns.end(), *column) !=
            options.columns.end()) {
            return "--columns names \"" + field + "\" twice";
        }
        options.columns.push_back(*column);
        start = end + 1;
    }
    return std::nullopt;
}

// Sets one option from its value; returns an error text or nothing.
std::optional<std::string> apply(TableOptions& options, const std::string& name,
                                 const std::string& value) {
    const std::string quotedValue = "\"" + value + "\"";
    if (name == "--format") {
        const auto format = named(kFormats, value);
        options.format = format.value_or(options.format);
        return format ? std::nullopt
                      : std::optional<std::string>(
                            "unknown format " + quotedValue +
                            " (report, tsv, csv, json, markdown, latex or svg)");
    }
    if (name == "--count") {
        options.read.expectedCount = wholeNumber(value, kMaxCount);
        return options.read.expectedCount
                   ? std::nullopt
                   : std::optional<std::string>("--count needs a whole number of models, not " +
                                                quotedValue);
    }
    if (name == "--sort") {
        options.sortByFile = value == "file";
        return value == "bic" || value == "file"
                   ? std::nullopt
                   : std::optional<std::string>("--sort is bic or file, not " + quotedValue);
    }
    if (name == "--scale") {
        options.scale = value == "jeffreys" ? EvidenceScale::Jeffreys : EvidenceScale::Raftery;
        return value == "raftery" || value == "jeffreys"
                   ? std::nullopt
                   : std::optional<std::string>("--scale is raftery or jeffreys, not " +
                                                quotedValue);
    }
    if (name == "--sep") {
        const auto separator = named(kSeparators, value);
        options.read.separator = separator.value_or(FieldSeparator::Auto);
        return separator ? std::nullopt
                         : std::optional<std::string>("--sep is tab, comma, semicolon or space, "
                                                      "not " +
                                                      quotedValue);
    }
    if (name.ends_with("-column")) {
        const auto choice = columnChoice(value);
        ColumnChoice& target = name == "--bic-column"      ? options.read.bic
                               : name == "--name-column"   ? options.read.name
                               : name == "--loglik-column" ? options.read.logLik
                                                           : options.read.params;
        target = choice.value_or(ColumnChoice{});
        return choice ? std::nullopt
                      : std::optional<std::string>(name +
                                                   " needs a column's name or its number "
                                                   "from 1, not " +
                                                   quotedValue);
    }
    if (name == "--nobs") {
        if (const auto count = parseWholeNumber(value)) {
            options.read.nobs = count;
            return *count >= 1.0 ? std::nullopt
                                 : std::optional<std::string>(
                                       "--nobs needs at least 1 observation, not " + quotedValue);
        }
        options.read.nobsColumn = ColumnChoice{value, 0};
        return value.empty() ? std::optional<std::string>("--nobs needs a number or a column")
                             : std::nullopt;
    }
    if (name == "--columns") {
        return columnList(options, value);
    }
    if (name == "--caption") {
        options.caption = value;
        return std::nullopt;
    }
    if (name == "--label") {
        options.label = value;
        return !value.empty() && value.find_first_not_of(kLabelCharacters) == std::string::npos
                   ? std::nullopt
                   : std::optional<std::string>("--label takes letters, digits and :-_./+, not " +
                                                quotedValue);
    }
    const std::optional<double> level = parseWholeNumber(value);
    if (!level || *level <= 0.0 || *level > 1.0) {
        return "--confidence needs a level above 0 and at most 1, not " + quotedValue;
    }
    options.confidence = *level;
    return std::nullopt;
}

// What the options given say together that none says alone.
std::optional<std::string> checkTogether(const TableOptions& options,
                                         const std::set<std::string>& given) {
    const auto has = [&](const char* option) { return given.count(option) > 0; };
    if (!has("--format")) {
        return "the options other than --help and --version need --format";
    }
    if (options.format == TableFormat::Report) {
        for (const char* option : kTableOnly) {
            if (has(option)) {
                return std::string(option) + " applies to the table formats, not to the report";
            }
        }
        if (options.read.expectedCount &&
            (*options.read.expectedCount < 2 || *options.read.expectedCount > 99)) {
            return "the report compares 2 to 99 models";
        }
    }
    if (has("--label") && options.format != TableFormat::Latex) {
        return "--label applies to --format latex";
    }
    if (has("--caption") && options.format != TableFormat::Latex &&
        options.format != TableFormat::Markdown) {
        return "--caption applies to --format markdown and latex";
    }
    const bool computed = has("--loglik-column");
    if (computed && (has("--bic-column") || !has("--params-column") || !has("--nobs"))) {
        return "--loglik-column needs --params-column and --nobs, and no --bic-column";
    }
    if (!computed && (has("--params-column") || has("--nobs"))) {
        return "--params-column and --nobs need --loglik-column";
    }
    return std::nullopt;
}

// The label of a LaTeX table unless one is given: "tab:" and the file's stem.
std::string defaultLabel(const std::string& operand) {
    std::string stem = operand == "-" ? "" : sys::utf8FromPath(sys::pathFromUtf8(operand).stem());
    for (char& c : stem) {
        c = kLabelCharacters.find(c) == std::string_view::npos ? '-' : c;
    }
    return "tab:" + (stem.empty() ? std::string("bic") : stem);
}

} // namespace

bool isTableOption(const std::string& arg) {
    const std::string name = optionName(arg);
    return std::any_of(kOptions.begin(), kOptions.end(),
                       [&](const char* option) { return name == option; });
}

std::variant<TableOptions, std::string> parseTableOptions(const std::vector<std::string>& args) {
    TableOptions options;
    std::set<std::string> given;
    bool optionsEnded = false;
    std::vector<std::string> operands;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (optionsEnded || arg == "-" || !arg.starts_with("--")) {
            operands.push_back(arg);
            continue;
        }
        if (arg == "--") {
            optionsEnded = true;
            continue;
        }
        if (!isTableOption(arg)) {
            return "unknown option " + arg;
        }
        const std::string name = optionName(arg);
        std::string value;
        if (arg.size() > name.size()) {
            value = arg.substr(name.size() + 1);
        } else if (i + 1 < args.size()) {
            value = args[++i];
        } else {
            return name + " needs a value";
        }
        if (auto error = apply(options, name, value)) {
            return *error;
        }
        given.insert(name);
    }
    if (auto error = checkTogether(options, given)) {
        return *error;
    }
    if (operands.size() != 1) {
        return operands.empty() ? "missing FILE" : "too many arguments";
    }
    options.file = operands.front();
    if (options.format == TableFormat::Latex && !options.label) {
        options.label = defaultLabel(options.file);
    }
    return options;
}

} // namespace tovarin

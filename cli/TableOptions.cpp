#include "cli/TableOptions.hpp"

#include "engine/table/ModelTableReader.hpp"

#include <array>
#include <charconv>
#include <utility>

namespace tovarin {

namespace {

constexpr std::array<std::pair<const char*, TableFormat>, 6> kFormats{{
    {"report", TableFormat::Report},
    {"tsv", TableFormat::Tsv},
    {"csv", TableFormat::Csv},
    {"json", TableFormat::Json},
    {"markdown", TableFormat::Markdown},
    {"latex", TableFormat::Latex},
}};
constexpr std::array<const char*, 4> kOptions{"--format", "--count", "--sort", "--confidence"};
constexpr std::int64_t kMaxCount = 1'000'000'000;

std::string optionName(const std::string& arg) {
    return arg.substr(0, arg.find('='));
}

// Sets one option from its value; returns an error text or nothing.
std::optional<std::string> apply(TableOptions& options, const std::string& name,
                                 const std::string& value, bool& formatGiven) {
    if (name == "--format") {
        for (const auto& [word, format] : kFormats) {
            if (value == word) {
                options.format = format;
                formatGiven = true;
                return std::nullopt;
            }
        }
        return "unknown format \"" + value + "\" (report, tsv, csv, json, markdown or latex)";
    }
    if (name == "--count") {
        std::int64_t count = 0;
        const auto [end, ec] = std::from_chars(value.data(), value.data() + value.size(), count);
        if (ec != std::errc() || end != value.data() + value.size() || count < 1 ||
            count > kMaxCount) {
            return "--count needs a whole number of models, not \"" + value + "\"";
        }
        options.count = count;
        return std::nullopt;
    }
    if (name == "--sort") {
        if (value != "bic" && value != "file") {
            return "--sort is bic or file, not \"" + value + "\"";
        }
        options.sortByFile = value == "file";
        options.sortGiven = true;
        return std::nullopt;
    }
    const std::optional<double> level = parseWholeNumber(value);
    if (!level || *level <= 0.0 || *level > 1.0) {
        return "--confidence needs a level above 0 and at most 1, not \"" + value + "\"";
    }
    options.confidence = *level;
    options.confidenceGiven = true;
    return std::nullopt;
}

} // namespace

bool isTableOption(const std::string& arg) {
    const std::string name = optionName(arg);
    for (const char* option : kOptions) {
        if (name == option) {
            return true;
        }
    }
    return false;
}

std::variant<TableOptions, std::string> parseTableOptions(const std::vector<std::string>& args) {
    TableOptions options;
    bool formatGiven = false;
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
        if (auto error = apply(options, name, value, formatGiven)) {
            return *error;
        }
    }
    if (!formatGiven) {
        return "--count, --sort and --confidence need --format";
    }
    if (options.format == TableFormat::Report) {
        if (options.sortGiven || options.confidenceGiven) {
            return "--sort and --confidence apply to the table formats, not to the report";
        }
        if (options.count && (*options.count < 2 || *options.count > 99)) {
            return "the report compares 2 to 99 models";
        }
    }
    if (operands.size() != 1) {
        return operands.empty() ? "missing FILE" : "too many arguments";
    }
    options.file = operands.front();
    return options;
}

} // namespace tovarin

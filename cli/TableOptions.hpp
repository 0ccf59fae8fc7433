#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tovarin {

enum class TableFormat { Report, Tsv, Csv, Json, Markdown, Latex };

// `--format FORMAT [--count N] [--sort bic|file] [--confidence P] FILE`.
struct TableOptions {
    TableFormat format = TableFormat::Report;
    std::optional<std::int64_t> count;
    bool sortByFile = false;
    bool sortGiven = false;
    double confidence = 0.95;
    bool confidenceGiven = false;
    std::string file;
};

// Whether `arg` is one of the options that only the --format form knows.
bool isTableOption(const std::string& arg);

// The options of the --format form (each as "--name value" or "--name=value";
// "--" ends the options), or the text of a usage error.
std::variant<TableOptions, std::string> parseTableOptions(const std::vector<std::string>& args);

} // namespace tovarin

#pragma once

#include "engine/table/ModelTableReader.hpp"
#include "engine/table/TableColumns.hpp"
#include "engine/table/TableStatistics.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tovarin {

enum class TableFormat { Report, Tsv, Csv, Json, Markdown, Latex, Svg };

// `--format FORMAT [options] FILE`: how to read FILE (--count, --sep and the
// column choices, for every format) and what table to write of it.
struct TableOptions {
    TableFormat format = TableFormat::Report;
    TableReadOptions read;
    bool sortByFile = false;
    double confidence = 0.95;
    std::vector<Column> columns; // empty: the format's own
    EvidenceScale scale = EvidenceScale::Raftery;
    std::optional<std::string> caption;
    std::optional<std::string> label;
    std::string file;
};

// Whether `arg` is one of the options that only the --format form knows.
bool isTableOption(const std::string& arg);

// The options of the --format form (each as "--name value" or "--name=value";
// "--" ends the options), or the text of a usage error.
std::variant<TableOptions, std::string> parseTableOptions(const std::vector<std::string>& args);

} // namespace tovarin

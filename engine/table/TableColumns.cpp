#include "engine/table/TableColumns.hpp"

#include <algorithm>

namespace tovarin {

const ColumnSpec& columnSpec(Column column) {
    return *std::find_if(kTableColumns.begin(), kTableColumns.end(),
                         [&](const ColumnSpec& spec) { return spec.column == column; });
}

std::optional<Column> columnNamed(std::string_view field) {
    const auto spec = std::find_if(kTableColumns.begin(), kTableColumns.end(),
                                   [&](const ColumnSpec& each) { return each.field == field; });
    return spec == kTableColumns.end() ? std::nullopt : std::optional<Column>(spec->column);
}

std::vector<Column> defaultColumns(bool paper) {
    std::vector<Column> columns;
    for (const ColumnSpec& spec : kTableColumns) {
        if (spec.paper || !paper) {
            columns.push_back(spec.column);
        }
    }
    return columns;
}

const char* bicSourceLabel(BicSource source) {
    return source == BicSource::Computed ? "computed" : "read";
}

} // namespace tovarin

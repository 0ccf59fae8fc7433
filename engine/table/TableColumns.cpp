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

TableCell cellOf(const TableRow& row, Column column) {
    switch (column) {
    case Column::Rank:
        return row.rank;
    case Column::Name:
        return row.name;
    case Column::Bic:
        return row.bic;
    case Column::DeltaBic:
        return row.deltaBic;
    case Column::Weight:
        return row.weight;
    case Column::CumulativeWeight:
        return row.cumulativeWeight;
    case Column::BayesFactor:
        return row.bayesFactor();
    case Column::LnBayesFactor:
        return row.lnBayesFactor();
    case Column::Evidence:
        return std::string_view(evidenceLabel(row.evidence));
    case Column::InConfidenceSet:
        return row.inConfidenceSet;
    case Column::BicSource:
        return std::string_view(bicSourceLabel(row.bicSource));
    }
    return false;
}

} // namespace tovarin

#include "engine/table/TableColumns.hpp"

namespace tovarin {

TableCell cellOf(const TableRow& row, Column column) {
    switch (column) {
    case Column::Rank:
        return row.rank;
    case Column::Name:
        return std::string_view(row.name);
    case Column::Bic:
        return row.bic;
    case Column::DeltaBic:
        return row.deltaBic;
    case Column::Weight:
        return row.weight;
    case Column::CumulativeWeight:
        return row.cumulativeWeight;
    case Column::BayesFactor:
        return row.bayesFactor;
    case Column::LnBayesFactor:
        return row.lnBayesFactor;
    case Column::Evidence:
        return std::string_view(evidenceLabel(row.evidence));
    case Column::InConfidenceSet:
        return row.inConfidenceSet;
    }
    return false;
}

} // namespace tovarin

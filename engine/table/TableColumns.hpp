#pragma once

#include "engine/table/TableStatistics.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace tovarin {

// The columns a table can show, in their order.
enum class Column {
    Rank,
    Name,
    Bic,
    DeltaBic,
    Weight,
    CumulativeWeight,
    BayesFactor,
    LnBayesFactor,
    Evidence,
    InConfidenceSet,
    BicSource,
};

// What the formats call a column. In the paper headings "{P}" stands for the
// confidence level as a percentage.
struct ColumnSpec {
    Column column;
    std::string_view field;    // tsv and csv header, json key, name for --columns
    std::string_view markdown; // Markdown heading
    std::string_view latex;    // LaTeX heading
    bool numeric;              // right-aligned in a paper table
    bool paper;                // shown by a paper table unless the columns are chosen
};

// The one list of columns, which every table writer walks; tsv, csv and json
// show them all unless the columns are chosen. A paper table leaves out what
// the others make plain (rank is the row's place, ln BF the BF's, and how the
// BICs were obtained is in the caption), so that it fits one column of text.
inline constexpr std::array<ColumnSpec, 11> kTableColumns{{
    {Column::Rank, "rank", "Rank", "Rank", true, false},
    {Column::Name, "name", "Model", "Model", false, true},
    {Column::Bic, "bic", "BIC", "BIC", true, true},
    {Column::DeltaBic, "delta_bic", "$\\Delta$BIC", "$\\Delta$BIC", true, true},
    {Column::Weight, "weight", "Weight", "Weight", true, true},
    {Column::CumulativeWeight, "cumulative_weight", "Cum. weight", "Cum.\\ weight", true, false},
    {Column::BayesFactor, "bayes_factor", "BF", "BF", true, true},
    {Column::LnBayesFactor, "ln_bayes_factor", "ln BF", "$\\ln$ BF", true, false},
    {Column::Evidence, "evidence", "Evidence", "Evidence", false, true},
    {Column::InConfidenceSet, "in_confidence_set", "In {P} % set", "In {P}\\,\\% set", false, true},
    {Column::BicSource, "bic_source", "BIC source", "BIC source", false, false},
}};

const ColumnSpec& columnSpec(Column column);
// The column whose field name is `field`, if any.
std::optional<Column> columnNamed(std::string_view field);
// The columns a format shows unless they are chosen.
std::vector<Column> defaultColumns(bool paper);

// "read" or "computed".
const char* bicSourceLabel(BicSource source);

// A row's value in a column, as the data it is: a whole number, a text, a
// double or a truth value. Each writer spells the four kinds its own way.
// Inline: a million rows ask it eleven times each.
using TableCell = std::variant<std::int64_t, std::string_view, double, bool>;
inline TableCell cellOf(const TableRow& row, Column column) {
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

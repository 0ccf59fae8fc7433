#pragma once

#include "engine/table/TableStatistics.hpp"

#include <array>
#include <cstdint>
#include <string_view>
#include <variant>

namespace tovarin {

// The columns of every table format, in their order.
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
};

// What the formats call a column. In the paper headings "{P}" stands for the
// confidence level as a percentage.
struct ColumnSpec {
    Column column;
    std::string_view field;    // tsv and csv header, json key
    std::string_view markdown; // Markdown heading
    std::string_view latex;    // LaTeX heading
    bool numeric;              // right-aligned in a paper table
};

// The one list of columns, which every table writer walks.
inline constexpr std::array<ColumnSpec, 10> kTableColumns{{
    {Column::Rank, "rank", "Rank", "Rank", true},
    {Column::Name, "name", "Model", "Model", false},
    {Column::Bic, "bic", "BIC", "BIC", true},
    {Column::DeltaBic, "delta_bic", "\u0394BIC", "$\\Delta$BIC", true},
    {Column::Weight, "weight", "Weight", "Weight", true},
    {Column::CumulativeWeight, "cumulative_weight", "Cum. weight", "Cum.\\ weight", true},
    {Column::BayesFactor, "bayes_factor", "BF", "BF", true},
    {Column::LnBayesFactor, "ln_bayes_factor", "ln BF", "$\\ln$ BF", true},
    {Column::Evidence, "evidence", "Evidence", "Evidence", false},
    {Column::InConfidenceSet, "in_confidence_set", "In {P} % set", "In {P}\\,\\% set", false},
}};

// A row's value in a column, as the data it is: a whole number, a text, a
// double or a truth value. Each writer spells the four kinds its own way.
using TableCell = std::variant<std::int64_t, std::string_view, double, bool>;
TableCell cellOf(const TableRow& row, Column column);

} // namespace tovarin

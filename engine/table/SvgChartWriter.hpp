#pragma once

#include "engine/table/TableDocument.hpp"

#include <cstddef>
#include <string>

namespace tovarin {

// How many models the chart draws a bar for; the rest share one line.
inline constexpr std::size_t kChartBars = 30;

// A figure of the weights for one column of a paper (85 mm wide), as SVG 1.1:
// one horizontal bar per model in the table's order, its length the weight
// on a 0-1 axis, filled when the model is in the confidence set and outlined
// when not, so that it reads in black and white; beside each bar the ΔBIC and
// the evidence label. Names longer than fit are elided in the middle, the
// whole name in the bar's <title>. Only the kChartBars best models get a bar;
// the others are counted in one closing line with their summed weight. Text
// is text in a generic sans-serif; there is no script.
void writeSvgChart(std::string& out, const TableDocument& table);

} // namespace tovarin

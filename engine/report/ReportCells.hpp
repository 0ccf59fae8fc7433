#pragma once

#include "text/Format.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovarin {

// The padding the cells are cut from: 99 spaces.
inline constexpr std::size_t kPadLength = 99;
// A rule line of the report without its line end: 63 en dashes.
const std::string& ruleLine();

// Appends `text` padded or cut to exactly `width` characters.
void appendFixedCell(std::string& out, std::string_view text, std::int64_t width);
// Appends `text` padded or cut to `width` minus its own length in characters,
// so a longer text leaves fewer spaces behind it; nothing when that count is
// zero or below.
void appendShrinkingCell(std::string& out, std::string_view text, std::int64_t width);

// Each text below is a view into `buffer` or of a constant.

// The posterior probability as printed: "<.0001" when the printed number is
// below 0.0001. A NaN prints as "nan" rather than pass for a tiny probability.
std::string_view probabilityText(double probability, FormatBuffer& buffer);
// The Bayes factor as printed: ">99999" when the printed number is above
// 99999, and for +inf. A NaN prints as "nan" rather than pass for a number.
std::string_view bayesFactorText(double bayesFactor, FormatBuffer& buffer);

} // namespace tovarin

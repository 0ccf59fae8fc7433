#pragma once

#include <cstddef>
#include <string>

namespace tovarin {

// Room enough for the shortest text of any double ("-2.2250738585072014e-308").
inline constexpr std::size_t kShortestChars = 32;

// Writes the shortest text that reads back as exactly `value` ("0.1",
// "1e+300") at `first`, which has room for kShortestChars characters, and
// returns its end. Infinities and nan come out as "inf", "-inf" and "nan".
char* writeShortest(char* first, double value);
// The same as a string.
std::string shortestText(double value);

// `value` rounded to `decimals` places, never "-0.00".
std::string fixedText(double value, int decimals);

// `value` with `digits` digits behind the point in scientific form: "1.23e+05".
std::string scientificText(double value, int digits);

} // namespace tovarin

#pragma once

#include <string>

namespace tovarin {

// The shortest text that reads back as exactly `value` ("0.1", "1e+300").
// Infinities and nan come out as "inf", "-inf" and "nan".
std::string shortestText(double value);
// The same appended to `out`, with no text of its own on the way.
void appendShortest(std::string& out, double value);

// `value` rounded to `decimals` places, never "-0.00".
std::string fixedText(double value, int decimals);

// `value` with `digits` digits behind the point in scientific form: "1.23e+05".
std::string scientificText(double value, int digits);

} // namespace tovarin

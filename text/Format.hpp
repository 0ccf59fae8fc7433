#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tovarin {

// One of the report's number masks and what Format needs of it. Each has an
// optional leading "+" (sign position), "#" places and one "0" before the
// point, then "0" decimals (the least kept) followed by "#" ones (up to the most).
struct NumberMask {
    std::string_view text;
    bool signPosition;
    int leastDecimals;
    int mostDecimals;
};

inline constexpr NumberMask kBicMask{"+########0.0###", true, 1, 4};
inline constexpr NumberMask kDifferenceMask{"#######0.00##", false, 2, 4};
inline constexpr NumberMask kProbabilityMask{"0.00##", false, 2, 4};
inline constexpr NumberMask kBayesFactorMask{"#####0.0#", false, 1, 2};
inline constexpr int kMaxMaskDecimals = 4;

// `value` as text through `mask`. The value is rounded to nearest at the mask's most
// decimals (carrying into the integer part), written without padding or group
// separators, with trailing zeros dropped down to the mask's least decimals.
// The decimal mark is always ".", whatever the locale, so Val reads every
// finite result back as exactly the number it shows.
//
// Signs: a negative value that does not round to zero gets "-" with any mask;
// the sign position puts "+" in front of everything else, so zero, -0.0 and a
// negative value that rounds to zero all print as "+0.0…".
//
// Values that are not finite print as "inf" and "-inf" ("+inf" with the sign
// position) and "nan". Val reads none of these as a number, so callers that
// read the text back must look at the value itself for them.
std::string Format(double value, const NumberMask& mask);

// Room for any text Format makes: leading zeros, the mask's "0" places and the
// sign in front, DBL_MAX in fixed notation with the most decimals behind.
using FormatBuffer = std::array<char, 64 + 320 + kMaxMaskDecimals>;

// The same text written into `buffer`, for callers that format many numbers
// without a string each. The view is valid while the buffer is.
std::string_view formatTo(FormatBuffer& buffer, double value, const NumberMask& mask);

} // namespace tovarin

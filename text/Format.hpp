#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tovarin {

// The report's four number masks.
inline constexpr std::string_view kBicMask = "+########0.0###";
inline constexpr std::string_view kDifferenceMask = "#######0.00##";
inline constexpr std::string_view kProbabilityMask = "0.00##";
inline constexpr std::string_view kBayesFactorMask = "#####0.0#";

// A mask taken apart once: sign position, the "0" places before the point,
// and the least and most decimals behind it.
class NumberMask {
public:
    // Throws std::invalid_argument for a mask outside the form described at Format.
    constexpr explicit NumberMask(std::string_view mask) {
        std::size_t pos = 0;
        if (pos < mask.size() && mask[pos] == '+') {
            signPosition = true;
            ++pos;
        }
        for (; pos < mask.size() && (mask[pos] == '#' || mask[pos] == '0'); ++pos) {
            minIntegerDigits += mask[pos] == '0' ? 1 : 0;
        }
        if (pos < mask.size() && mask[pos] == '.') {
            hasPoint = true;
            ++pos;
            for (; pos < mask.size() && mask[pos] == '0'; ++pos) {
                ++leastDecimals;
            }
            for (; pos < mask.size() && mask[pos] == '#'; ++pos) {
                ++mostDecimals;
            }
            mostDecimals += leastDecimals;
        }
        if (pos != mask.size() || mostDecimals > kMaxDecimals ||
            minIntegerDigits > kMaxIntegerZeros) {
            throw std::invalid_argument("unsupported number mask");
        }
    }

    // Limits that keep every result within a fixed buffer.
    static constexpr int kMaxDecimals = 40;
    static constexpr int kMaxIntegerZeros = 40;

    bool signPosition = false;
    bool hasPoint = false;
    int minIntegerDigits = 0;
    int leastDecimals = 0;
    int mostDecimals = 0;
};

inline constexpr NumberMask kBicNumberMask{kBicMask};
inline constexpr NumberMask kDifferenceNumberMask{kDifferenceMask};
inline constexpr NumberMask kProbabilityNumberMask{kProbabilityMask};
inline constexpr NumberMask kBayesFactorNumberMask{kBayesFactorMask};

// `value` as text through `mask`: an optional leading "+" (sign position),
// integer places of "#" and "0", then optionally "." and decimals of "0"s
// followed by "#"s. The value is rounded to nearest at the mask's most
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
//
// Throws std::invalid_argument for a mask outside the form above.
std::string Format(double value, std::string_view mask);
std::string Format(double value, const NumberMask& mask);

// Room for any text Format makes: leading zeros, the mask's "0" places and the
// sign in front, DBL_MAX in fixed notation with the most decimals behind.
using FormatBuffer = std::array<char, 64 + 320 + NumberMask::kMaxDecimals>;

// The same text written into `buffer`, for callers that format many numbers
// without a string each. The view is valid while the buffer is.
std::string_view formatTo(FormatBuffer& buffer, double value, const NumberMask& mask);

} // namespace tovarin

#include "text/Format.hpp"

#include "text/DoubleChars.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace tovarin {

namespace {

std::string_view formatNonFinite(double value, const NumberMask& shape) {
    if (std::isnan(value)) {
        return "nan";
    }
    if (value < 0) {
        return "-inf";
    }
    return shape.signPosition ? "+inf" : "inf";
}

constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
constexpr std::uint64_t kWholePowersOfTen[] = {1,      10,      100,      1000,     10000,
                                               100000, 1000000, 10000000, 100000000};
constexpr int kFastMostDecimals = 8;

// `magnitude` rounded to nearest at `decimals` places, as an integer count of
// units in that place, when that can be done exactly without to_chars: the
// product with the power of ten is rounded once, and fma gives its exact
// residual, which settles the halfway cases the way to_chars does (ties to
// even on the exact stored value). Gives false outside the range where this holds.
bool roundScaled(double magnitude, int decimals, std::uint64_t& units) {
    if (decimals > kFastMostDecimals || !(magnitude == 0.0 || magnitude > 1e-200)) {
        return false;
    }
    const double scale = kPowersOfTen[decimals];
    const double product = magnitude * scale;
    if (!(product < 0x1p52)) {
        return false;
    }
    // Below 2^52, adding and taking away 2^52 rounds to the nearest integer
    // (ties to even) in the default rounding mode, without a library call.
    const double nearest = (product + 0x1p52) - 0x1p52;
    const double offset = product - nearest; // exact: both lie within 0.5 of each other
    auto count = static_cast<std::uint64_t>(nearest);
    // Only a product that came out halfway needs the residual.
    if (offset == 0.5 || offset == -0.5) {
        const double residual = std::fma(magnitude, scale, -product);
        if (offset == 0.5 && residual > 0) {
            ++count;
        } else if (offset == -0.5 && residual < 0) {
            --count;
        }
    }
    units = count;
    return true;
}

// Room in front of the digits for leading zeros, the mask's "0" places and the sign.
constexpr std::size_t kLead = 64;

// The rounded magnitude in fixed notation with exactly `decimals` places,
// written into `buffer` from kLead on.
std::string_view roundedDigits(double magnitude, int decimals, FormatBuffer& buffer) {
    char* const start = buffer.data() + kLead;
    char* const bufferEnd = buffer.data() + buffer.size();
    std::uint64_t units = 0;
    if (roundScaled(magnitude, decimals, units)) {
        const std::uint64_t scale = kWholePowersOfTen[decimals];
        char* end = std::to_chars(start, bufferEnd, units / scale).ptr;
        if (decimals > 0) {
            // Written behind a leading 1, the fraction keeps its leading
            // zeros; that 1 then becomes the point.
            char* const point = end;
            end = std::to_chars(point, bufferEnd, units % scale + scale).ptr;
            *point = '.';
        }
        return {start, static_cast<std::size_t>(end - start)};
    }
    const auto result = doubleToFixed(start, bufferEnd, magnitude, decimals);
    return {start, static_cast<std::size_t>(result.ptr - start)};
}

} // namespace

std::string Format(double value, const NumberMask& shape) {
    FormatBuffer buffer; // NOLINT: filled as far as it is used
    return std::string(formatTo(buffer, value, shape));
}

std::string_view formatTo(FormatBuffer& buffer, double value, const NumberMask& shape) {
    if (!std::isfinite(value)) {
        return formatNonFinite(value, shape);
    }

    const std::string_view rounded = roundedDigits(std::fabs(value), shape.mostDecimals, buffer);
    char* first = buffer.data() + (rounded.data() - buffer.data());
    char* last = first + rounded.size();
    const bool roundsToZero = std::all_of(first, last, [](char c) { return c == '0' || c == '.'; });

    // Fixed notation puts exactly mostDecimals digits behind the point and at
    // least one before it, as the mask's one "0" place asks.
    char* const leastEnd = last - shape.mostDecimals + shape.leastDecimals;
    while (last > leastEnd && last[-1] == '0') {
        --last;
    }
    if (std::signbit(value) && !roundsToZero) {
        *--first = '-';
    } else if (shape.signPosition) {
        *--first = '+';
    }
    return {first, static_cast<std::size_t>(last - first)};
}

} // namespace tovarin

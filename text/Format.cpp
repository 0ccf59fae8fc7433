#include "text/Format.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace tovarin {

namespace {

struct MaskShape {
    bool signPosition = false;
    bool hasPoint = false;
    int minIntegerDigits = 0;
    int leastDecimals = 0;
    int mostDecimals = 0;
};

MaskShape parseMask(std::string_view mask) {
    MaskShape shape;
    std::size_t pos = 0;
    if (pos < mask.size() && mask[pos] == '+') {
        shape.signPosition = true;
        ++pos;
    }
    for (; pos < mask.size() && (mask[pos] == '#' || mask[pos] == '0'); ++pos) {
        if (mask[pos] == '0') {
            ++shape.minIntegerDigits;
        }
    }
    if (pos < mask.size() && mask[pos] == '.') {
        shape.hasPoint = true;
        ++pos;
        for (; pos < mask.size() && mask[pos] == '0'; ++pos) {
            ++shape.leastDecimals;
        }
        for (; pos < mask.size() && mask[pos] == '#'; ++pos) {
            ++shape.mostDecimals;
        }
        shape.mostDecimals += shape.leastDecimals;
    }
    if (pos != mask.size()) {
        throw std::invalid_argument("unsupported number mask: " + std::string(mask));
    }
    return shape;
}

std::string formatNonFinite(double value, const MaskShape& shape) {
    if (std::isnan(value)) {
        return "nan";
    }
    if (value < 0) {
        return "-inf";
    }
    return shape.signPosition ? "+inf" : "inf";
}

} // namespace

std::string Format(double value, std::string_view mask) {
    const MaskShape shape = parseMask(mask);
    if (!std::isfinite(value)) {
        return formatNonFinite(value, shape);
    }

    // Wide enough for DBL_MAX in fixed notation with the decimals of any mask
    // that fits in the buffer; larger decimal counts are refused below.
    std::array<char, 400> digits{};
    if (shape.mostDecimals > 40) {
        throw std::invalid_argument("number mask has too many decimals: " + std::string(mask));
    }
    const auto [end, ec] =
        std::to_chars(digits.data(), digits.data() + digits.size(), std::fabs(value),
                      std::chars_format::fixed, shape.mostDecimals);
    (void)ec; // The buffer holds every double at these precisions.
    const std::string_view rounded(digits.data(), static_cast<std::size_t>(end - digits.data()));

    const std::size_t point = rounded.find('.');
    std::string_view integer = rounded.substr(0, point);
    std::string_view decimals =
        point == std::string_view::npos ? std::string_view{} : rounded.substr(point + 1);
    const bool roundsToZero = rounded.find_first_not_of("0.") == std::string_view::npos;

    while (decimals.size() > static_cast<std::size_t>(shape.leastDecimals) &&
           decimals.back() == '0') {
        decimals.remove_suffix(1);
    }
    if (integer == "0" && shape.minIntegerDigits == 0) {
        integer = {};
    }

    std::string text;
    text.reserve(integer.size() + decimals.size() + 8);
    if (std::signbit(value) && !roundsToZero) {
        text += '-';
    } else if (shape.signPosition) {
        text += '+';
    }
    for (auto length = static_cast<int>(integer.size()); length < shape.minIntegerDigits;
         ++length) {
        text += '0';
    }
    text += integer;
    if (shape.hasPoint) {
        text += '.';
        text += decimals;
    }
    return text;
}

} // namespace tovarin

#include "text/Val.hpp"

#include "text/DoubleChars.hpp"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

namespace tovarin {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t pos) {
    while (pos < text.size() && isDigit(text[pos])) {
        ++pos;
    }
    return pos;
}

// The decimal exponent, saturated far beyond any double's range so that the
// magnitude arithmetic below cannot overflow.
std::int64_t readExponent(std::string_view digits, bool negative) {
    constexpr std::int64_t kSaturated = std::int64_t{1} << 60;
    std::int64_t value = 0;
    auto [ptr, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    (void)ptr;
    if (ec != std::errc{} || value > kSaturated) {
        value = kSaturated;
    }
    return negative ? -value : value;
}

// The power of ten of the first significant digit. Used only to tell an
// overflow from an underflow when from_chars gives up on the range.
bool magnitudeAtLeastOne(std::string_view intDigits, std::string_view fracDigits,
                         std::int64_t exponent) {
    const auto firstInt = intDigits.find_first_not_of('0');
    if (firstInt != std::string_view::npos) {
        const auto power = static_cast<std::int64_t>(intDigits.size() - firstInt - 1);
        return power + exponent >= 0;
    }
    const auto firstFrac = fracDigits.find_first_not_of('0');
    if (firstFrac == std::string_view::npos) {
        return false;
    }
    const auto power = -static_cast<std::int64_t>(firstFrac + 1);
    return power + exponent >= 0;
}

} // namespace

double Val(std::string_view text) {
    std::size_t pos = text.find_first_not_of(' ');
    if (pos == std::string_view::npos) {
        return 0.0;
    }
    bool negative = false;
    if (text[pos] == '+' || text[pos] == '-') {
        negative = text[pos] == '-';
        ++pos;
    }
    const std::size_t numberStart = pos;
    const std::size_t intEnd = skipDigits(text, pos);
    std::size_t end = intEnd;
    std::size_t fracStart = intEnd;
    if (end < text.size() && text[end] == '.') {
        fracStart = end + 1;
        end = skipDigits(text, fracStart);
    }
    const std::string_view intDigits = text.substr(numberStart, intEnd - numberStart);
    const std::string_view fracDigits = text.substr(fracStart, end - fracStart);
    if (intDigits.empty() && fracDigits.empty()) {
        return 0.0;
    }

    std::int64_t exponent = 0;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t expPos = end + 1;
        bool expNegative = false;
        if (expPos < text.size() && (text[expPos] == '+' || text[expPos] == '-')) {
            expNegative = text[expPos] == '-';
            ++expPos;
        }
        const std::size_t expEnd = skipDigits(text, expPos);
        if (expEnd > expPos) {
            exponent = readExponent(text.substr(expPos, expEnd - expPos), expNegative);
            end = expEnd;
        }
    }

    // from_chars takes no "+", so the sign is put back afterwards; negation is exact.
    const char* first = text.data() + numberStart;
    const char* last = text.data() + end;
    double value = 0.0;
    const auto [ptr, ec] = doubleFromChars(first, last, value);
    (void)ptr;
    if (ec == std::errc::result_out_of_range) {
        value = magnitudeAtLeastOne(intDigits, fracDigits, exponent)
                    ? std::numeric_limits<double>::infinity()
                    : 0.0;
    } else if (ec != std::errc{}) {
        value = 0.0;
    }
    return negative ? -value : value;
}

} // namespace tovarin

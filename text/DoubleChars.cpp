#include "text/DoubleChars.hpp"

// Built only where the standard library lacks the double overloads of
// to_chars and from_chars (libc++ before LLVM 20, Emscripten): fast_float reads
// and {fmt}, header-only, writes. Both are exact: fast_float falls back to
// big-integer arithmetic where its fast path can't decide (libstdc++'s own
// from_chars is fast_float inside), and {fmt} gives Dragonbox's shortest digits
// and exact fixed and scientific digits.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <system_error>
#include <utility>

#include <fast_float/fast_float.h>
#include <fmt/format.h>

namespace tovarin {

namespace {

std::to_chars_result tooLarge(char* last) {
    return {last, std::errc::value_too_large};
}

template <typename... Args>
std::to_chars_result writeWith(char* first, char* last, fmt::format_string<Args...> format,
                               Args&&... args) {
    const auto room = static_cast<std::size_t>(last - first);
    const auto result = fmt::format_to_n(first, room, format, std::forward<Args>(args)...);
    if (result.size > room) {
        return tooLarge(last);
    }
    return {result.out, std::errc{}};
}

// Appends `text` at `out` when it fits before `last`.
bool put(char*& out, char* last, std::string_view text) {
    if (static_cast<std::size_t>(last - out) < text.size()) {
        return false;
    }
    out = std::copy(text.begin(), text.end(), out);
    return true;
}

bool putRepeated(char*& out, char* last, char c, std::size_t count) {
    if (static_cast<std::size_t>(last - out) < count) {
        return false;
    }
    out = std::fill_n(out, count, c);
    return true;
}

} // namespace

std::to_chars_result doubleToShortest(char* first, char* last, double value) {
    if (!std::isfinite(value) || value == 0.0) {
        return writeWith(first, last, "{}", value); // inf, -inf, nan, -nan, 0, -0
    }
    // {fmt} gives the shortest digits that read back as the value; only its
    // choice between fixed and scientific form differs from to_chars', which
    // takes whichever is shorter.
    std::array<char, 64> shortest{}; // at most 17 digits, a point, an exponent
    const auto written = fmt::format_to_n(shortest.data(), shortest.size(), "{}", std::fabs(value));
    const std::string_view text(shortest.data(), written.size);

    // The significant digits, and the power of ten of the first one.
    const std::size_t e = text.find('e');
    const std::string_view mantissa = text.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    int power = 0;
    if (e != std::string_view::npos) {
        const char* exponentFirst = text.data() + e + 1 + (text[e + 1] == '+' ? 1 : 0);
        std::from_chars(exponentFirst, text.data() + text.size(), power);
    } else if (mantissa.front() == '0') { // "0.00123"
        power = -static_cast<int>(mantissa.find_first_not_of("0.") - point);
    } else {
        power = static_cast<int>(point) - 1;
    }
    std::array<char, 32> digits{};
    std::size_t count = 0;
    for (const char c : mantissa) {
        if (c != '.' && (count > 0 || c != '0')) {
            digits[count++] = c;
        }
    }
    while (count > 1 && digits[count - 1] == '0') {
        --count;
    }
    const std::string_view significant(digits.data(), count);

    // The exponent as to_chars writes it: a sign and at least two digits.
    std::array<char, 8> exponent{};
    const std::string_view exponentText(
        exponent.data(),
        static_cast<std::size_t>(fmt::format_to(exponent.data(), "e{}{:02}", power < 0 ? '-' : '+',
                                                power < 0 ? -power : power) -
                                 exponent.data()));
    const int n = static_cast<int>(count);
    const int scientificLength = n + (n > 1 ? 1 : 0) + static_cast<int>(exponentText.size());
    const int fixedLength =
        power >= 0 ? std::max(n, power + 1) + (n > power + 1 ? 1 : 0) : 2 + (-power - 1) + n;

    char* out = first;
    if (std::signbit(value) && !put(out, last, "-")) {
        return tooLarge(last);
    }
    bool fits = true;
    if (fixedLength <= scientificLength) {
        if (power >= 0 && n <= power + 1) {
            // A whole number: the digits of the exact value, as printf writes it.
            return writeWith(first, last, "{:.0f}", value);
        }
        if (power >= 0) {
            const auto whole = static_cast<std::size_t>(power) + 1;
            fits = put(out, last, significant.substr(0, whole)) && put(out, last, ".") &&
                   put(out, last, significant.substr(whole));
        } else {
            fits = put(out, last, "0.") &&
                   putRepeated(out, last, '0', static_cast<std::size_t>(-power - 1)) &&
                   put(out, last, significant);
        }
    } else {
        fits = put(out, last, significant.substr(0, 1)) &&
               (n == 1 || (put(out, last, ".") && put(out, last, significant.substr(1)))) &&
               put(out, last, exponentText);
    }
    if (!fits) {
        return tooLarge(last);
    }
    return {out, std::errc{}};
}

std::to_chars_result doubleToFixed(char* first, char* last, double value, int decimals) {
    return writeWith(first, last, "{:.{}f}", value, decimals);
}

std::to_chars_result doubleToScientific(char* first, char* last, double value, int digits) {
    return writeWith(first, last, "{:.{}e}", value, digits);
}

std::from_chars_result doubleFromChars(const char* first, const char* last, double& value) {
    double parsed = 0.0;
    const auto result =
        fast_float::from_chars(first, last, parsed, fast_float::chars_format::general);
    if (result.ec != std::errc{}) {
        return {first, result.ec};
    }
    // fast_float saturates to infinity and rounds to zero without a word;
    // from_chars calls both out of range and leaves the value alone.
    const char* text = *first == '-' ? first + 1 : first;
    const bool infinityWritten = *text == 'i' || *text == 'I';
    const bool nanWritten = *text == 'n' || *text == 'N';
    if (std::isinf(parsed) && !infinityWritten) {
        return {result.ptr, std::errc::result_out_of_range};
    }
    if (parsed == 0.0 && !nanWritten) {
        const char* mantissaEnd =
            std::find_if(text, result.ptr, [](char c) { return c == 'e' || c == 'E'; });
        if (std::any_of(text, mantissaEnd, [](char c) { return c >= '1' && c <= '9'; })) {
            return {result.ptr, std::errc::result_out_of_range};
        }
    }
    value = parsed;
    return {result.ptr, std::errc{}};
}

} // namespace tovarin

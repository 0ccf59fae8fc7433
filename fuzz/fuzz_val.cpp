// Val on any text, compared with the C library's strtod on the part of the
// text that Val's grammar accepts.
#include "text/Val.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

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

// The number at the front of `text` as Val reads it, leading spaces removed;
// empty when there is none.
std::string_view acceptedNumber(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && text[start] == ' ') {
        ++start;
    }
    std::size_t pos = start;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        ++pos;
    }
    const std::size_t intStart = pos;
    pos = skipDigits(text, pos);
    bool digits = pos > intStart;
    if (pos < text.size() && text[pos] == '.') {
        const std::size_t fracEnd = skipDigits(text, pos + 1);
        digits = digits || fracEnd > pos + 1;
        if (digits) {
            pos = fracEnd;
        }
    }
    if (!digits) {
        return {};
    }
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
        std::size_t expPos = pos + 1;
        if (expPos < text.size() && (text[expPos] == '+' || text[expPos] == '-')) {
            ++expPos;
        }
        const std::size_t expEnd = skipDigits(text, expPos);
        if (expEnd > expPos) {
            pos = expEnd;
        }
    }
    return text.substr(start, pos - start);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const double value = tovarin::Val(text);

    // strtod wants a terminated text; the accepted part holds nothing that its
    // wider grammar (hex, inf, nan, other spaces) would read differently.
    const std::string number(acceptedNumber(text));
    const double expected = number.empty() ? 0.0 : std::strtod(number.c_str(), nullptr);
    if (std::isnan(value) || std::memcmp(&value, &expected, sizeof value) != 0) {
        std::fprintf(stderr, "Val(\"%s\") = %.17g, strtod gives %.17g\n", number.c_str(), value,
                     expected);
        std::abort();
    }
    return 0;
}

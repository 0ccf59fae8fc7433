#include "engine/table/NumberText.hpp"

#include <array>
#include <charconv>

namespace tovarin {

namespace {

// Room for any double in any of the forms below with up to 20 decimals.
constexpr std::size_t kBufferSize = 400;

template <typename... Format> std::string toText(double value, Format... format) {
    std::array<char, kBufferSize> buffer; // NOLINT: to_chars fills what is read
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
    return {buffer.data(), result.ptr};
}

} // namespace

char* writeShortest(char* first, double value) {
    return std::to_chars(first, first + kShortestChars, value).ptr;
}

std::string shortestText(double value) {
    return toText(value);
}

std::string fixedText(double value, int decimals) {
    std::string text = toText(value, std::chars_format::fixed, decimals);
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) {
        text.erase(0, 1);
    }
    return text;
}

std::string scientificText(double value, int digits) {
    return toText(value, std::chars_format::scientific, digits);
}

} // namespace tovarin

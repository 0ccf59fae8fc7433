#include "engine/table/NumberText.hpp"

#include "text/DoubleChars.hpp"

#include <array>

namespace tovarin {

namespace {

// Room for any double in any of the forms below with up to 20 decimals.
constexpr std::size_t kBufferSize = 400;

using Buffer = std::array<char, kBufferSize>;

} // namespace

char* writeShortest(char* first, double value) {
    return doubleToShortest(first, first + kShortestChars, value).ptr;
}

std::string shortestText(double value) {
    Buffer buffer; // NOLINT: the writer fills what is read
    return {buffer.data(), writeShortest(buffer.data(), value)};
}

std::string fixedText(double value, int decimals) {
    Buffer buffer; // NOLINT: the writer fills what is read
    std::string text(
        buffer.data(),
        doubleToFixed(buffer.data(), buffer.data() + buffer.size(), value, decimals).ptr);
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) {
        text.erase(0, 1);
    }
    return text;
}

std::string scientificText(double value, int digits) {
    Buffer buffer; // NOLINT: the writer fills what is read
    return {buffer.data(),
            doubleToScientific(buffer.data(), buffer.data() + buffer.size(), value, digits).ptr};
}

} // namespace tovarin

#include "system/ShortTimeFormat.hpp"

#include <algorithm>
#include <vector>

namespace tovarin::sys {
namespace {

// A format split into conversions ("%S", "%OS", "%-I") and the literal text
// between them.
struct Piece {
    std::string text;
    char conversion; // 0 for literal text
};

std::vector<Piece> splitFormat(std::string_view format) {
    std::vector<Piece> pieces;
    std::size_t i = 0;
    while (i < format.size()) {
        if (format[i] == '%' && i + 1 < format.size()) {
            std::size_t end = i + 1;
            // Flags, a width and the E or O modifier come before the letter.
            while (end < format.size() &&
                   std::string_view("_-0^#123456789EO").find(format[end]) != std::string_view::npos)
                ++end;
            if (end < format.size()) {
                pieces.push_back({std::string(format.substr(i, end + 1 - i)), format[end]});
                i = end + 1;
                continue;
            }
        }
        if (pieces.empty() || pieces.back().conversion != 0)
            pieces.push_back({"", 0});
        pieces.back().text += format[i];
        ++i;
    }
    return pieces;
}

bool separatorOnly(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return c == ' ' || c == ':' || c == '.' || c == ',' || c == '-' || c == '\'';
    });
}

// %r, %T and %X in a locale's time format stand for other formats.
std::string expanded(std::string_view timeFormat, std::string_view amPmFormat) {
    std::string out;
    for (const Piece& piece : splitFormat(timeFormat)) {
        if (piece.conversion == 'r')
            out += amPmFormat.empty() ? std::string_view("%I:%M:%S %p") : amPmFormat;
        else if (piece.conversion == 'T' || piece.conversion == 'X')
            out += "%H:%M:%S";
        else
            out += piece.text;
    }
    return out;
}

} // namespace

std::string shortTimeFormat(std::string_view timeFormat, std::string_view amPmFormat) {
    std::vector<Piece> pieces = splitFormat(expanded(timeFormat, amPmFormat));
    if (pieces.empty())
        return "%H:%M";
    const auto seconds = std::find_if(pieces.begin(), pieces.end(),
                                      [](const Piece& p) { return p.conversion == 'S'; });
    if (seconds != pieces.end()) {
        auto first = seconds;
        auto last = seconds + 1;
        const bool textBefore = seconds != pieces.begin() && (seconds - 1)->conversion == 0;
        if (textBefore && separatorOnly((seconds - 1)->text)) {
            --first;
        } else if (last != pieces.end() && last->conversion == 0) {
            ++last; // a unit such as 秒
            if (textBefore) {
                std::string& before = (seconds - 1)->text;
                while (!before.empty() && before.back() == ' ')
                    before.pop_back();
            }
        }
        pieces.erase(first, last);
    }
    std::string format;
    for (const Piece& piece : pieces)
        format += piece.text;
    return format;
}

} // namespace tovarin::sys

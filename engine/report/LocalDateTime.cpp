#include "engine/report/LocalDateTime.hpp"

#include <algorithm>
#include <array>
#include <vector>

#if __has_include(<langinfo.h>)
#include <langinfo.h>
#define TOVARIN_HAS_LANGINFO 1
#endif

namespace tovarin {
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

std::string localeShortTimeFormat() {
#ifdef TOVARIN_HAS_LANGINFO
    return shortTimeFormat(nl_langinfo(T_FMT), nl_langinfo(T_FMT_AMPM));
#else
    return shortTimeFormat({}, {});
#endif
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

DateTimeText formatLocalDateTime(const std::tm& local) {
    std::array<char, 128> date{};
    std::array<char, 128> time{};
    // strftime gives 0 when the text does not fit; an empty field is then
    // better than a cut one, and no locale writes a short date that long.
    const std::size_t dateLength = std::strftime(date.data(), date.size(), "%x", &local);
    const std::size_t timeLength =
        std::strftime(time.data(), time.size(), localeShortTimeFormat().c_str(), &local);
    return {std::string(date.data(), dateLength), std::string(time.data(), timeLength)};
}

DateTimeText currentLocalDateTime() {
    const std::time_t now = std::time(nullptr);
    // Null only for a time the C library cannot break down: no date then.
    const std::tm* local = std::localtime(&now);
    return local ? formatLocalDateTime(*local) : DateTimeText{};
}

} // namespace tovarin

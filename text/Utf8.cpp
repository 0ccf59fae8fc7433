#include "text/Utf8.hpp"

#include <algorithm>

namespace tovarin {

namespace {

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

// The length of the ASCII run at the front of `text`: one character per byte,
// nothing to decode.
std::size_t asciiFront(std::string_view text) {
    const auto nonAscii = std::find_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80U; });
    return static_cast<std::size_t>(nonAscii - text.begin());
}

// The bytes of the first `count` characters (count >= 1); only the bytes
// that may hold them are looked at.
std::size_t leftBytes(std::string_view text, std::int64_t count) {
    const std::size_t ascii = asciiFront(text.substr(0, static_cast<std::size_t>(count)));
    std::size_t pos = ascii;
    count -= static_cast<std::int64_t>(ascii);
    while (count > 0 && pos < text.size()) {
        pos += utf8CharLength(text, pos);
        --count;
    }
    return pos;
}

} // namespace

std::size_t utf8CharLength(std::string_view text, std::size_t pos) {
    const auto lead = static_cast<unsigned char>(text[pos]);
    if (lead < 0x80U) {
        return 1;
    }
    std::size_t length = 0;
    // The allowed range of the second byte rules out overlong forms,
    // surrogates and codes above U+10FFFF.
    unsigned char secondMin = 0x80U;
    unsigned char secondMax = 0xBFU;
    if (lead >= 0xC2U && lead <= 0xDFU) {
        length = 2;
    } else if (lead >= 0xE0U && lead <= 0xEFU) {
        length = 3;
        if (lead == 0xE0U) {
            secondMin = 0xA0U;
        } else if (lead == 0xEDU) {
            secondMax = 0x9FU;
        }
    } else if (lead >= 0xF0U && lead <= 0xF4U) {
        length = 4;
        if (lead == 0xF0U) {
            secondMin = 0x90U;
        } else if (lead == 0xF4U) {
            secondMax = 0x8FU;
        }
    } else {
        return 1;
    }
    if (text.size() - pos < length) {
        return 1;
    }
    const auto second = static_cast<unsigned char>(text[pos + 1]);
    if (second < secondMin || second > secondMax) {
        return 1;
    }
    for (std::size_t i = 2; i < length; ++i) {
        if (!isContinuation(static_cast<unsigned char>(text[pos + i]))) {
            return 1;
        }
    }
    return length;
}

std::int64_t Len(std::string_view text) {
    std::size_t pos = asciiFront(text);
    auto count = static_cast<std::int64_t>(pos);
    while (pos < text.size()) {
        pos += utf8CharLength(text, pos);
        ++count;
    }
    return count;
}

std::string_view Left(std::string_view text, std::int64_t count) {
    return count <= 0 ? std::string_view{} : text.substr(0, leftBytes(text, count));
}

} // namespace tovarin

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovarin {

// Texts are UTF-8 and counted in characters (code points), never bytes.
// A byte that does not start a well-formed UTF-8 sequence (a stray
// continuation byte, a truncated or overlong sequence, a surrogate, a code
// above U+10FFFF) counts as one character of its own, so any byte string has a
// length and can be cut without reading past its end.

// The number of characters in `text`.
std::int64_t Len(std::string_view text);

// The first `count` characters of `text`, as a view of its front; all of it if
// it has fewer, and the empty text for a count of zero or below. Never cuts
// through a character.
std::string_view Left(std::string_view text, std::int64_t count);

// The byte length of the character that starts at `pos` (1 to 4).
std::size_t utf8CharLength(std::string_view text, std::size_t pos);

} // namespace tovarin

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tovarin {

// Every occurrence of `find` replaced by `replacement`, scanning left to right
// and going on behind each replacement. An empty `find` changes nothing.
std::string ReplaceAll(std::string_view source, std::string_view find,
                       std::string_view replacement);

// Field `number` (counted from 1) of `source` split at each `separator`.
// Fields keep their spaces; a number below 1 or beyond the last field gives
// the empty text. An empty separator leaves the whole text as field 1. The
// field is a view into `source`.
std::string_view NthField(std::string_view source, std::string_view separator, std::int64_t number);

} // namespace tovarin

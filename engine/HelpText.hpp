#pragma once

#include <cstddef>
#include <string_view>

namespace tovarin {

// The manual shown in the Information window and on the web page: UTF-8,
// lines separated by a lone CR (no LF anywhere), no final line break.
std::string_view helpText();

// Characters of the title that opens the text ("Tovarin"), the only bold run.
inline constexpr std::size_t kHelpTitleLength = 7;

} // namespace tovarin

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tovarin {

// The likeliest misread of `text` by `tovarin-report COUNT FILE`, which reads
// the first COUNT lines as they come: a line the careful reader refuses, a
// header line, semicolon-separated lines, a decimal comma, a COUNT that isn't
// the number of model lines, or two names that print alike once cut to 8
// characters.
// `file` names the file in the hint. Nothing when the file looks tidy.
std::optional<std::string> classicHint(std::string_view text, std::int64_t count,
                                       const std::string& file);

} // namespace tovarin

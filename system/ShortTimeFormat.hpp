#pragma once

#include <string>
#include <string_view>

namespace tovarin::sys {

// The strftime format of a short time made from a locale's time format
// (`timeFormat`, where %r stands for `amPmFormat`): the same without the
// seconds, and without the separator before them, or the unit written after
// them ("%H時%M分%S秒" becomes "%H時%M分"). "%H:%M" when there is no format.
// Plain text work; the POSIX side of the locale's short time uses it.
std::string shortTimeFormat(std::string_view timeFormat, std::string_view amPmFormat);

} // namespace tovarin::sys

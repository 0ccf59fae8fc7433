#pragma once

#include <string>
#include <string_view>

namespace tovarin::sys {

// Windows only: UTF-8 to and from the UTF-16 of the system's wide calls. A
// byte or a unit that is no character becomes U+FFFD; nothing throws.
std::wstring wideFromUtf8(std::string_view text);
std::string utf8FromWide(std::wstring_view text);

} // namespace tovarin::sys

#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace tovarin::sys {

// File names as the program holds them in text: UTF-8. On POSIX a name is its
// bytes, whatever they are, both ways; on Windows it is the UTF-16 name the
// system's wide calls take (a plain std::string would go through the ANSI code
// page there, and lose every character outside it).
std::filesystem::path pathFromUtf8(std::string_view name);
std::string utf8FromPath(const std::filesystem::path& path);

// Opens `path` for reading bytes, by its full name. Null on failure, with
// errno saying why; a folder is EISDIR on every system (on POSIX at the first
// read).
std::FILE* openForReading(const std::filesystem::path& path);

} // namespace tovarin::sys

#include "system/Files.hpp"

#include "system/Utf16.hpp"

#include <cerrno>
#include <windows.h>

namespace tovarin::sys {

std::filesystem::path pathFromUtf8(std::string_view name) {
    return wideFromUtf8(name);
}

std::string utf8FromPath(const std::filesystem::path& path) {
    return utf8FromWide(path.native());
}

std::FILE* openForReading(const std::filesystem::path& path) {
    std::FILE* const stream = _wfopen(path.c_str(), L"rb");
    if (stream == nullptr && errno == EACCES) {
        // Windows refuses a folder as "Permission denied"; say what it is.
        const DWORD attributes = GetFileAttributesW(path.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            errno = EISDIR;
        }
    }
    return stream;
}

} // namespace tovarin::sys

#include "system/Files.hpp"

namespace tovarin::sys {

std::filesystem::path pathFromUtf8(std::string_view name) {
    return std::string(name);
}

std::string utf8FromPath(const std::filesystem::path& path) {
    return path.native();
}

std::FILE* openForReading(const std::filesystem::path& path) {
    return std::fopen(path.c_str(), "rb");
}

} // namespace tovarin::sys

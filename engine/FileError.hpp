#pragma once

#include "system/Files.hpp"

#include <filesystem>
#include <stdexcept>
#include <string>

namespace tovarin {

// A data file that cannot be opened or read. what() names the file and says why.
class FileError : public std::runtime_error {
public:
    FileError(const std::filesystem::path& file, const std::string& reason)
        : std::runtime_error("Cannot read \"" + sys::utf8FromPath(file) + "\": " + reason),
          file_(file), reason_(reason) {}

    const std::filesystem::path& file() const { return file_; }
    const std::string& reason() const { return reason_; }

private:
    std::filesystem::path file_;
    std::string reason_;
};

} // namespace tovarin

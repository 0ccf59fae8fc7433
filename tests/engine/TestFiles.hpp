#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace tovarin::test {

// A fresh folder for one test's data files, removed with the object.
class TempFolder {
public:
    TempFolder() {
        std::random_device seed;
        path_ = std::filesystem::temp_directory_path() /
                ("tovarin-test-" + std::to_string(seed()) + std::to_string(seed()));
        std::filesystem::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::filesystem::path write(const std::string& name, const std::string& bytes) const {
        const auto file = path_ / name;
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace tovarin::test

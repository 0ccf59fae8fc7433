#pragma once

#include <filesystem>
#include <fstream>
#include <random>

namespace tovarin::test {

// A fresh folder for one test's data files, removed with the object.
class TempFolder {
public:
    TempFolder() { std::filesystem::create_directories(path_); }
    ~TempFolder() { std::filesystem::remove_all(path_, ignored_); }
    std::filesystem::path write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
        return path_ / name;
    }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                  ("tovarin-test-" + std::to_string(std::random_device{}()) +
                                   std::to_string(std::random_device{}()));
    std::error_code ignored_;
};

} // namespace tovarin::test

#pragma once

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace tovarin {

// A stream of bytes read front to back, named for error messages.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    // Fills up to `size` bytes of `buffer`; 0 means the end of the data.
    // Throws FileError when the read fails.
    virtual std::size_t read(char* buffer, std::size_t size) = 0;
    virtual const std::filesystem::path& name() const = 0;
};

// A data file opened for reading. The file closes with the object.
class FileSource : public ByteSource {
public:
    // Throws FileError naming the file and the system's reason when it can't
    // be opened (missing, a directory, no permission, ...).
    explicit FileSource(std::filesystem::path file);

    std::size_t read(char* buffer, std::size_t size) override;
    const std::filesystem::path& name() const override { return file_; }

private:
    struct Closer {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };
    std::filesystem::path file_;
    std::unique_ptr<std::FILE, Closer> stream_;
};

// Bytes held in memory, for text that is not in a file.
class MemorySource : public ByteSource {
public:
    explicit MemorySource(std::string bytes, std::filesystem::path name = "<memory>")
        : bytes_(std::move(bytes)), name_(std::move(name)) {}

    std::size_t read(char* buffer, std::size_t size) override;
    const std::filesystem::path& name() const override { return name_; }

private:
    std::string bytes_;
    std::size_t pos_ = 0;
    std::filesystem::path name_;
};

} // namespace tovarin

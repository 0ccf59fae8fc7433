#include "engine/ByteSource.hpp"

#include "engine/FileError.hpp"
#include "system/Files.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace tovarin {

namespace {

std::string systemReason(int error) {
    return std::generic_category().message(error);
}

} // namespace

FileSource::FileSource(std::filesystem::path file) : file_(std::move(file)) {
    errno = 0;
    stream_.reset(sys::openForReading(file_));
    if (!stream_) {
        throw FileError(file_, errno != 0 ? systemReason(errno) : "cannot be opened");
    }
    // The line reader buffers already; a second buffer would only copy.
    std::setvbuf(stream_.get(), nullptr, _IONBF, 0);
}

std::size_t FileSource::read(char* buffer, std::size_t size) {
    errno = 0;
    const std::size_t got = std::fread(buffer, 1, size, stream_.get());
    if (got < size && std::ferror(stream_.get())) {
        const int error = errno;
        throw FileError(file_, error != 0 ? systemReason(error) : "read error");
    }
    return got;
}

std::size_t MemorySource::read(char* buffer, std::size_t size) {
    const std::size_t got = std::min(size, bytes_.size() - pos_);
    std::memcpy(buffer, bytes_.data() + pos_, got);
    pos_ += got;
    return got;
}

} // namespace tovarin

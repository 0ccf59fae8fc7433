#include "cli/InputText.hpp"

#include "engine/ByteSource.hpp"
#include "engine/FileError.hpp"
#include "system/Files.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace tovarin {

namespace {

constexpr const char* kStandardInput = "(standard input)";
constexpr std::size_t kChunkBytes = 64 * 1024;

class StdinSource : public ByteSource {
public:
    std::size_t read(char* buffer, std::size_t size) override {
        errno = 0;
        const std::size_t got = std::fread(buffer, 1, size, stdin);
        if (got < size && std::ferror(stdin)) {
            throw FileError(name_, std::generic_category().message(errno != 0 ? errno : EIO));
        }
        return got;
    }
    const std::filesystem::path& name() const override { return name_; }

private:
    std::filesystem::path name_ = kStandardInput;
};

// Reads straight into the text. A file says its size, and is read into room
// made for it once: growing by doubling would copy it and touch twice the
// memory. One byte more than the size lets the end be seen without growing.
std::string readAll(ByteSource& source, std::size_t expected) {
    std::string text(std::min(expected, kMaxInputBytes) + 1, '\0');
    std::size_t size = 0;
    while (true) {
        if (size == text.size()) {
            text.resize(std::min(std::max(2 * size, kChunkBytes), kMaxInputBytes + 1));
        }
        const std::size_t got = source.read(text.data() + size, text.size() - size);
        if (got == 0) {
            break;
        }
        size += got;
        checkInputSize(source.name(), size);
    }
    text.resize(size);
    return text;
}

} // namespace

void checkInputSize(const std::filesystem::path& name, std::size_t size) {
    if (size > kMaxInputBytes) {
        throw FileError(name, "larger than 64 MiB, so this is no table of models");
    }
}

std::string readInputText(const std::string& operand) {
    if (operand == "-") {
        StdinSource source;
        return readAll(source, 0);
    }
    const std::filesystem::path path = sys::pathFromUtf8(operand);
    FileSource source(path);
    std::error_code unknown; // a pipe or a device has no size to go by
    const std::uintmax_t size = std::filesystem::file_size(path, unknown);
    return readAll(source, unknown ? 0 : static_cast<std::size_t>(size));
}

std::string inputMessageName(const std::string& operand) {
    return operand == "-" ? kStandardInput : operand;
}

std::string inputDocumentName(const std::string& operand) {
    return operand == "-" ? kStandardInput
                          : sys::utf8FromPath(sys::pathFromUtf8(operand).filename());
}

} // namespace tovarin

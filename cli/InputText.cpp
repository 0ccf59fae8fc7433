#include "cli/InputText.hpp"

#include "engine/ByteSource.hpp"
#include "engine/FileError.hpp"
#include "system/Files.hpp"

#include <array>
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

std::string readAll(ByteSource& source) {
    std::string text;
    std::array<char, kChunkBytes> chunk{};
    while (const std::size_t got = source.read(chunk.data(), chunk.size())) {
        if (text.size() + got > kMaxInputBytes) {
            throw FileError(source.name(), "larger than 64 MiB, so this is no table of models");
        }
        text.append(chunk.data(), got);
    }
    return text;
}

} // namespace

std::string readInputText(const std::string& operand) {
    if (operand == "-") {
        StdinSource source;
        return readAll(source);
    }
    FileSource source(sys::pathFromUtf8(operand));
    return readAll(source);
}

std::string inputMessageName(const std::string& operand) {
    return operand == "-" ? kStandardInput : operand;
}

std::string inputDocumentName(const std::string& operand) {
    return operand == "-" ? kStandardInput
                          : sys::utf8FromPath(sys::pathFromUtf8(operand).filename());
}

} // namespace tovarin

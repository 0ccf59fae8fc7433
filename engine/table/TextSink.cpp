#include "engine/table/TextSink.hpp"

#include <charconv>

namespace tovarin {

namespace {

// Large enough that the stream is called rarely, small enough to stay in cache.
constexpr std::size_t kBufferBytes = 64 * 1024;
// A 64-bit whole number with its sign.
constexpr std::size_t kIntegerChars = 20;

} // namespace

TextSink::TextSink(std::ostream& out) : out_(out), buffer_(kBufferBytes) {}

TextSink::~TextSink() {
    flush();
}

void TextSink::appendInteger(std::int64_t value) {
    char* first = room(kIntegerChars);
    commit(std::to_chars(first, first + kIntegerChars, value).ptr);
}

void TextSink::flush() {
    out_.write(buffer_.data(), static_cast<std::streamsize>(used_));
    used_ = 0;
}

void TextSink::appendLong(std::string_view text) {
    flush();
    if (text.size() > buffer_.size()) {
        out_.write(text.data(), static_cast<std::streamsize>(text.size()));
        return;
    }
    std::memcpy(buffer_.data(), text.data(), text.size());
    used_ = text.size();
}

} // namespace tovarin

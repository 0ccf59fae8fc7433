#include "cli/OutputBuffer.hpp"

#include "system/Console.hpp"

namespace tovarin {

OutputBuffer::OutputBuffer() {
    setp(buffer_.data(), buffer_.data() + buffer_.size());
}

OutputBuffer::~OutputBuffer() {
    flushBuffer();
}

bool OutputBuffer::writeAll(const char* text, std::size_t size) {
    if (error_ == 0 && size > 0) {
        error_ = sys::writeStandardOutput(text, size);
    }
    return error_ == 0;
}

bool OutputBuffer::flushBuffer() {
    writeAll(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(buffer_.data(), buffer_.data() + buffer_.size());
    return error_ == 0;
}

OutputBuffer::int_type OutputBuffer::overflow(int_type c) {
    if (!flushBuffer()) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(c);
        pbump(1);
    }
    return traits_type::not_eof(c);
}

// A piece of half the buffer or more goes out as it is, with no copy on the
// way: a table writes its text in pieces of nearly the buffer's size.
std::streamsize OutputBuffer::xsputn(const char_type* text, std::streamsize count) {
    const auto size = static_cast<std::size_t>(count);
    if (size < buffer_.size() / 2) {
        return std::streambuf::xsputn(text, count);
    }
    return flushBuffer() && writeAll(text, size) ? count : 0;
}

int OutputBuffer::sync() {
    return flushBuffer() ? 0 : -1;
}

} // namespace tovarin

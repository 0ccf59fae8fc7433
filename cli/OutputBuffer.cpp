#include "cli/OutputBuffer.hpp"

#include <cerrno>
#include <unistd.h>

namespace tovarin {

OutputBuffer::OutputBuffer(int fd) : fd_(fd) {
    setp(buffer_.data(), buffer_.data() + buffer_.size());
}

OutputBuffer::~OutputBuffer() {
    flushBuffer();
}

bool OutputBuffer::flushBuffer() {
    const char* next = pbase();
    while (error_ == 0 && next < pptr()) {
        const ssize_t written = ::write(fd_, next, static_cast<std::size_t>(pptr() - next));
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            error_ = written < 0 ? errno : EIO;
            break;
        }
        next += written;
    }
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

int OutputBuffer::sync() {
    return flushBuffer() ? 0 : -1;
}

} // namespace tovarin

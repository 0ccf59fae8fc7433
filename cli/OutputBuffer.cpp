#include "cli/OutputBuffer.hpp"

#include "system/Console.hpp"

namespace tovarin {

OutputBuffer::OutputBuffer() {
    setp(buffer_.data(), buffer_.data() + buffer_.size());
}

OutputBuffer::~OutputBuffer() {
    flushBuffer();
}

bool OutputBuffer::flushBuffer() {
    if (error_ == 0 && pptr() > pbase()) {
        error_ = sys::writeStandardOutput(pbase(), static_cast<std::size_t>(pptr() - pbase()));
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

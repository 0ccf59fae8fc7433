#pragma once

#include "engine/table/NumberText.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string_view>
#include <vector>

namespace tovarin {

// Text on its way to a stream. It gathers in a buffer of fixed size that goes
// to the stream each time it fills, so that a table of a million models is
// written as it is made and never held whole.
class TextSink {
public:
    explicit TextSink(std::ostream& out);
    // Sends what is left.
    ~TextSink();
    TextSink(const TextSink&) = delete;
    TextSink& operator=(const TextSink&) = delete;

    void append(std::string_view text) {
        if (text.size() > buffer_.size() - used_) {
            appendLong(text);
            return;
        }
        std::memcpy(buffer_.data() + used_, text.data(), text.size());
        used_ += text.size();
    }
    void append(char c) {
        if (used_ == buffer_.size()) {
            flush();
        }
        buffer_[used_++] = c;
    }
    void appendShortest(double value) { commit(writeShortest(room(kShortestChars), value)); }
    void appendInteger(std::int64_t value);

    // Room for `size` characters (no more than the buffer holds) at the end of
    // the text; commit says how far they were filled.
    char* room(std::size_t size) {
        if (buffer_.size() - used_ < size) {
            flush();
        }
        return buffer_.data() + used_;
    }
    void commit(const char* end) { used_ = static_cast<std::size_t>(end - buffer_.data()); }

    // Sends the buffer to the stream.
    void flush();
    // Whether the stream refused text, a full disk or a closed pipe: nothing
    // more can reach it, so a writer may stop.
    bool failed() const { return out_.fail(); }

private:
    void appendLong(std::string_view text);

    std::ostream& out_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
};

} // namespace tovarin

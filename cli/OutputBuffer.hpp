#pragma once

#include <array>
#include <streambuf>

namespace tovarin {

// A stream buffer over standard output that remembers why a write failed,
// so that a full disk or a closed pipe can be reported with its reason.
class OutputBuffer : public std::streambuf {
public:
    OutputBuffer();
    ~OutputBuffer() override;
    OutputBuffer(const OutputBuffer&) = delete;
    OutputBuffer& operator=(const OutputBuffer&) = delete;

    // The errno of the first failed write, 0 while all went out.
    int error() const { return error_; }

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char_type* text, std::streamsize count) override;
    int sync() override;

private:
    bool flushBuffer();
    bool writeAll(const char* text, std::size_t size);

    static constexpr std::size_t kBytes = 64 * 1024;
    int error_ = 0;
    std::array<char, kBytes> buffer_{};
};

} // namespace tovarin

#pragma once

#include "engine/ByteSource.hpp"

#include <cstddef>
#include <memory>
#include <string>

namespace tovarin {

// Reads text lines from a byte source. CR, LF and the pair CR LF each end a
// line and are not part of it. At the end of the data every further call
// gives the empty text.
class LineReader {
public:
    // Far above any real data line; only a file that never ends a line (such
    // as a device of endless zeros) gets there, and it must not eat all memory.
    static constexpr std::size_t kMaxLineBytes = std::size_t{64} * 1024 * 1024;

    explicit LineReader(ByteSource& source, std::size_t maxLineBytes = kMaxLineBytes);

    // The next line. Throws FileError when the source fails or a line grows
    // past the limit.
    std::string readLine();
    // The same into `line`, whose capacity is reused from line to line.
    void readLine(std::string& line);

private:
    bool fill();

    ByteSource& source_;
    std::size_t maxLineBytes_;
    std::unique_ptr<char[]> buffer_;
    std::size_t pos_ = 0;
    std::size_t end_ = 0;
    bool atEnd_ = false;
    bool skipLineFeed_ = false; // the last line ended in CR; an LF next belongs to it
};

} // namespace tovarin

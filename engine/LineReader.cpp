#include "engine/LineReader.hpp"

#include "engine/FileError.hpp"

#include <algorithm>

namespace tovarin {

namespace {

constexpr std::size_t kBufferBytes = 64 * 1024;

} // namespace

LineReader::LineReader(ByteSource& source, std::size_t maxLineBytes)
    : source_(source), maxLineBytes_(maxLineBytes), buffer_(kBufferBytes) {}

bool LineReader::fill() {
    if (atEnd_) {
        return false;
    }
    pos_ = 0;
    end_ = source_.read(buffer_.data(), buffer_.size());
    atEnd_ = end_ == 0;
    return !atEnd_;
}

std::string LineReader::readLine() {
    std::string line;
    for (;;) {
        if (pos_ == end_ && !fill()) {
            return line;
        }
        if (skipLineFeed_) {
            skipLineFeed_ = false;
            if (buffer_[pos_] == '\n') {
                ++pos_;
                continue;
            }
        }
        const auto first = buffer_.begin() + static_cast<std::ptrdiff_t>(pos_);
        const auto last = buffer_.begin() + static_cast<std::ptrdiff_t>(end_);
        const auto lineEnd =
            std::find_if(first, last, [](char c) { return c == '\n' || c == '\r'; });
        line.append(first, lineEnd);
        if (line.size() > maxLineBytes_) {
            throw FileError(source_.name(), "a line is longer than " +
                                                std::to_string(maxLineBytes_ / (1024 * 1024)) +
                                                " MiB, so this is no text data file");
        }
        if (lineEnd != last) {
            skipLineFeed_ = *lineEnd == '\r';
            pos_ = static_cast<std::size_t>(lineEnd - buffer_.begin()) + 1;
            return line;
        }
        pos_ = end_;
    }
}

} // namespace tovarin

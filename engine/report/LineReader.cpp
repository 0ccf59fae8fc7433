#include "engine/report/LineReader.hpp"

#include "engine/FileError.hpp"

#include <algorithm>

namespace tovarin {

namespace {

constexpr std::size_t kBufferBytes = 16 * 1024;

} // namespace

// The buffer is left uninitialised, as make_unique_for_overwrite would leave it
// (which Emscripten's libc++ lacks): fill() writes before anything is read.
LineReader::LineReader(ByteSource& source, std::size_t maxLineBytes)
    : source_(source), maxLineBytes_(maxLineBytes), buffer_(new char[kBufferBytes]) {}

bool LineReader::fill() {
    if (atEnd_) {
        return false;
    }
    pos_ = 0;
    end_ = source_.read(buffer_.get(), kBufferBytes);
    atEnd_ = end_ == 0;
    return !atEnd_;
}

std::string LineReader::readLine() {
    std::string line;
    readLine(line);
    return line;
}

void LineReader::readLine(std::string& line) {
    line.clear();
    for (;;) {
        if (pos_ == end_ && !fill()) {
            return;
        }
        if (skipLineFeed_) {
            skipLineFeed_ = false;
            if (buffer_[pos_] == '\n') {
                ++pos_;
                continue;
            }
        }
        const char* first = buffer_.get() + pos_;
        const char* last = buffer_.get() + end_;
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
            pos_ = static_cast<std::size_t>(lineEnd - buffer_.get()) + 1;
            return;
        }
        pos_ = end_;
    }
}

} // namespace tovarin

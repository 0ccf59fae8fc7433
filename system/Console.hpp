#pragma once

#include <cstddef>

namespace tovarin::sys {

// The command-line tool's standard streams.

// Called first in main. The bytes written and read are the bytes meant, on
// every system (on Windows no "\r\n" for "\n" and no end of input at Ctrl-Z,
// and a console shows the UTF-8 text as such), and a closed pipe is a write
// error to report rather than a signal that ends the process (POSIX).
void prepareStandardStreams();

// Whether a person is likely to read standard error: a terminal or a console,
// not a file, a pipe or the null device.
bool standardErrorIsTerminal();

// Writes all of `data` to standard output, unbuffered. Returns 0, or the
// errno of the failure: ENOSPC for a full disk, EPIPE for a closed pipe.
int writeStandardOutput(const char* data, std::size_t size);

} // namespace tovarin::sys

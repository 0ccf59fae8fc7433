#include "system/Console.hpp"

#include <cerrno>
#include <csignal>
#include <unistd.h>

#ifdef __EMSCRIPTEN__
#include <emscripten.h>

// Emscripten's isatty says yes for its standard streams wherever they lead;
// Node knows where they do.
EM_JS(int, nodeStandardErrorIsTerminal, (),
      { return typeof process == "object" && require("tty").isatty(2) ? 1 : 0; });
#endif

namespace tovarin::sys {

void prepareStandardStreams() {
    std::signal(SIGPIPE, SIG_IGN);
}

bool standardErrorIsTerminal() {
#ifdef __EMSCRIPTEN__
    return nodeStandardErrorIsTerminal() == 1;
#else
    return ::isatty(STDERR_FILENO) == 1;
#endif
}

int writeStandardOutput(const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t written = ::write(STDOUT_FILENO, data, size);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return written < 0 ? errno : EIO;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return 0;
}

} // namespace tovarin::sys

#include "system/Console.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace tovarin::sys {

namespace {

UINT consoleCodePage = 0;

void restoreConsoleCodePage() {
    SetConsoleOutputCP(consoleCodePage);
}

bool isConsole(DWORD stream) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

} // namespace

void prepareStandardStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    // The console's code page is the user's until the tool ends.
    if (isConsole(STD_OUTPUT_HANDLE) || isConsole(STD_ERROR_HANDLE)) {
        consoleCodePage = GetConsoleOutputCP();
        if (consoleCodePage != CP_UTF8 && SetConsoleOutputCP(CP_UTF8)) {
            std::atexit(restoreConsoleCodePage);
        }
    }
}

bool standardErrorIsTerminal() {
    // Not _isatty: it is true for the null device too.
    return isConsole(STD_ERROR_HANDLE);
}

int writeStandardOutput(const char* data, std::size_t size) {
    // WriteFile rather than _write, whose errno calls a closed pipe "Invalid
    // argument" (under Wine at least); the system's own error says which it is.
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    while (size > 0) {
        const auto chunk = static_cast<DWORD>(std::min<std::size_t>(size, std::size_t{1} << 30U));
        DWORD written = 0;
        if (!WriteFile(output, data, chunk, &written, nullptr)) {
            switch (GetLastError()) {
            case ERROR_BROKEN_PIPE:
            case ERROR_NO_DATA:
            case ERROR_PIPE_NOT_CONNECTED:
                return EPIPE;
            case ERROR_DISK_FULL:
            case ERROR_HANDLE_DISK_FULL:
                return ENOSPC;
            default:
                return EIO;
            }
        }
        if (written == 0) {
            return EIO;
        }
        data += written;
        size -= written;
    }
    return 0;
}

} // namespace tovarin::sys

#include "system/CommandLine.hpp"

#include "system/Utf16.hpp"

#include <windows.h>

#include <shellapi.h> // after windows.h, which it needs

namespace tovarin::sys {

std::vector<std::string> commandLineArguments(int, char**) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    if (wide == nullptr) {
        return arguments;
    }
    for (int i = 1; i < count; ++i) {
        arguments.push_back(utf8FromWide(wide[i]));
    }
    LocalFree(wide);
    return arguments;
}

} // namespace tovarin::sys

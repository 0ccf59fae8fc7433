#pragma once

#include <string>
#include <vector>

namespace tovarin::sys {

// The arguments after the program's name as UTF-8 text, as every system's
// command line can hold them: on POSIX the bytes of argv as they are, on
// Windows the wide command line, since argv there is in the ANSI code page
// and loses every character outside it (a file named "Modèle-测试.txt").
std::vector<std::string> commandLineArguments(int argc, char** argv);

} // namespace tovarin::sys

#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tovarin {

inline constexpr const char* kReportCommandVersion = "tovarin-report 1.1";

// Exit status when the output could not be written (set by main, which owns
// standard output).
inline constexpr int kExitOutputFailed = 3;

// `tovarin-report COUNT FILE`: runs one analysis of FILE with COUNT models and
// writes the report to `out` with "\n" line ends, messages and errors to `err`;
// with `hints`, one more line on `err` may point out a likely misread.
// `tovarin-report --format FORMAT ... FILE`: the careful reading and the
// tables (cli/TableCommand.hpp). `args` are the arguments without the program
// name. Returns the exit status: 0 when a report or table was written (also
// after the zero-BIC warning) or for --help/--version, 1 when there is no
// result (no low BIC, FILE can't be read or holds a refused line), 2 for a
// refused count or bad usage.
int reportCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                  bool hints = false);

} // namespace tovarin

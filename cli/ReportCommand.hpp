#pragma once

#include "cli/ExitStatus.hpp"
#include "cli/InputText.hpp"

#include <ostream>
#include <string>
#include <vector>

namespace tovarin {

// `tovarin-report COUNT FILE`: runs one analysis of FILE with COUNT models and
// writes the report to `out` with "\n" line ends, messages and errors to `err`;
// with `hints`, one more line on `err` may point out a likely misread.
// `tovarin-report --format FORMAT ... FILE`: the careful reading and the
// tables (cli/TableCommand.hpp). `args` are the arguments without the program
// name. The table forms read their input with `readInput`. Returns the exit status;
// OutputFailed is main's, which owns standard output.
ExitStatus reportCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                         bool hints = false, const InputReader& readInput = readInputText);

} // namespace tovarin

#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tovarin {

inline constexpr const char* kReportCommandVersion = "tovarin-report 1.1";

// `tovarin-report COUNT FILE`: runs one analysis of FILE with COUNT models and
// writes the report to `out` with "\n" line ends, messages and errors to `err`.
// `args` are the arguments without the program name. Returns the exit status:
// 0 when a report was written (also after the zero-BIC warning) or for
// --help/--version, 1 when no low BIC was found or FILE can't be read, 2 for a
// refused count or bad usage.
int reportCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace tovarin

#pragma once

#include "engine/AnalysisHost.hpp"

#include <string>

namespace tovarin {

// How a run ended. The zero-BIC warning does not end a run: it ends in Report.
enum class RunEnd { EmptyCount, BadCount, NoFile, NoLowBic, Report };

// The line end of reports and messages on this platform: CR LF on Windows,
// LF on macOS, CR elsewhere.
const std::string& platformLineEnd();

// One analysis: checks the count, lets the host choose a data file, reads it,
// works out the statistics and appends the report through the host.
// Throws FileError (engine/FileError.hpp) when the chosen file cannot be opened
// or read; no report has been started then.
RunEnd runAnalysis(AnalysisHost& host, const std::string& lineEnd = platformLineEnd());

} // namespace tovarin

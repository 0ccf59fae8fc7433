#pragma once

#include "engine/report/AnalysisHost.hpp"
#include "engine/report/ModelSet.hpp"

#include <filesystem>
#include <string>

namespace tovarin {

// Appends the report of a finished model set through the host, piece by piece
// as each is made: head with date and the file's bare name, the table between
// rule lines, the footnotes, bold over the first 100 characters of the
// results, and the closing credit line. Every line ends in `lineEnd`.
void writeReport(AnalysisHost& host, const ModelSet& set, const std::filesystem::path& dataFile,
                 const std::string& lineEnd);

} // namespace tovarin

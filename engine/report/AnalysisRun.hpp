#pragma once

#include "engine/ByteSource.hpp"
#include "engine/report/AnalysisHost.hpp"
#include "engine/report/LineEnd.hpp"
#include "engine/report/ModelSet.hpp"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tovarin {

// How a run ended. The zero-BIC warning does not end a run: it ends in Report.
enum class RunEnd { EmptyCount, BadCount, NoFile, NoLowBic, Report };

// Opens the chosen data file: nullptr when it is no longer there, which ends
// the run quietly; throws FileError when it is there but cannot be opened.
using DataFileOpener = std::function<std::unique_ptr<ByteSource>(const std::filesystem::path&)>;

// The opener of real files.
std::unique_ptr<ByteSource> openDataFile(const std::filesystem::path& file);

// One analysis: checks the count, lets the host choose a data file, reads it,
// works out the statistics and appends the report through the host.
// Throws FileError (engine/FileError.hpp) when the chosen file cannot be opened
// or read; no report has been started then.
RunEnd runAnalysis(AnalysisHost& host, const std::string& lineEnd = reportLineEnd());
// The same with the data coming from `open` instead of the file system, so
// that data held in memory goes through the whole run.
RunEnd runAnalysis(AnalysisHost& host, const std::string& lineEnd, const DataFileOpener& open);

// The run's last step, for a model set that is read: finds the lowest BIC
// (NoLowBic and its message when there is none), warns when it is below the
// zero-BIC limit, works out the statistics and appends the report of
// `dataFile`. Any other reader of model sets ends the same way.
RunEnd reportModelSet(AnalysisHost& host, ModelSet& set, const std::filesystem::path& dataFile,
                      const std::string& lineEnd);

} // namespace tovarin

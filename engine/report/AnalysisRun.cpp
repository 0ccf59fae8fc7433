#include "engine/report/AnalysisRun.hpp"

#include "engine/ByteSource.hpp"
#include "engine/FileError.hpp"
#include "engine/report/BicStatistics.hpp"
#include "engine/report/DataFileReader.hpp"
#include "engine/report/LineReader.hpp"
#include "engine/report/Messages.hpp"
#include "engine/report/ModelSet.hpp"
#include "engine/report/ReportWriter.hpp"
#include "text/Val.hpp"

#include <system_error>

namespace tovarin {

namespace {

void refuse(AnalysisHost& host, const std::string& message) {
    host.showMessage(message);
    host.focusCountField();
}

} // namespace

std::unique_ptr<ByteSource> openDataFile(const std::filesystem::path& file) {
    // Opening a named pipe waits until something writes to it, which may be
    // never: the run must not hang on it, so it is refused before the open.
    std::error_code statusError;
    if (std::filesystem::is_fifo(file, statusError)) {
        throw FileError(file, "Is a named pipe, not a data file");
    }
    try {
        return std::make_unique<FileSource>(file);
    } catch (const FileError&) {
        // A file that vanished after the choice ends the run quietly; any
        // other failure to open it, or to tell, is an error with its reason.
        // Asking only after a failure spares the usual run a look-up.
        std::error_code ec;
        if (!std::filesystem::exists(file, ec) && !ec) {
            return nullptr;
        }
        throw;
    }
}

RunEnd runAnalysis(AnalysisHost& host, const std::string& lineEnd) {
    return runAnalysis(host, lineEnd, openDataFile);
}

RunEnd runAnalysis(AnalysisHost& host, const std::string& lineEnd, const DataFileOpener& open) {
    ModelSet set;

    const std::string count = host.countText();
    if (count.empty()) {
        refuse(host, kEmptyCountMessage + lineEnd);
        return RunEnd::EmptyCount;
    }
    // The bounds apply to the number as read, before it is cut to a whole count.
    const double wanted = Val(count);
    if (wanted < ModelSet::kMinModels || wanted > ModelSet::kMaxModels) {
        refuse(host, kBadCountMessage + lineEnd);
        return RunEnd::BadCount;
    }
    set.resize(static_cast<std::int64_t>(wanted));

    const std::optional<std::filesystem::path> chosen = host.chooseDataFile();
    if (!chosen) {
        return RunEnd::NoFile;
    }
    // The file stays open to the end of the run, through the zero-BIC message.
    const std::unique_ptr<ByteSource> file = open(*chosen);
    if (!file) {
        return RunEnd::NoFile;
    }
    LineReader reader(*file);
    readModels(reader, set);
    return reportModelSet(host, set, *chosen, lineEnd);
}

RunEnd reportModelSet(AnalysisHost& host, ModelSet& set, const std::filesystem::path& dataFile,
                      const std::string& lineEnd) {
    if (!findLowBic(set)) {
        refuse(host, kNoLowBicMessage);
        return RunEnd::NoLowBic;
    }
    if (lowBicBelowLimit(set)) {
        refuse(host, kZeroBicMessage);
    }
    computeResults(set);

    host.showResults();
    writeReport(host, set, dataFile, lineEnd);
    return RunEnd::Report;
}

} // namespace tovarin

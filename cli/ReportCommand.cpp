#include "cli/ReportCommand.hpp"

#include "cli/CliHost.hpp"
#include "engine/AnalysisRun.hpp"
#include "engine/FileError.hpp"

namespace tovarin {

namespace {

constexpr int kExitReport = 0;
constexpr int kExitNoResult = 1;
constexpr int kExitUsage = 2;

constexpr const char* kProgram = "tovarin-report";

void printUsage(std::ostream& stream) {
    stream << "Usage: " << kProgram << " COUNT FILE\n"
           << "Compares COUNT models (2-99) by their BIC, read from FILE, one model per line:\n"
           << "name, then a tab or a comma, then the BIC. Writes the report to standard output.\n"
           << "\n"
           << "  --help     show this help and exit\n"
           << "  --version  show the version and exit\n";
}

int usageError(std::ostream& err, const std::string& problem) {
    err << kProgram << ": " << problem << '\n';
    printUsage(err);
    return kExitUsage;
}

} // namespace

int reportCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::vector<std::string> operands;
    bool optionsEnded = false;
    for (const std::string& arg : args) {
        if (!optionsEnded && arg == "--help") {
            printUsage(out);
            return kExitReport;
        }
        if (!optionsEnded && arg == "--version") {
            out << kReportCommandVersion << '\n';
            return kExitReport;
        }
        if (!optionsEnded && arg == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && arg.size() > 2 && arg.starts_with("--")) {
            return usageError(err, "unknown option " + arg);
        } else {
            operands.push_back(arg);
        }
    }
    if (operands.size() < 2) {
        return usageError(err, operands.empty() ? "missing COUNT and FILE" : "missing FILE");
    }
    if (operands.size() > 2) {
        return usageError(err, "too many arguments");
    }

    CliHost host(operands[0], operands[1], out, err);
    try {
        switch (runAnalysis(host, "\n")) {
        case RunEnd::Report:
            return kExitReport;
        case RunEnd::EmptyCount:
        case RunEnd::BadCount:
            return kExitUsage;
        case RunEnd::NoFile:
            err << kProgram << ": \"" << operands[1] << "\": No such file\n";
            return kExitNoResult;
        case RunEnd::NoLowBic:
            return kExitNoResult;
        }
    } catch (const FileError& error) {
        err << kProgram << ": " << error.what() << '\n';
        return kExitNoResult;
    }
    return kExitNoResult;
}

} // namespace tovarin

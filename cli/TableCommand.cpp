#include "cli/TableCommand.hpp"

#include "cli/CliHost.hpp"
#include "cli/InputText.hpp"
#include "engine/BicStatistics.hpp"
#include "engine/DelimitedTableWriter.hpp"
#include "engine/FileError.hpp"
#include "engine/JsonTableWriter.hpp"
#include "engine/Messages.hpp"
#include "engine/ModelSet.hpp"
#include "engine/ModelTableReader.hpp"
#include "engine/PaperTableWriter.hpp"
#include "engine/ReportWriter.hpp"
#include "engine/TableDocument.hpp"
#include "engine/TableStatistics.hpp"
#include "text/Utf8.hpp"

#include <algorithm>
#include <utility>

namespace tovarin {

namespace {

constexpr int kExitDone = 0;
constexpr int kExitNoResult = 1;
constexpr const char* kPrefix = "tovarin-report: ";
constexpr std::int64_t kReportNameCharacters = 8;

std::string where(const std::string& file, std::int64_t line) {
    return line > 0 ? file + ":" + std::to_string(line) + ": " : file + ": ";
}

// The classic report of models that were read carefully: the same statistics,
// messages and text as `tovarin-report COUNT FILE` gives for a tidy file.
int writeClassicReport(const TableOptions& options, const std::vector<TableModel>& models,
                       std::ostream& out, std::ostream& err) {
    const std::string file = inputMessageName(options.file);
    if (models.size() < 2 || models.size() > 99) {
        err << kPrefix << file << ": " << models.size()
            << " model lines; the report compares 2 to 99 models (a table format takes any "
               "number)\n";
        return kExitNoResult;
    }
    ModelSet set;
    set.resize(std::ssize(models));
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        const TableModel& model = models[static_cast<std::size_t>(i - 1)];
        set.row(i).name = Left(model.name, kReportNameCharacters);
        set.row(i).bic = model.bic;
    }
    CliHost host(std::to_string(set.modelCount), inputDocumentName(options.file), out, err);
    if (!findLowBic(set)) {
        host.showMessage(kNoLowBicMessage);
        return kExitNoResult;
    }
    if (lowBicBelowLimit(set)) {
        host.showMessage(kZeroBicMessage);
    }
    computeResults(set);
    writeReport(host, set, inputDocumentName(options.file), "\n");
    return kExitDone;
}

} // namespace

int tableCommand(const TableOptions& options, std::ostream& out, std::ostream& err) {
    const std::string file = inputMessageName(options.file);
    ModelTableRead read;
    try {
        read = readModelTable(readInputText(options.file), options.count);
    } catch (const FileError& error) {
        err << kPrefix << error.what() << '\n';
        return kExitNoResult;
    } catch (const TableReadError& error) {
        err << kPrefix << where(file, error.line()) << error.what() << '\n';
        return kExitNoResult;
    }
    for (const TableNote& note : read.notes) {
        err << kPrefix << where(file, note.line) << note.text << '\n';
    }
    if (read.models.empty()) {
        err << kPrefix << file
            << ": no model lines (a name, then a tab, comma or semicolon, then "
               "the BIC)\n";
        return kExitNoResult;
    }
    if (options.format == TableFormat::Report) {
        return writeClassicReport(options, read.models, out, err);
    }

    TableDocument table{inputDocumentName(options.file), options.confidence,
                        computeTable(std::move(read.models), options.confidence)};
    if (options.sortByFile) {
        std::sort(table.rows.begin(), table.rows.end(),
                  [](const TableRow& a, const TableRow& b) { return a.line < b.line; });
    }
    std::string text;
    switch (options.format) {
    case TableFormat::Tsv:
        writeTsvTable(text, table);
        break;
    case TableFormat::Csv:
        writeCsvTable(text, table);
        break;
    case TableFormat::Json:
        writeJsonTable(text, table);
        break;
    case TableFormat::Markdown:
        writeMarkdownTable(text, table);
        break;
    case TableFormat::Latex:
        writeLatexTable(text, table);
        break;
    case TableFormat::Report: // written above
        break;
    }
    out << text;
    return kExitDone;
}

} // namespace tovarin

#include "cli/TableCommand.hpp"

#include "cli/CliHost.hpp"
#include "cli/InputText.hpp"
#include "engine/FileError.hpp"
#include "engine/report/AnalysisRun.hpp"
#include "engine/report/ModelSet.hpp"
#include "engine/table/DelimitedTableWriter.hpp"
#include "engine/table/JsonTableWriter.hpp"
#include "engine/table/ModelTableReader.hpp"
#include "engine/table/NumberText.hpp"
#include "engine/table/PaperTableWriter.hpp"
#include "engine/table/SvgChartWriter.hpp"
#include "engine/table/TableDocument.hpp"
#include "engine/table/TableStatistics.hpp"
#include "engine/table/TextSink.hpp"
#include "system/Files.hpp"
#include "text/Utf8.hpp"

#include <algorithm>
#include <utility>

namespace tovarin {

namespace {

constexpr const char* kPrefix = "tovarin-report: ";
// Past this many, the models of a tie are counted, not named.
constexpr std::size_t kTiesNamed = 10;

std::string where(const std::string& file, std::int64_t line) {
    return line > 0 ? file + ":" + std::to_string(line) + ": " : file + ": ";
}

// The classic report of models that were read carefully: the same statistics,
// messages and text as `tovarin-report COUNT FILE` gives for a tidy file.
ExitStatus writeClassicReport(const TableOptions& options, const std::vector<TableModel>& models,
                              std::ostream& out, std::ostream& err) {
    const std::string file = inputMessageName(options.file);
    const auto count = std::ssize(models);
    if (count < ModelSet::kMinModels || count > ModelSet::kMaxModels) {
        err << kPrefix << file << ": " << count << " model lines; the report compares "
            << ModelSet::kMinModels << " to " << ModelSet::kMaxModels
            << " models (a table format takes any "
               "number)\n";
        return ExitStatus::NoResult;
    }
    ModelSet set;
    set.resize(count);
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        const TableModel& model = models[static_cast<std::size_t>(i - 1)];
        set.row(i).name = Left(model.name, kNameCharacters);
        set.row(i).bic = model.bic;
    }
    CliHost host(std::to_string(set.modelCount), inputDocumentName(options.file), out, err);
    if (reportModelSet(host, set, sys::pathFromUtf8(inputDocumentName(options.file)), "\n") !=
        RunEnd::Report) {
        return ExitStatus::NoResult;
    }
    return ExitStatus::Done;
}

// Every model at the lowest BIC is marked best; a tie is worth saying.
void noteTie(const TableDocument& table, const std::string& file, std::ostream& err) {
    const std::vector<const TableRow*> tied = table.tiedBest();
    if (tied.size() < 2) {
        return;
    }
    err << kPrefix << file << ": " << tied.size() << " models share the lowest BIC, "
        << shortestText(tied.front()->bic) << ", and each is marked \"best model\": ";
    for (std::size_t i = 0; i < std::min(tied.size(), kTiesNamed); ++i) {
        err << (i == 0 ? "" : ", ") << '"' << tied[i]->name << "\" (line " << tied[i]->line << ')';
    }
    if (tied.size() > kTiesNamed) {
        err << " and " << tied.size() - kTiesNamed << " more";
    }
    err << '\n';
}

} // namespace

ExitStatus tableCommand(const TableOptions& options, std::ostream& out, std::ostream& err,
                        const InputReader& readInput) {
    const std::string file = inputMessageName(options.file);
    // The models' names are views of the text, which lives until the rows have their own copies.
    std::string text;
    ModelTableRead read;
    try {
        text = readInput(options.file);
        read = readModelTable(text, options.read);
    } catch (const FileError& error) {
        err << kPrefix << error.what() << '\n';
        return ExitStatus::NoResult;
    } catch (const TableReadError& error) {
        err << kPrefix << where(file, error.line()) << error.what() << '\n';
        return ExitStatus::NoResult;
    }
    for (const TableNote& note : read.notes) {
        err << kPrefix << where(file, note.line) << note.text << '\n';
    }
    if (read.models.empty()) {
        err << kPrefix << file
            << ": no model lines (a name, then a tab, comma or semicolon, then "
               "the BIC)\n";
        return ExitStatus::NoResult;
    }
    if (options.format == TableFormat::Report) {
        return writeClassicReport(options, read.models, out, err);
    }

    TableDocument table;
    table.file = inputDocumentName(options.file);
    table.confidence = options.confidence;
    table.scale = options.scale;
    table.rows = computeTable(std::move(read.models), options.confidence, options.scale);
    const bool paper =
        options.format == TableFormat::Markdown || options.format == TableFormat::Latex;
    table.columns = options.columns.empty() ? defaultColumns(paper) : options.columns;
    table.caption = options.caption.value_or("");
    table.label = options.label.value_or("");
    noteTie(table, file, err);
    if (options.sortByFile) {
        std::sort(table.rows.begin(), table.rows.end(),
                  [](const TableRow& a, const TableRow& b) { return a.line < b.line; });
    }
    table.gatherNames();
    read.unquotedNames.clear();
    std::string().swap(text);
    // The formats for scripts grow with the models and go out as they are made;
    // a paper table and the chart are read by people, and are small.
    TextSink sink(out);
    std::string written;
    switch (options.format) {
    case TableFormat::Tsv:
        writeTsvTable(sink, table);
        break;
    case TableFormat::Csv:
        writeCsvTable(sink, table);
        break;
    case TableFormat::Json:
        writeJsonTable(sink, table);
        break;
    case TableFormat::Markdown:
        writeMarkdownTable(written, table);
        break;
    case TableFormat::Latex: {
        std::vector<TableNote> notes;
        writeLatexTable(written, table, notes);
        for (const TableNote& note : notes) {
            err << kPrefix << where(file, note.line) << note.text << '\n';
        }
        break;
    }
    case TableFormat::Svg:
        writeSvgChart(written, table);
        break;
    case TableFormat::Report: // written above
        break;
    }
    sink.append(written);
    sink.flush();
    return ExitStatus::Done;
}

} // namespace tovarin

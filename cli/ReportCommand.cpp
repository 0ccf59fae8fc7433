#include "cli/ReportCommand.hpp"

#include "cli/ClassicHint.hpp"
#include "cli/CliHost.hpp"
#include "cli/InputText.hpp"
#include "cli/TableCommand.hpp"
#include "cli/TableOptions.hpp"
#include "engine/FileError.hpp"
#include "engine/Version.hpp"
#include "engine/report/AnalysisRun.hpp"
#include "text/Val.hpp"

#include <algorithm>

namespace tovarin {

namespace {

constexpr const char* kProgram = "tovarin-report";

constexpr const char* kSynopsis =
    "Usage: tovarin-report COUNT FILE\n"
    "       tovarin-report --format FORMAT [--count N] [--sort bic|file] [--confidence P] FILE\n";

constexpr const char* kHelp = R"(
Compares models by their BIC, read from FILE, one model per line: the name,
then a tab or a comma (or, in the table formats, a semicolon), then the BIC.

tovarin-report COUNT FILE
  The classic report of the first COUNT lines (2-99) on standard output, as the
  desktop app writes it: names cut to 8 characters, text that is no number read
  as 0, lines past COUNT ignored. When standard error is a terminal, one hint
  line may follow the messages if the file looks misread (a header line,
  semicolons or a decimal comma, names alike after the cut, COUNT not the
  number of model lines).

tovarin-report --format FORMAT [options] FILE
  Reads every model line of FILE (- for standard input) carefully; each
  problem is named by file and line number on standard error:
  - blank lines and a UTF-8 byte order mark are skipped;
  - a line with a tab is split at tabs only, else one with a semicolon at
    semicolons only, else at commas; "double-quoted" fields are unquoted
    ("" is a quote) and unquoted fields lose surrounding spaces;
  - a first line whose BIC is not a number is a header: skipped, with a note;
  - any other line whose BIC is not wholly a finite number (a decimal comma,
    text, an empty field) or that has no name is an error;
  - a name used twice gets a warning;
  - a FILE over 64 MiB is refused.

  FORMAT is one of:
    report    the classic report of every model read (there must be 2 to 99)
    tsv       tab-separated table with a header row (quoted as csv where needed)
    csv       comma-separated table (RFC 4180, CR LF line ends)
    json      one object: file, count, best_model, confidence, models
    markdown  pipe table with a "Table:" caption line, rounded for a paper
    latex     table with booktabs rules and a caption, rounded for a paper

  Table columns (fields of each JSON model): rank, name (whole), bic,
  delta_bic (BIC minus the lowest), weight (BIC posterior probability or
  Schwarz weight), cumulative_weight (in rank order), bayes_factor (best model
  against this one; null in JSON, Inf in tsv/csv, past the largest double),
  ln_bayes_factor (delta_bic/2), evidence (best model; else by delta_bic: weak
  up to 2, positive up to 6, strong up to 10, very strong above 10) and
  in_confidence_set (true for the smallest set of top models whose cumulative
  weight reaches P; tied models go in together). tsv, csv and json print every
  number in the shortest form that reads back as the same double.

  --count N          N must be the number of model lines, else an error
  --sort bic|file    rows by rank (the default) or in the file's order
  --confidence P     level of the confidence set, 0 < P <= 1 (default 0.95)

  --help     show this help and exit
  --version  show the version and exit

Exit status: 0 output written; 1 no result (a refused line or count, no model,
an unreadable FILE, no low BIC); 2 bad usage or a refused COUNT; 3 the output
could not be written (a full disk, a closed pipe).
)";

void printUsage(std::ostream& stream) {
    stream << kSynopsis << "Run 'tovarin-report --help' for the formats and options.\n";
}

ExitStatus usageError(std::ostream& err, const std::string& problem) {
    err << kProgram << ": " << problem << '\n';
    printUsage(err);
    return ExitStatus::Usage;
}

// After the classic run's own messages: at most one line on a likely misread.
void hintAboutClassicRead(const std::string& countText, const std::string& file,
                          std::ostream& err) {
    try {
        const auto count = static_cast<std::int64_t>(Val(countText));
        if (const auto hint = classicHint(readInputText(file), count, file)) {
            err << kProgram << ": hint: " << *hint << '\n';
        }
    } catch (const FileError&) {
        // The run read the file; one that can't be read again gets no hint.
    }
}

ExitStatus classicCommand(const std::vector<std::string>& operands, std::ostream& out,
                          std::ostream& err, bool hints) {
    CliHost host(operands[0], operands[1], out, err);
    try {
        switch (runAnalysis(host, "\n")) {
        case RunEnd::Report:
            break;
        case RunEnd::EmptyCount:
        case RunEnd::BadCount:
            return ExitStatus::Usage;
        case RunEnd::NoFile:
            err << kProgram << ": \"" << operands[1] << "\": No such file\n";
            return ExitStatus::NoResult;
        case RunEnd::NoLowBic:
            if (hints) {
                hintAboutClassicRead(operands[0], operands[1], err);
            }
            return ExitStatus::NoResult;
        }
    } catch (const FileError& error) {
        err << kProgram << ": " << error.what() << '\n';
        return ExitStatus::NoResult;
    }
    if (hints) {
        hintAboutClassicRead(operands[0], operands[1], err);
    }
    return ExitStatus::Done;
}

} // namespace

ExitStatus reportCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
                         bool hints) {
    std::vector<std::string> operands;
    bool optionsEnded = false;
    bool tableForm = false;
    for (const std::string& arg : args) {
        if (!optionsEnded && arg == "--help") {
            out << kSynopsis << kHelp;
            return ExitStatus::Done;
        }
        if (!optionsEnded && arg == "--version") {
            out << kProgram << ' ' << kShortVersion << '\n';
            return ExitStatus::Done;
        }
        if (!optionsEnded && arg == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && isTableOption(arg)) {
            tableForm = true;
        } else if (!optionsEnded && arg.size() > 2 && arg.starts_with("--")) {
            return usageError(err, "unknown option " + arg);
        } else {
            operands.push_back(arg);
        }
    }
    if (tableForm) {
        const auto parsed = parseTableOptions(args);
        if (const auto* problem = std::get_if<std::string>(&parsed)) {
            return usageError(err, *problem);
        }
        return tableCommand(std::get<TableOptions>(parsed), out, err);
    }
    if (operands.size() < 2) {
        return usageError(err, operands.empty() ? "missing COUNT and FILE" : "missing FILE");
    }
    if (operands.size() > 2) {
        return usageError(err, "too many arguments");
    }
    return classicCommand(operands, out, err, hints);
}

} // namespace tovarin

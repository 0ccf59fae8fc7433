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

constexpr const char* kSynopsis = "Usage: tovarin-report COUNT FILE\n"
                                  "       tovarin-report --format FORMAT [options] FILE\n";

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
  Reads every model line of FILE (- for standard input) carefully, as R,
  pandas, spreadsheets and Stata write tables; each problem is named by file
  and line number on standard error:
  - blank lines and a UTF-8 byte order mark are skipped;
  - every line is split as the first is: at tabs if it has one, else at
    semicolons, else at commas, else at runs of spaces (an aligned table, as
    R prints BIC() and AIC(); there `|` separates too, lines of dashes are
    skipped, and with three such rules, Stata's layout, so is what stands
    above and below them); "double-quoted" fields are unquoted ("" is a
    quote); spaces around fields and empty fields at a line's end don't count;
  - a first line whose BIC field is a word is a header (a note says which
    columns are read): the BIC is its column named BIC (any case), the name
    the first other column holding text (R's row names under an empty cell,
    or under none when the header is one cell short; not pandas' integer
    index); NA, NaN, Inf, an empty field or a number is never a header;
  - lines of more than two fields need a header or --bic-column, and every
    line has as many fields as the first;
  - where commas don't separate fields, a decimal comma is read (2451,37);
    one file keeps one decimal mark;
  - any other line whose BIC is not wholly a finite number, or that has no
    name, is an error; a name used twice gets a warning;
  - a FILE over 64 MiB is refused.

  FORMAT is one of:
    report    the classic report of every model read (there must be 2 to 99)
    tsv       tab-separated table with a header row (quoted as csv where needed)
    csv       comma-separated table (RFC 4180, CR LF line ends)
    json      one object: file, count, best_model, tied_best, confidence,
              scale, models
    markdown  pipe table with a "Table:" caption line, rounded for a paper,
              escaped for pandoc and GitHub
    latex     table with booktabs rules, \small, a caption and a \label,
              rounded for a paper, set by pdflatex with \usepackage{booktabs}
              alone (a warning names a package a name's characters need)
    svg       a figure of the weights, 85 mm wide (the 30 best models as bars)

  Table columns (fields of each JSON model): rank, name (whole), bic,
  delta_bic (BIC minus the lowest), weight (BIC posterior probability or
  Schwarz weight), cumulative_weight (in rank order), bayes_factor (best model
  against this one; null in JSON, Inf in tsv/csv, past the largest double),
  ln_bayes_factor (delta_bic/2), evidence, in_confidence_set (TRUE in tsv/csv,
  true in JSON, for the smallest set of top models whose cumulative weight
  reaches P; tied models go in together) and bic_source (read, or computed
  from log-likelihoods). tsv, csv and json print every number in the shortest
  form that reads back as the same double; markdown and latex leave out rank,
  cumulative_weight, ln_bayes_factor and bic_source unless --columns names them.

  Ties: every model at the lowest BIC is "best model" and a note on standard
  error names them; JSON's best_model is the first, tied_best lists them all.

  Evidence (--scale), for every other model:
    raftery   by delta_bic (Raftery 1995), the default: weak up to 2 (BF up to
              2.7), positive up to 6 (BF 20), strong up to 10 (BF 148), very
              strong above 10
    jeffreys  by the Bayes factor, as Lee & Wagenmakers (2013) tabulate
              Jeffreys: anecdotal up to BF 3 (delta_bic 2.2), moderate up to
              10 (4.6), strong up to 30 (6.8), very strong up to 100 (9.2),
              extreme above 100

  --count N               N must be the number of model lines, else an error
  --sep tab|comma|semicolon|space
                          split every line there (space: at runs of spaces
                          and tabs) instead of as the first line is
  --bic-column NAME|N     the BIC's column, by header cell (any case) or number
  --name-column NAME|N    the names' column
  --loglik-column NAME|N  compute each BIC as -2 logLik + k ln(n) from this
  --params-column NAME|N    column, k (every parameter, as logLik()'s df and
  --nobs N|NAME             AICcmodavg's K count them) from this one, and n
                            from --nobs: a number, or a column's name
  --sort bic|file         rows by rank (the default) or in the file's order
  --confidence P          level of the confidence set, 0 < P <= 1 (default
                          0.95; 1 takes every model)
  --columns LIST          the columns, comma-separated, in their order, for
                          every table format (e.g. rank,name,bic,weight)
  --scale raftery|jeffreys  the evidence scale (see above)
  --caption TEXT          markdown and latex: the caption, as plain text
                          (default: what was compared and what the columns mean)
  --label NAME            latex: the \label (default tab: and the file's name
                          without its path and extension)

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
                         bool hints, const InputReader& readInput) {
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
        return tableCommand(std::get<TableOptions>(parsed), out, err, readInput);
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

#include "engine/report/ReportWriter.hpp"

#include "engine/Version.hpp"
#include "engine/report/ReportCells.hpp"
#include "system/Files.hpp"
#include "text/Format.hpp"

#include <string_view>

namespace tovarin {

namespace {

constexpr std::int64_t kHeadingWidth = 20;
constexpr std::int64_t kNameWidth = 20;
constexpr std::int64_t kBicWidth = 25;
constexpr std::int64_t kDifferenceWidth = 25;
constexpr std::int64_t kProbabilityWidth = 23;
constexpr std::int64_t kBayesFactorWidth = 20;

// The bold covers the start of everything in the results, not this report.
constexpr std::int64_t kBoldStart = 1;
constexpr std::int64_t kBoldLength = 100;

void appendLine(AnalysisHost& host, std::string& piece, std::string_view text,
                const std::string& lineEnd) {
    piece.assign(text).append(lineEnd);
    host.appendResults(piece);
}

// Each cell is one piece, built in `piece` and numbers in `number`, so that a
// row costs no allocations.
void appendRow(AnalysisHost& host, const ModelRow& row, const std::string& lineEnd,
               std::string& piece, FormatBuffer& number) {
    piece.clear();
    appendShrinkingCell(piece, row.name, kNameWidth);
    host.appendResults(piece);
    piece.clear();
    appendShrinkingCell(piece, formatTo(number, row.bic, kBicMask), kBicWidth);
    host.appendResults(piece);
    piece.clear();
    appendShrinkingCell(piece, formatTo(number, row.difference, kDifferenceMask), kDifferenceWidth);
    host.appendResults(piece);
    piece.clear();
    appendShrinkingCell(piece, probabilityText(row.probability, number), kProbabilityWidth);
    host.appendResults(piece);
    piece.clear();
    appendFixedCell(piece, bayesFactorText(row.bayesFactor, number), kBayesFactorWidth);
    piece += lineEnd;
    host.appendResults(piece);
}

} // namespace

void writeReport(AnalysisHost& host, const ModelSet& set, const std::filesystem::path& dataFile,
                 const std::string& lineEnd) {
    std::string piece;
    piece.reserve(2 * kPadLength);

    const DateTimeText now = host.currentDateTime();
    piece.append("Date: ").append(now.shortDate).append("  ").append(now.shortTime);
    piece.append(lineEnd).append("File: ").append(sys::utf8FromPath(dataFile.filename()));
    piece.append(lineEnd).append(lineEnd);
    host.appendResults(piece);

    const std::string rule = ruleLine() + lineEnd;
    host.appendResults(rule);
    piece.clear();
    for (const std::string_view heading : {"Model", " BIC", "Tovarin", "prob*", "BF**"}) {
        appendFixedCell(piece, heading, kHeadingWidth);
    }
    piece += lineEnd;
    host.appendResults(piece);
    host.appendResults(rule);
    FormatBuffer number; // NOLINT: filled as far as it is used
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        appendRow(host, set.row(i), lineEnd, piece, number);
    }
    host.appendResults(rule);
    appendLine(host, piece, "* BIC posterior probability or Schwarz weight", lineEnd);
    appendLine(host, piece, "** Bayes Factor with best model compared to each candidate model",
               lineEnd);
    host.setResultsBold(kBoldStart, kBoldLength);
    piece.assign(lineEnd).append(kCreditLine);
    piece.append(lineEnd).append(lineEnd).append(lineEnd);
    host.appendResults(piece);
}

} // namespace tovarin

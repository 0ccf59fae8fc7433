#include "engine/ReportWriter.hpp"

#include "engine/Credit.hpp"
#include "engine/ReportCells.hpp"
#include "text/Format.hpp"

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

// Each cell is one piece, built in `piece` so that a row costs no allocations.
void appendRow(AnalysisHost& host, const ModelRow& row, const std::string& lineEnd,
               std::string& piece) {
    piece.clear();
    appendShrinkingCell(piece, row.name, kNameWidth);
    host.appendResults(piece);
    piece.clear();
    appendShrinkingCell(piece, Format(row.bic, kBicNumberMask), kBicWidth);
    host.appendResults(piece);
    piece.clear();
    appendShrinkingCell(piece, Format(row.difference, kDifferenceNumberMask), kDifferenceWidth);
    host.appendResults(piece);
    piece.clear();
    appendShrinkingCell(piece, probabilityText(row.probability), kProbabilityWidth);
    host.appendResults(piece);
    piece.clear();
    appendFixedCell(piece, bayesFactorText(row.bayesFactor), kBayesFactorWidth);
    piece += lineEnd;
    host.appendResults(piece);
}

} // namespace

void writeReport(AnalysisHost& host, const ModelSet& set, const std::filesystem::path& dataFile,
                 const std::string& lineEnd) {
    const DateTimeText now = host.currentDateTime();
    host.appendResults("Date: " + now.shortDate + "  " + now.shortTime + lineEnd +
                       "File: " + dataFile.filename().string() + lineEnd + lineEnd);

    const std::string rule = ruleLine() + lineEnd;
    host.appendResults(rule);
    host.appendResults(fixedCell("Model", kHeadingWidth) + fixedCell(" BIC", kHeadingWidth) +
                       fixedCell("Tovarin", kHeadingWidth) + fixedCell("prob*", kHeadingWidth) +
                       fixedCell("BF**", kHeadingWidth) + lineEnd);
    host.appendResults(rule);
    std::string piece;
    piece.reserve(kPadLength + 32);
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        appendRow(host, set.row(i), lineEnd, piece);
    }
    host.appendResults(rule);
    host.appendResults("* BIC posterior probability or Schwarz weight" + lineEnd);
    host.appendResults("** Bayes Factor with best model compared to each candidate model" +
                       lineEnd);
    host.setResultsBold(kBoldStart, kBoldLength);
    host.appendResults(lineEnd + kCreditLine + lineEnd + lineEnd + lineEnd);
}

} // namespace tovarin

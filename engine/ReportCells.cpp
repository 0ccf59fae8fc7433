#include "engine/ReportCells.hpp"

#include "engine/BicStatistics.hpp"
#include "text/Format.hpp"
#include "text/Utf8.hpp"
#include "text/Val.hpp"

#include <cmath>

namespace tovarin {

namespace {

constexpr double kBayesFactorLimit = 99999.0;

std::string padded(std::string_view text) {
    std::string cell;
    cell.reserve(text.size() + padText().size());
    cell += text;
    cell += padText();
    return cell;
}

} // namespace

const std::string& padText() {
    static const std::string pad(99, ' ');
    return pad;
}

const std::string& ruleLine() {
    static const std::string rule = [] {
        const std::string ruleText = "–––––––––"; // nine en dashes
        std::string line;
        for (int i = 0; i < 7; ++i) {
            line += ruleText;
        }
        return line;
    }();
    return rule;
}

std::string fixedCell(std::string_view text, std::int64_t width) {
    return Left(padded(text), width);
}

std::string shrinkingCell(std::string_view text, std::int64_t width) {
    return Left(padded(text), width - Len(text));
}

// The replacements test the number that the text shows, not the stored double,
// so a value that prints as 0.0001 or 99999.0 keeps its digits.
std::string probabilityText(double probability) {
    std::string text = Format(probability, kProbabilityMask);
    if (std::isfinite(probability) && kZeroBicLimit > Val(text)) {
        return "<.0001";
    }
    return text;
}

std::string bayesFactorText(double bayesFactor) {
    std::string text = Format(bayesFactor, kBayesFactorMask);
    if ((std::isinf(bayesFactor) && bayesFactor > 0) ||
        (std::isfinite(bayesFactor) && Val(text) > kBayesFactorLimit)) {
        return ">99999";
    }
    return text;
}

} // namespace tovarin

#include "engine/ReportCells.hpp"

#include "engine/BicStatistics.hpp"
#include "text/Format.hpp"
#include "text/Utf8.hpp"
#include "text/Val.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace tovarin {

namespace {

constexpr double kBayesFactorLimit = 99999.0;

constexpr std::array<char, kPadLength> kPad = [] {
    std::array<char, kPadLength> pad{};
    pad.fill(' ');
    return pad;
}();
constexpr double kBayesFactorShortcut = 100000.0;

// Left of the text followed by padText, appended without building that text first.
void appendLeftOfPadded(std::string& out, std::string_view text, std::int64_t textLength,
                        std::int64_t count) {
    if (count <= textLength) {
        out += leftView(text, count);
        return;
    }
    const auto spaces =
        std::min<std::int64_t>(count - textLength, static_cast<std::int64_t>(kPadLength));
    out += text;
    out.append(kPad.data(), static_cast<std::size_t>(spaces));
}

} // namespace

std::string_view padText() {
    return {kPad.data(), kPad.size()};
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

void appendFixedCell(std::string& out, std::string_view text, std::int64_t width) {
    appendLeftOfPadded(out, text, Len(text), width);
}

void appendShrinkingCell(std::string& out, std::string_view text, std::int64_t width) {
    const std::int64_t length = Len(text);
    appendLeftOfPadded(out, text, length, width - length);
}

std::string fixedCell(std::string_view text, std::int64_t width) {
    std::string cell;
    appendFixedCell(cell, text, width);
    return cell;
}

std::string shrinkingCell(std::string_view text, std::int64_t width) {
    std::string cell;
    appendShrinkingCell(cell, text, width);
    return cell;
}

// The replacements test the number that the text shows, not the stored double,
// so a value that prints as 0.0001 or 99999.0 keeps its digits. Rounding to
// four or two places never takes a value at or above a limit below it, so
// those values skip the read-back; a Bayes factor of 100000 or more, infinity
// included, always shows a number above 99999.
std::string probabilityText(double probability) {
    std::string text = Format(probability, kProbabilityNumberMask);
    if (probability < kZeroBicLimit && kZeroBicLimit > Val(text)) {
        return "<.0001";
    }
    return text;
}

std::string bayesFactorText(double bayesFactor) {
    if (bayesFactor >= kBayesFactorShortcut) {
        return ">99999";
    }
    std::string text = Format(bayesFactor, kBayesFactorNumberMask);
    if (Val(text) > kBayesFactorLimit) {
        return ">99999";
    }
    return text;
}

} // namespace tovarin

#include "engine/report/ReportCells.hpp"

#include "engine/report/BicStatistics.hpp"
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
constexpr double kProbabilityShortcut = 0.00004;

// Left of the text followed by the padding, appended without building that text first.
void appendLeftOfPadded(std::string& out, std::string_view text, std::int64_t textLength,
                        std::int64_t count) {
    if (count <= textLength) {
        out += Left(text, count);
        return;
    }
    const auto spaces =
        std::min<std::int64_t>(count - textLength, static_cast<std::int64_t>(kPadLength));
    out += text;
    // All of the padding, then cut back: a copy of fixed size is a few moves,
    // while one of varying size costs more than these few bytes are worth.
    out.append(kPad.data(), kPad.size());
    out.resize(out.size() - kPadLength + static_cast<std::size_t>(spaces));
}

} // namespace

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

// The replacements test the number that the text shows, not the stored double,
// so a value that prints as 0.0001 or 99999.0 keeps its digits. Rounding to
// four or two places may bring a value onto 0.0001 or 99999 but never past
// it, so only values already on the replaced side need the read-back. Far
// from the limit no read-back is needed either: a Bayes factor of 100000 or
// more, infinity included, always shows a number above 99999, and a
// probability below 0.00004 prints as 0.00 or less, below 0.0001 when read.
std::string_view probabilityText(double probability, FormatBuffer& buffer) {
    if (probability < kProbabilityShortcut) {
        return "<.0001";
    }
    const std::string_view text = formatTo(buffer, probability, kProbabilityMask);
    if (probability < kZeroBicLimit && kZeroBicLimit > Val(text)) {
        return "<.0001";
    }
    return text;
}

std::string_view bayesFactorText(double bayesFactor, FormatBuffer& buffer) {
    if (bayesFactor >= kBayesFactorShortcut) {
        return ">99999";
    }
    const std::string_view text = formatTo(buffer, bayesFactor, kBayesFactorMask);
    if (bayesFactor >= kBayesFactorLimit && Val(text) > kBayesFactorLimit) {
        return ">99999";
    }
    return text;
}

} // namespace tovarin

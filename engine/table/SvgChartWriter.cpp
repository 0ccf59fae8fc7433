#include "engine/table/SvgChartWriter.hpp"

#include "engine/table/NumberText.hpp"
#include "text/Utf8.hpp"

#include <array>

namespace tovarin {

namespace {

// User units; four make a millimetre, so the figure is 85 mm wide.
constexpr double kWidth = 340.0;
constexpr double kUnitsPerMillimetre = 4.0;
constexpr double kMargin = 6.0;
constexpr double kNameFont = 9.0; // about 6.5 pt
constexpr double kSmallFont = 8.5;
constexpr double kBarLeft = 108.0;
constexpr double kBarWidth = 140.0;
constexpr double kDeltaRight = 284.0;
constexpr double kEvidenceLeft = 288.0;
constexpr double kTop = 18.0; // the first row's top, below the headings
constexpr double kRowHeight = 14.0;
constexpr double kBarHeight = 9.0;
// Names longer than this many characters keep their two ends around an ellipsis.
constexpr std::int64_t kNameCharacters = 17;
constexpr std::array<double, 5> kTicks{0.0, 0.25, 0.5, 0.75, 1.0};

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

// A coordinate or length: two decimals at most, no trailing zeros.
std::string number(double value) {
    std::string text = fixedText(value, 2);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

// Text as XML character data or an attribute value. XML 1.0 has no place for
// most control characters, and a file's name need not be UTF-8: either
// becomes U+FFFD.
void appendEscaped(std::string& out, std::string_view text) {
    for (std::size_t pos = 0; pos < text.size();) {
        const auto byte = static_cast<unsigned char>(text[pos]);
        const std::size_t length = utf8CharLength(text, pos);
        if (byte >= 0x80U) {
            out += length > 1 ? text.substr(pos, length) : kReplacementCharacter;
        } else if (byte < 0x20U && byte != '\t') {
            out += kReplacementCharacter;
        } else {
            switch (byte) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += static_cast<char>(byte);
            }
        }
        pos += length;
    }
}

// The name as the bar's label: whole, or its two ends around an ellipsis.
std::string shownName(std::string_view name) {
    const std::int64_t length = Len(name);
    if (length <= kNameCharacters) {
        return std::string(name);
    }
    const std::int64_t front = (kNameCharacters - 1) / 2;
    const std::int64_t back = kNameCharacters - 1 - front;
    const std::string_view head = Left(name, front);
    const std::string_view tail = name.substr(Left(name, length - back).size());
    return std::string(head) + "\u2026" + std::string(tail);
}

// A total weight with two significant digits, as the closing line gives it.
std::string totalWeightText(double weight) {
    if (weight == 0.0) {
        return "0";
    }
    if (weight >= 0.01) {
        return fixedText(weight, 2);
    }
    if (weight >= 0.0001) {
        return fixedText(weight, 4);
    }
    return scientificText(weight, 1);
}

void appendText(std::string& out, double x, double y, double size, std::string_view anchor,
                std::string_view text) {
    out += "  <text x=\"" + number(x) + "\" y=\"" + number(y) + "\" font-size=\"" + number(size) +
           "\"";
    if (!anchor.empty()) {
        out += " text-anchor=\"";
        out += anchor;
        out += '"';
    }
    out += '>';
    appendEscaped(out, text);
    out += "</text>\n";
}

void appendRect(std::string& out, double x, double y, double width, double height, bool filled) {
    out += "<rect x=\"" + number(x) + "\" y=\"" + number(y) + "\" width=\"" + number(width) +
           "\" height=\"" + number(height) + "\" fill=\"" + (filled ? "#404040" : "#ffffff") +
           "\" stroke=\"#000000\" stroke-width=\"0.8\"/>";
}

// "95", "99.9": the confidence level as a percentage without trailing zeros.
std::string percentText(double confidence) {
    return number(confidence * 100.0);
}

} // namespace

void writeSvgChart(std::string& out, const TableDocument& table) {
    std::size_t bars = 0;
    std::size_t rest = 0;
    double restWeight = 0.0;
    for (const TableRow& row : table.rows) {
        if (static_cast<std::size_t>(row.rank) <= kChartBars) {
            ++bars;
        } else {
            ++rest;
            restWeight += row.weight;
        }
    }
    const double axisY = kTop + static_cast<double>(bars) * kRowHeight + 2.0;
    const double restY = axisY + 33.0;
    const double legendY = restY + (rest > 0 ? 13.0 : 2.0);
    const double height = legendY + 8.0;
    const std::string percent = percentText(table.confidence);

    out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    out += "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"" +
           number(kWidth / kUnitsPerMillimetre) + "mm\" height=\"" +
           number(height / kUnitsPerMillimetre) + "mm\" viewBox=\"0 0 " + number(kWidth) + " " +
           number(height) + "\" font-family=\"sans-serif\" fill=\"#000000\">\n";
    out += "  <title>BIC weights of the " + std::to_string(table.rows.size()) + " models in ";
    appendEscaped(out, table.file);
    out += "</title>\n";
    out += "  <desc>One bar per model, its length the BIC weight (posterior probability); "
           "filled bars: the smallest set of top models holding " +
           percent + " % of the weight.</desc>\n";
    out += "  <rect x=\"0\" y=\"0\" width=\"" + number(kWidth) + "\" height=\"" + number(height) +
           "\" fill=\"#ffffff\"/>\n";

    // The grid first, so that the bars stand in front of it.
    for (const double tick : kTicks) {
        const std::string x = number(kBarLeft + tick * kBarWidth);
        out += "  <line x1=\"" + x + "\" y1=\"" + number(kTop - 2.0) + "\" x2=\"" + x + "\" y2=\"" +
               number(axisY) + "\" stroke=\"#c0c0c0\" stroke-width=\"0.5\"/>\n";
    }
    appendText(out, kMargin, kTop - 5.0, kSmallFont, "", "Model");
    appendText(out, kDeltaRight, kTop - 5.0, kSmallFont, "end", "\u0394BIC");
    appendText(out, kEvidenceLeft, kTop - 5.0, kSmallFont, "", "Evidence");

    double y = kTop;
    for (const TableRow& row : table.rows) {
        if (static_cast<std::size_t>(row.rank) > kChartBars) {
            continue;
        }
        const double baseline = y + kRowHeight / 2.0 + kNameFont * 0.35;
        out += "  <g>\n    <title>";
        appendEscaped(out, row.name);
        out += "</title>\n    ";
        appendRect(out, kBarLeft, y + (kRowHeight - kBarHeight) / 2.0, row.weight * kBarWidth,
                   kBarHeight, row.inConfidenceSet);
        out += "\n  ";
        appendText(out, kMargin, baseline, kNameFont, "", shownName(row.name));
        out += "  ";
        appendText(out, kDeltaRight, baseline, kSmallFont, "end", fixedText(row.deltaBic, 2));
        out += "  ";
        appendText(out, kEvidenceLeft, baseline, kSmallFont, "", evidenceLabel(row.evidence));
        out += "  </g>\n";
        y += kRowHeight;
    }
    out += "  <line x1=\"" + number(kBarLeft) + "\" y1=\"" + number(axisY) + "\" x2=\"" +
           number(kBarLeft + kBarWidth) + "\" y2=\"" + number(axisY) +
           "\" stroke=\"#000000\" stroke-width=\"0.8\"/>\n";
    for (const double tick : kTicks) {
        const double x = kBarLeft + tick * kBarWidth;
        out += "  <line x1=\"" + number(x) + "\" y1=\"" + number(axisY) + "\" x2=\"" + number(x) +
               "\" y2=\"" + number(axisY + 3.0) + "\" stroke=\"#000000\" stroke-width=\"0.8\"/>\n";
        appendText(out, x, axisY + 11.0, kSmallFont, "middle", number(tick));
    }
    appendText(out, kBarLeft + kBarWidth / 2.0, axisY + 20.0, kSmallFont, "middle",
               "BIC weight (posterior probability)");
    if (rest > 0) {
        appendText(out, kMargin, restY, kSmallFont, "",
                   std::to_string(rest) +
                       (rest == 1 ? " more model, weight " : " more models, weight ") +
                       totalWeightText(restWeight) + (rest == 1 ? "" : " together"));
    }

    out += "  ";
    appendRect(out, kMargin, legendY - 7.0, 9.0, 7.0, true);
    out += "\n";
    appendText(out, kMargin + 13.0, legendY, kSmallFont, "",
               "in the " + percent + " % confidence set");
    out += "  ";
    appendRect(out, kWidth / 2.0 + 20.0, legendY - 7.0, 9.0, 7.0, false);
    out += "\n";
    appendText(out, kWidth / 2.0 + 33.0, legendY, kSmallFont, "", "outside it");
    out += "</svg>\n";
}

} // namespace tovarin

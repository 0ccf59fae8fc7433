// Format on any double with each of the report's masks: the text has the
// mask's shape and reads back through Val as the value rounded to the mask's
// decimals; the report's two replaced cells follow the number they show.
#include "engine/report/ReportCells.hpp"
#include "text/Format.hpp"
#include "text/Val.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

using namespace tovarin;

using Mask = NumberMask;

constexpr std::array<Mask, 4> kMasks = {kBicMask, kDifferenceMask, kProbabilityMask,
                                        kBayesFactorMask};

[[noreturn]] void fail(const char* what, double value, std::string_view mask,
                       std::string_view text) {
    std::fprintf(stderr, "%s: Format(%.17g, \"%.*s\") = \"%.*s\"\n", what, value,
                 static_cast<int>(mask.size()), mask.data(), static_cast<int>(text.size()),
                 text.data());
    std::abort();
}

bool sameDouble(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void checkNonFinite(double value, const Mask& mask, const std::string& text) {
    const char* want = std::isnan(value)   ? "nan"
                       : value < 0         ? "-inf"
                       : mask.signPosition ? "+inf"
                                           : "inf";
    if (text != want) {
        fail("wrong text for a value that is not finite", value, mask.text, text);
    }
}

void checkFinite(double value, const Mask& mask, const std::string& text) {
    // Shape: optional sign, at least one integer digit, ".", least to most decimals.
    std::size_t pos = 0;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        if (text[pos] == '+' && !mask.signPosition) {
            fail("plus sign without a sign position", value, mask.text, text);
        }
        ++pos;
    } else if (mask.signPosition) {
        fail("no sign in the sign position", value, mask.text, text);
    }
    const std::size_t point = text.find('.', pos);
    if (point == std::string::npos || point == pos ||
        text.find_first_not_of("0123456789", pos) != point ||
        (text[pos] == '0' && point - pos > 1)) {
        fail("integer part malformed", value, mask.text, text);
    }
    const std::size_t decimals = text.size() - point - 1;
    if (decimals < static_cast<std::size_t>(mask.leastDecimals) ||
        decimals > static_cast<std::size_t>(mask.mostDecimals) ||
        text.find_first_not_of("0123456789", point + 1) != std::string::npos) {
        fail("decimals malformed", value, mask.text, text);
    }
    if (decimals > static_cast<std::size_t>(mask.leastDecimals) && text.back() == '0') {
        fail("trailing zero beyond the least decimals", value, mask.text, text);
    }

    // The text reads back as exactly the value rounded to the mask's most
    // decimals, written here by the C++ library on its own.
    std::array<char, 400> rounded{};
    const auto [end, ec] =
        std::to_chars(rounded.data(), rounded.data() + rounded.size() - 1, std::fabs(value),
                      std::chars_format::fixed, mask.mostDecimals);
    if (ec != std::errc{}) {
        fail("reference rounding failed", value, mask.text, text);
    }
    *end = '\0';
    const double magnitude = std::strtod(rounded.data(), nullptr);
    const double back = Val(text);
    if (!sameDouble(std::fabs(back), magnitude)) {
        fail("does not read back as the rounded value", value, mask.text, text);
    }
    if (magnitude != 0 && std::signbit(back) != std::signbit(value)) {
        fail("sign lost", value, mask.text, text);
    }
    // Rounding moves a value by at most half a unit of the last decimal.
    const double halfUnit = 0.5 * std::pow(10.0, -mask.mostDecimals);
    if (std::fabs(back - value) > halfUnit * (1 + 1e-9) + std::fabs(value) * 1e-15) {
        fail("rounded too far", value, mask.text, text);
    }
}

void checkReportCells(double value) {
    FormatBuffer buffer;
    const std::string probability(probabilityText(value, buffer));
    if (std::isfinite(value) && probability != "<.0001" && Val(probability) < 0.0001) {
        fail("tiny probability not replaced", value, kProbabilityMask.text, probability);
    }
    if (probability == "<.0001" && !(Val(Format(value, kProbabilityMask)) < 0.0001)) {
        fail("probability replaced wrongly", value, kProbabilityMask.text, probability);
    }
    const std::string factor(bayesFactorText(value, buffer));
    if (std::isfinite(value) && factor != ">99999" && Val(factor) > 99999) {
        fail("large Bayes factor not replaced", value, kBayesFactorMask.text, factor);
    }
    if (std::isinf(value) && value > 0 && factor != ">99999") {
        fail("infinite Bayes factor not replaced", value, kBayesFactorMask.text, factor);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size < sizeof(double)) {
        return 0;
    }
    double value = 0;
    std::memcpy(&value, bytes, sizeof value);
    for (const Mask& mask : kMasks) {
        const std::string text = Format(value, mask);
        for (const char c : text) {
            if (static_cast<unsigned char>(c) >= 0x80) {
                fail("not ASCII", value, mask.text, text);
            }
        }
        if (std::isfinite(value)) {
            checkFinite(value, mask, text);
        } else {
            checkNonFinite(value, mask, text);
        }
    }
    checkReportCells(value);
    return 0;
}

#include "text/Format.hpp"
#include "text/Val.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

namespace tovarin {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(Format, SignsAndValuesThatAreNotFinite) {
    // clang-format off
    const std::tuple<double, NumberMask, const char*> cases[] = {{-123.45, kBicMask, "-123.45"},
        {12, kBicMask, "+12.0"}, {0, kBicMask, "+0.0"}, {-0.0, kBicMask, "+0.0"}, {-0.00001, kBicMask, "+0.0"},
        {-0.00001, kDifferenceMask, "0.00"}, {-2.5, kDifferenceMask, "-2.50"}, {0.99999, kProbabilityMask, "1.00"},
        {9.996, kBayesFactorMask, "10.0"}, {1e20, kBicMask, "+100000000000000000000.0"},
        {kInf, kBicMask, "+inf"}, {-kInf, kBicMask, "-inf"}, {kInf, kBayesFactorMask, "inf"},
        {std::numeric_limits<double>::quiet_NaN(), kBicMask, "nan"}};
    // clang-format on
    for (const auto& [value, mask, text] : cases)
        EXPECT_EQ(Format(value, mask), text) << value << " through " << mask.text;
}

// The C library's fixed notation rounds the exact stored value to nearest,
// ties to even: what every mask must do before dropping trailing zeros.
std::string printfRounded(double value, const NumberMask& mask) {
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", mask.mostDecimals, std::fabs(value));
    std::string text = buffer;
    while (text.size() - text.find('.') - 1 > std::size_t(mask.leastDecimals) && text.back() == '0')
        text.pop_back();
    return text;
}

TEST(Format, RoundsLikePrintfAndReadsBackAsShown) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-8.0, 25.0);
    std::vector<double> values;
    for (int k = -4000; k <= 4000; ++k) {
        values.push_back(100.0 + k / 32.0); // halfway cases at four decimals
        values.push_back(k / 8.0);          // and at two
        values.push_back(std::nextafter(100.0 + k / 32.0, k % 2 == 0 ? 0.0 : 1e9));
        values.push_back(std::pow(10.0, exponent(random)) * (k % 3 == 0 ? -1.0 : 1.0));
    }
    for (const double value : values) {
        for (const NumberMask& mask : {kBicMask, kDifferenceMask, kProbabilityMask, kBayesFactorMask}) {
            const std::string text = Format(value, mask);
            const std::string expected = printfRounded(value, mask);
            ASSERT_GE(text.size(), expected.size());
            EXPECT_EQ(text.substr(text.size() - expected.size()), expected) << value;
            EXPECT_EQ(std::fabs(Val(text)), Val(expected)) << value << ' ' << text;
        }
    }
}

} // namespace
} // namespace tovarin

#include "text/Format.hpp"
#include "text/Val.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

namespace tovarin {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr NumberMask kBic = kBicMask, kDiff = kDifferenceMask, kProb = kProbabilityMask,
                           kBf = kBayesFactorMask;

struct FormatCase {
    double value;
    NumberMask mask;
    const char* expected;
};

class FormatWrites : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatWrites, TheMaskedText) {
    EXPECT_EQ(Format(GetParam().value, GetParam().mask), GetParam().expected)
        << GetParam().value << " through " << GetParam().mask.text;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(WorkedExample, FormatWrites, ::testing::Values(
    FormatCase{67.82, kBic, "+67.82"}, FormatCase{74.15, kBic, "+74.15"}, FormatCase{72.03, kBic, "+72.03"},
    FormatCase{0, kDiff, "0.00"}, FormatCase{6.3300000000000125, kDiff, "6.33"},
    FormatCase{4.210000000000008, kDiff, "4.21"}, FormatCase{0.8590623833788779, kProb, "0.8591"},
    FormatCase{0.036264581279120016, kProb, "0.0363"}, FormatCase{0.10467303534200216, kProb, "0.1047"},
    FormatCase{1, kBf, "1.0"}, FormatCase{23.68874403283124, kBf, "23.69"},
    FormatCase{8.207103009595842, kBf, "8.21"}));

INSTANTIATE_TEST_SUITE_P(Edges, FormatWrites, ::testing::Values(
    FormatCase{0, kProb, "0.00"}, FormatCase{0, kBf, "0.0"}, FormatCase{-123.45, kBic, "-123.45"},
    FormatCase{-0.5, kBic, "-0.5"}, FormatCase{0.1, kProb, "0.10"}, FormatCase{12, kBic, "+12.0"},
    FormatCase{100.123456, kBic, "+100.1235"}, FormatCase{2.3456, kBf, "2.35"},
    FormatCase{0.0304, kProb, "0.0304"}, FormatCase{0.99999, kProb, "1.00"},
    FormatCase{0.99996, kProb, "1.00"}, FormatCase{9.996, kBf, "10.0"}, FormatCase{0.00004, kProb, "0.00"},
    FormatCase{0.00005, kProb, "0.0001"}, FormatCase{100000, kBf, "100000.0"},
    FormatCase{1e7, kBf, "10000000.0"}, FormatCase{12345678.1234, kDiff, "12345678.1234"},
    FormatCase{1e20, kBic, "+100000000000000000000.0"}, FormatCase{2.675, kBf, "2.67"},
    FormatCase{100.03125, kBic, "+100.0312"}, FormatCase{100.09375, kBic, "+100.0938"},
    FormatCase{0, kBic, "+0.0"}, FormatCase{-0.0, kBic, "+0.0"}, FormatCase{-0.00001, kBic, "+0.0"},
    FormatCase{-0.00001, kDiff, "0.00"}, FormatCase{-2.5, kDiff, "-2.50"}));

INSTANTIATE_TEST_SUITE_P(NotFinite, FormatWrites, ::testing::Values(
    FormatCase{kInf, kBic, "+inf"}, FormatCase{-kInf, kBic, "-inf"}, FormatCase{kInf, kBf, "inf"},
    FormatCase{std::numeric_limits<double>::quiet_NaN(), kBic, "nan"}));
// clang-format on


// The C library's fixed notation rounds the exact stored value to nearest,
// ties to even: what every mask must do before dropping trailing zeros.
std::string printfRounded(double value, int most, int least) {
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", most, std::fabs(value));
    std::string text = buffer;
    while (text.size() - text.find('.') - 1 > static_cast<std::size_t>(least) &&
           text.back() == '0') {
        text.pop_back();
    }
    return text;
}

TEST(FormatProperties, RoundsLikeFixedNotationAndReadsBackAsShown) {
    struct Mask {
        NumberMask mask;
        int least, most;
    };
    const Mask masks[] = {{kBic, 1, 4}, {kDiff, 2, 4}, {kProb, 2, 4}, {kBf, 1, 2}};
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
        for (const Mask& m : masks) {
            const std::string text = Format(value, m.mask);
            const std::string expected = printfRounded(value, m.most, m.least);
            EXPECT_EQ(text.substr(text.size() - expected.size()), expected) << value;
            EXPECT_EQ(std::fabs(Val(text)), Val(expected)) << value << ' ' << text;
        }
    }
}

} // namespace
} // namespace tovarin

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

struct FormatCase {
    double value;
    std::string_view mask;
    const char* expected;
};

class FormatWrites : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatWrites, TheMaskedText) {
    EXPECT_EQ(Format(GetParam().value, GetParam().mask), GetParam().expected)
        << GetParam().value << " through " << GetParam().mask;
}

INSTANTIATE_TEST_SUITE_P(
    WorkedExample, FormatWrites,
    ::testing::Values(FormatCase{67.82, kBicMask, "+67.82"}, FormatCase{74.15, kBicMask, "+74.15"},
                      FormatCase{72.03, kBicMask, "+72.03"},
                      FormatCase{0.0, kDifferenceMask, "0.00"},
                      FormatCase{6.3300000000000125, kDifferenceMask, "6.33"},
                      FormatCase{4.210000000000008, kDifferenceMask, "4.21"},
                      FormatCase{0.8590623833788779, kProbabilityMask, "0.8591"},
                      FormatCase{0.036264581279120016, kProbabilityMask, "0.0363"},
                      FormatCase{0.10467303534200216, kProbabilityMask, "0.1047"},
                      FormatCase{1.0, kBayesFactorMask, "1.0"},
                      FormatCase{23.68874403283124, kBayesFactorMask, "23.69"},
                      FormatCase{8.207103009595842, kBayesFactorMask, "8.21"}));

INSTANTIATE_TEST_SUITE_P(
    Edges, FormatWrites,
    ::testing::Values(
        FormatCase{0.0, kProbabilityMask, "0.00"}, FormatCase{0.0, kBayesFactorMask, "0.0"},
        FormatCase{-123.45, kBicMask, "-123.45"}, FormatCase{-0.5, kBicMask, "-0.5"},
        FormatCase{0.85, kProbabilityMask, "0.85"}, FormatCase{0.1, kProbabilityMask, "0.10"},
        FormatCase{1.5, kBayesFactorMask, "1.5"}, FormatCase{12.0, kBicMask, "+12.0"},
        FormatCase{100.123456, kBicMask, "+100.1235"}, FormatCase{2.3456, kBayesFactorMask, "2.35"},
        FormatCase{0.0304, kProbabilityMask, "0.0304"}, FormatCase{1.0, kProbabilityMask, "1.00"},
        FormatCase{0.99999, kProbabilityMask, "1.00"},
        FormatCase{0.99996, kProbabilityMask, "1.00"}, FormatCase{9.996, kBayesFactorMask, "10.0"},
        FormatCase{0.00004, kProbabilityMask, "0.00"},
        FormatCase{0.00005, kProbabilityMask, "0.0001"},
        FormatCase{0.85906, kProbabilityMask, "0.8591"},
        FormatCase{8.2071, kBayesFactorMask, "8.21"},
        FormatCase{100000.0, kBayesFactorMask, "100000.0"},
        FormatCase{1e7, kBayesFactorMask, "10000000.0"},
        FormatCase{1234567.8901, kBicMask, "+1234567.8901"},
        FormatCase{12345678.1234, kDifferenceMask, "12345678.1234"},
        FormatCase{3269017.3724721107, kBayesFactorMask, "3269017.37"},
        FormatCase{1e20, kBicMask, "+100000000000000000000.0"}, FormatCase{0.0, kBicMask, "+0.0"},
        FormatCase{-0.0, kBicMask, "+0.0"}, FormatCase{-0.00001, kBicMask, "+0.0"},
        FormatCase{-0.00001, kDifferenceMask, "0.00"}, FormatCase{-2.5, kDifferenceMask, "-2.50"},
        FormatCase{0.5, "#.0", ".5"}, FormatCase{5.4, "0.", "5."}, FormatCase{7.0, "000", "007"}));

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(NotFinite, FormatWrites,
                         ::testing::Values(FormatCase{kInf, kBicMask, "+inf"},
                                           FormatCase{-kInf, kBicMask, "-inf"},
                                           FormatCase{kInf, kBayesFactorMask, "inf"},
                                           FormatCase{-kInf, kDifferenceMask, "-inf"},
                                           FormatCase{kNaN, kBicMask, "nan"},
                                           FormatCase{kNaN, kProbabilityMask, "nan"}));

TEST(FormatMasks, RefusesMasksOutsideItsGrammar) {
    for (const char* mask : {"#,##0.00", "0.0#0", "0.00%", "++0.0", "0..0"}) {
        EXPECT_THROW(Format(1.0, mask), std::invalid_argument) << mask;
    }
}

// The C library's fixed notation rounds the exact stored value to nearest,
// which is what every mask must do before dropping trailing zeros.
std::string printfRounded(double value, int decimals, int least) {
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, std::fabs(value));
    std::string text = buffer;
    while (text.size() - text.find('.') - 1 > static_cast<std::size_t>(least) &&
           text.back() == '0') {
        text.pop_back();
    }
    return text;
}

TEST(FormatProperties, RoundsLikeFixedNotationAndReadsBackAsShown) {
    struct Mask {
        std::string_view mask;
        int least;
        int most;
    };
    const Mask masks[] = {{kBicMask, 1, 4},
                          {kDifferenceMask, 2, 4},
                          {kProbabilityMask, 2, 4},
                          {kBayesFactorMask, 1, 2}};
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-8.0, 25.0);
    for (int i = 0; i < 3000; ++i) {
        const double value = std::pow(10.0, exponent(random)) * (i % 3 == 0 ? -1.0 : 1.0);
        for (const Mask& m : masks) {
            const std::string text = Format(value, m.mask);
            const std::string expected = printfRounded(value, m.most, m.least);
            EXPECT_NE(text.find(expected), std::string::npos) << value << ' ' << text;
            EXPECT_EQ(std::fabs(Val(text)), Val(expected)) << value << ' ' << text;
            EXPECT_LE(std::fabs(std::fabs(Val(text)) - std::fabs(value)),
                      0.5 * std::pow(10.0, -m.most) + std::fabs(value) * 1e-15)
                << value << ' ' << text;
        }
    }
}

TEST(FormatProperties, HalfwayAndNearHalfwayValuesRoundToNearestEven) {
    for (int k = -4000; k <= 4000; ++k) {
        const double tie4 = 100.0 + k / 32.0; // exact halfway cases at four decimals
        const double tie2 = k / 8.0;          // and at two
        EXPECT_EQ(Format(tie4, kDifferenceMask), (tie4 < 0 ? "-" : "") + printfRounded(tie4, 4, 2));
        EXPECT_EQ(Format(tie2, kBayesFactorMask),
                  (tie2 < 0 ? "-" : "") + printfRounded(tie2, 2, 1));
        const double near = std::nextafter(tie4, k % 2 == 0 ? 0.0 : 1e9);
        EXPECT_EQ(Format(near, kDifferenceMask), (near < 0 ? "-" : "") + printfRounded(near, 4, 2));
    }
    EXPECT_EQ(Format(100.03125, kBicMask), "+100.0312");
    EXPECT_EQ(Format(100.09375, kBicMask), "+100.0938");
    EXPECT_EQ(Format(2.675, kBayesFactorMask), "2.67"); // stored just below the half
    EXPECT_EQ(Format(1e15 + 0.5, kBayesFactorMask), "1000000000000000.5");
}

} // namespace
} // namespace tovarin

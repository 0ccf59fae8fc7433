#include "text/Val.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace tovarin {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

struct ValCase {
    const char* text;
    double expected;
};

class ValReads : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValReads, TheNumberAtTheFrontWithItsSign) {
    const double got = Val(GetParam().text);
    EXPECT_EQ(got, GetParam().expected) << '"' << GetParam().text << '"';
    EXPECT_EQ(std::signbit(got), std::signbit(GetParam().expected)) << GetParam().text;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Grammar, ValReads, ::testing::Values(
    ValCase{"", 0}, ValCase{"abc", 0}, ValCase{"-", 0}, ValCase{"+", 0}, ValCase{".", 0},
    ValCase{"-.", 0}, ValCase{"12abc", 12}, ValCase{"2e", 2}, ValCase{"2e+", 2}, ValCase{"2E-x", 2},
    ValCase{"07", 7}, ValCase{".5", 0.5}, ValCase{"5.", 5}, ValCase{" 67.82", 67.82},
    ValCase{"   +67.82", 67.82}, ValCase{"-1.5", -1.5}, ValCase{"1.5e3", 1500}, ValCase{"1.5E+3", 1500},
    ValCase{"5.e2", 500}, ValCase{"-.5e1", -5}, ValCase{"+-5", 0}, ValCase{"- 5", 0}, ValCase{"\t5", 0},
    ValCase{"1,5", 1}, ValCase{"1.2.3", 1.2}, ValCase{"0x1A", 0}, ValCase{"inf", 0}, ValCase{"nan", 0},
    ValCase{"-0", -0.0}, ValCase{"0.0001", 0.0001}, ValCase{"99999.01", 99999.01},
    ValCase{"4.9406564584124654e-324", 4.9406564584124654e-324}));

// from_chars gives up on these without a value; the sign and the size decide.
INSTANTIATE_TEST_SUITE_P(OutOfRange, ValReads, ::testing::Values(
    ValCase{"1e400", kInf}, ValCase{"-1e400", -kInf}, ValCase{"1e-400", 0}, ValCase{"-1e-400", -0.0},
    ValCase{"0.000e99999999999999999999999", 0}, ValCase{"1e99999999999999999999999", kInf},
    ValCase{"1000e-99999999999999999999", 0}, ValCase{"-0.001e99999999999999999999", -kInf}));
// clang-format on

// The C library's reader is an independent oracle for the nearest double.
double strtodC(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

TEST(ValLongNumbers, FiveThousandDigitsReadToTheNearestDouble) {
    std::string digits;
    for (int i = 0; digits.size() < 5000; ++i) {
        digits += std::to_string(i * 7919 % 1000000);
    }
    digits.resize(5000);
    digits[0] = '3';
    for (const std::string& text : {digits, "0." + digits, digits + "e-4990",
                                    "-" + digits.substr(0, 2500) + "." + digits.substr(2500)}) {
        EXPECT_EQ(Val(text), strtodC(text)) << text.substr(0, 40);
    }
    EXPECT_EQ(Val("0." + std::string(5000, '0') + "1e5001"), 1.0);
    EXPECT_EQ(Val(std::string(5000, '9')), kInf);
}

TEST(ValRoundTrip, ShortestAndLongFormsOfRandomDoubles) {
    std::mt19937_64 random(20260405);
    char buffer[64];
    for (int i = 0; i < 2000; ++i) {
        double value = 0;
        do {
            const std::uint64_t bits = random();
            std::memcpy(&value, &bits, sizeof value);
        } while (!std::isfinite(value));
        std::snprintf(buffer, sizeof buffer, "%.17g", value);
        EXPECT_EQ(Val(buffer), value) << buffer;
        std::snprintf(buffer, sizeof buffer, "%.25e", value);
        EXPECT_EQ(Val(buffer), strtodC(buffer)) << buffer;
    }
}

} // namespace
} // namespace tovarin

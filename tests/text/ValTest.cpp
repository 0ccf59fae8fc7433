#include "text/Val.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

namespace tovarin {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(Val, TheNumberAtTheFrontWithItsSign) {
    // clang-format off
    const std::pair<const char*, double> cases[] = {{"", 0}, {"abc", 0}, {"-", 0}, {".", 0}, {"-.", 0},
        {"12abc", 12}, {"2e", 2}, {"2e+", 2}, {"2E-x", 2}, {".5", 0.5}, {"5.", 5}, {"   +67.82", 67.82},
        {"5.e2", 500}, {"-.5e1", -5}, {"+-5", 0}, {"- 5", 0}, {"\t5", 0}, {"1,5", 1}, {"1.2.3", 1.2},
        {"0x1A", 0}, {"inf", 0}, {"nan", 0}, {"-0", -0.0}, {"1e400", kInf}, {"-1e400", -kInf},
        {"-1e-400", -0.0}, {"0.000e99999999999999999999999", 0}, {"1e99999999999999999999999", kInf},
        {"1000e-99999999999999999999", 0}, {"-0.001e99999999999999999999", -kInf}};
    // clang-format on
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(Val(text), expected) << '"' << text << '"';
        EXPECT_EQ(std::signbit(Val(text)), std::signbit(expected)) << text;
    }
}

// The C library's reader is an independent oracle for the nearest double.
TEST(Val, LongNumbersReadToTheNearestDoubleAsStrtodDoes) {
    std::string digits;
    for (int i = 0; digits.size() < 5000; ++i)
        digits += std::to_string(i * 7919 % 1000000);
    digits.resize(5000);
    digits[0] = '3';
    const std::string half = "-" + digits.substr(0, 2500) + "." + digits.substr(2500);
    const std::string tiny = "0." + std::string(5000, '0') + "1", huge(5000, '9');
    for (const std::string& text : {digits, "0." + digits, digits + "e-4990", half, tiny, huge}) {
        EXPECT_EQ(Val(text), std::strtod(text.c_str(), nullptr)) << text.substr(0, 40);
        // A marker with no digit behind it is no exponent: the number before it is read.
        for (const char* marker : {"e", "E+", "e-", "ex"})
            EXPECT_EQ(Val(text + marker), std::strtod(text.c_str(), nullptr)) << marker;
    }
    EXPECT_EQ(Val("0." + std::string(5000, '0') + "1e5001"), 1.0);
}

TEST(Val, ShortestAndLongFormsOfRandomDoubles) {
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
        EXPECT_EQ(Val(buffer), std::strtod(buffer, nullptr)) << buffer;
    }
}

} // namespace
} // namespace tovarin

// text/DoubleChars' fast_float and {fmt} side held against libstdc++'s
// std::to_chars and std::from_chars and glibc's printf, over edge values
// (powers of ten and two and their neighbours, subnormals, infinities, nan,
// -0) and random ones: any bit pattern, decimals as a BIC file holds them,
// exact halfway cases for fixed forms, exact midpoints between neighbouring
// doubles written with 770 digits, long digit strings, huge exponents and junk.
// Built with DoubleChars.cpp on the libraries' side (tests/numbers).
// Prints what it compared and what differed.
// Usage: number_oracle ROUNDS [SEED]; exit status 1 when anything differed.
#include "text/DoubleChars.hpp"

#include <array>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace tovarin;

struct Tally {
    const char* what;
    long long compared = 0;
    long long differed = 0;
};

Tally shortestTally{"shortest"};
Tally fixedTally{"fixed 0-20"};
Tally printfTally{"fixed vs printf"};
Tally halfwayTally{"fixed halfway"};
Tally scientificTally{"scientific 0-20"};
Tally readTally{"read"};
Tally midpointTally{"read midpoint"};

using Buffer = std::array<char, 2048>;
Buffer ours;
Buffer theirs;

std::uint64_t bitsOf(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

double fromBits(std::uint64_t bits) {
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

void differ(Tally& tally, const std::string& what, const std::string& a, const std::string& b) {
    if (++tally.differed <= 10) {
        std::printf("DIFFERS %s %s: ours \"%s\", the standard's \"%s\"\n", tally.what, what.c_str(),
                    a.c_str(), b.c_str());
    }
}

std::string hex(double value, int decimals = -1) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), decimals < 0 ? "%a" : "%a .%d", value, decimals);
    return text.data();
}

void checkShortest(double value) {
    ++shortestTally.compared;
    const std::string a(ours.data(), doubleToShortest(ours.begin(), ours.end(), value).ptr);
    const std::string b(theirs.data(), std::to_chars(theirs.begin(), theirs.end(), value).ptr);
    if (a != b) {
        differ(shortestTally, hex(value), a, b);
    }
}

void checkFixed(double value, int decimals, Tally& tally = fixedTally) {
    ++tally.compared;
    const std::string a(ours.data(), doubleToFixed(ours.begin(), ours.end(), value, decimals).ptr);
    const std::string b(
        theirs.data(),
        std::to_chars(theirs.begin(), theirs.end(), value, std::chars_format::fixed, decimals).ptr);
    if (a != b) {
        differ(tally, hex(value, decimals), a, b);
    }
    if (std::isfinite(value)) {
        ++printfTally.compared;
        std::snprintf(theirs.data(), theirs.size(), "%.*f", decimals, value);
        if (a != theirs.data()) {
            differ(printfTally, hex(value, decimals), a, theirs.data());
        }
    }
}

void checkScientific(double value, int digits) {
    ++scientificTally.compared;
    const std::string a(ours.data(),
                        doubleToScientific(ours.begin(), ours.end(), value, digits).ptr);
    const std::string b(theirs.data(), std::to_chars(theirs.begin(), theirs.end(), value,
                                                     std::chars_format::scientific, digits)
                                           .ptr);
    if (a != b) {
        differ(scientificTally, hex(value, digits), a, b);
    }
}

void checkRead(const std::string& text, Tally& tally = readTally) {
    ++tally.compared;
    // Out of range must leave the value as it was: both start from the same one.
    constexpr double kUntouched = 12345.678;
    double a = kUntouched;
    double b = kUntouched;
    const auto first = text.data();
    const auto last = text.data() + text.size();
    const auto [aEnd, aError] = doubleFromChars(first, last, a);
    const auto [bEnd, bError] = std::from_chars(first, last, b, std::chars_format::general);
    const bool same = aEnd == bEnd && aError == bError &&
                      (bitsOf(a) == bitsOf(b) ||
                       (std::isnan(a) && std::isnan(b) && std::signbit(a) == std::signbit(b)));
    if (!same) {
        std::array<char, 128> x{};
        std::array<char, 128> y{};
        std::snprintf(x.data(), x.size(), "%a error %d read %td", a, static_cast<int>(aError),
                      aEnd - first);
        std::snprintf(y.data(), y.size(), "%a error %d read %td", b, static_cast<int>(bError),
                      bEnd - first);
        differ(tally, "\"" + text.substr(0, 80) + "\"", x.data(), y.data());
    }
}

std::vector<double> edgeValues() {
    std::vector<double> edges;
    edges.insert(edges.end(),
                 {DBL_MAX,   -DBL_MAX,     DBL_MIN,       DBL_TRUE_MIN, -DBL_TRUE_MIN, HUGE_VAL,
                  -HUGE_VAL, std::nan(""), -std::nan(""), 1e-5,         1e-4,          1e-100,
                  0.0,       -0.0,         1.0,           -1.0,         0.1,           0.5,
                  1.5,       2.5,          0.125,         0.375,        1e15,          1e16,
                  1e17,      1e21,         1e22,          1e23,         0x1p53,        0x1p53 + 2,
                  9.5,       0.05,         0.005,         1e100,        4.35,          2.675,
                  1.005,     0.045,        67.82,         74.15,        72.03});
    edges.insert(edges.end(), {std::nextafter(DBL_MIN, 0.0), 123456789012345680000.0});
    for (int power = -325; power <= 309; ++power) {
        const double x = std::pow(10.0, power);
        for (const double y : {x, std::nextafter(x, 0.0), std::nextafter(x, HUGE_VAL), -x}) {
            edges.push_back(y);
        }
    }
    for (int power = -1075; power <= 1024; ++power) {
        const double x = std::ldexp(1.0, power);
        for (const double y : {x, std::nextafter(x, 0.0), std::nextafter(x, HUGE_VAL), 3 * x}) {
            edges.push_back(y);
        }
    }
    return edges;
}

} // namespace

int main(int argc, char** argv) {
    const long long rounds = argc > 1 ? std::atoll(argv[1]) : 1000000;
    std::mt19937_64 random(argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 20261123);
    const auto below = [&random](std::uint64_t n) { return random() % n; };

    for (const double value : edgeValues()) {
        checkShortest(value);
        for (int places = 0; places <= 20; ++places) {
            checkFixed(value, places);
            checkScientific(value, places);
        }
    }
    for (long long i = 0; i < rounds; ++i) {
        const double any = fromBits(random()); // subnormals, infinities and nans included
        const double decimal =
            static_cast<double>(static_cast<std::int64_t>(below(2000000000000ULL)) -
                                1000000000000LL) /
            std::pow(10.0, static_cast<double>(below(18)));
        const double scaled =
            std::pow(10.0, std::uniform_real_distribution<double>(-30, 30)(random)) *
            (below(2) != 0 ? 1 : -1);
        checkShortest(any);
        checkShortest(decimal);
        checkShortest(scaled);
        const int places = below(4) != 0 ? static_cast<int>(below(7)) : static_cast<int>(below(21));
        for (const double value : {any, decimal, scaled}) {
            checkFixed(value, places);
        }
        checkScientific(any, places);
        checkScientific(scaled, places);
        // Exact halfway cases for fixed: odd multiples of 2^-j at j - 1 places and fewer.
        const int j = 1 + static_cast<int>(below(24));
        const double half = std::ldexp(static_cast<double>(2 * (random() >> 20U) + 1), -j) *
                            (below(2) != 0 ? 1 : -1);
        checkFixed(half, std::max(0, j - 1 - static_cast<int>(below(3))), halfwayTally);
        checkFixed(half, j - 1, halfwayTally);

        // Reading: the standard's own texts, printf's, midpoints, long digit strings and junk.
        checkRead({theirs.data(), std::to_chars(theirs.begin(), theirs.end(), any).ptr});
        std::snprintf(theirs.data(), theirs.size(), "%.*g", 1 + static_cast<int>(below(25)),
                      scaled);
        checkRead(theirs.data());
        const double next = std::nextafter(any, any > 0 ? HUGE_VAL : -HUGE_VAL);
        if (std::isfinite(any) && any != 0 && std::isfinite(next)) {
            const long double midpoint =
                (static_cast<long double>(any) + static_cast<long double>(next)) / 2;
            std::snprintf(theirs.data(), theirs.size(), "%.*Le", 770, midpoint);
            const std::string text = theirs.data();
            // The exact midpoint, then cut or nudged in its last places.
            checkRead(text, midpointTally);
            const std::size_t e = text.find('e');
            std::string mantissa = text.substr(0, e);
            const std::string exponent = text.substr(e);
            while (mantissa.back() == '0') {
                mantissa.pop_back();
            }
            checkRead(mantissa + exponent, midpointTally);
            checkRead(mantissa + "1" + exponent, midpointTally);
            checkRead(
                mantissa.substr(0, 3 + below(std::min<std::size_t>(mantissa.size() - 2, 40))) +
                    exponent,
                midpointTally);
        }
        std::string digits = below(2) != 0 ? "-" : "";
        const auto length = below(8) == 0 ? below(1200) : below(25);
        for (std::uint64_t k = 0; k < length; ++k) {
            digits += static_cast<char>('0' + below(10));
        }
        if (below(2) != 0) {
            digits += ".";
            for (std::uint64_t k = 0, n = below(30); k < n; ++k) {
                digits += static_cast<char>('0' + below(10));
            }
        }
        if (below(2) != 0) {
            digits += below(2) != 0 ? "e" : "E";
            if (below(2) != 0) {
                digits += below(2) != 0 ? "-" : "+";
            }
            digits += std::to_string(below(4) != 0 ? below(400) : random() % 100000000000ULL);
        }
        checkRead(digits);
        constexpr std::string_view kJunk = "0123456789000.eE+--xXabfinINFtyAN()_ \t,;";
        std::string junk;
        for (std::uint64_t k = 0, n = below(14); k < n; ++k) {
            junk += kJunk[below(kJunk.size())];
        }
        checkRead(junk);
    }
    long long compared = 0;
    long long differed = 0;
    for (const Tally* tally : {&shortestTally, &fixedTally, &printfTally, &halfwayTally,
                               &scientificTally, &readTally, &midpointTally}) {
        std::printf("%-20s %12lld compared %8lld differ\n", tally->what, tally->compared,
                    tally->differed);
        compared += tally->compared;
        differed += tally->differed;
    }
    std::printf("all %lld compared, %lld differ\n", compared, differed);
    return differed == 0 ? 0 : 1;
}

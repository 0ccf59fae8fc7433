// One digest over the number texts the core writes and reads: every mask of
// the classic report, the shortest, fixed and scientific forms of the tables,
// Val and the careful reader's numbers (with a decimal point or a comma), for a
// stream of doubles and texts that every toolchain makes alike (raw
// mt19937_64 bits and exact IEEE arithmetic only: no pow, no library rounding).
// Equal digests on two toolchains: equal bytes. Usage: number_digest ROUNDS
#include "engine/table/ModelTableReader.hpp"
#include "engine/table/NumberText.hpp"
#include "text/Format.hpp"
#include "text/Val.hpp"

#include <array>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

namespace {

using namespace tovarin;

constexpr std::array<double, 23> kExactTens = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                               1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                               1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::string_view kJunk = "0123456789000.eE+--xXinfINFnaNA ,;\t";

// FNV-1a over every text, each closed by a byte no text holds.
class Digest {
public:
    void feed(std::string_view text) {
        for (const char c : text) {
            add(static_cast<unsigned char>(c));
        }
        add(0xff);
        ++texts_;
    }
    void feedBits(double value) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        if (std::isnan(value)) {
            bits = std::signbit(value) ? 1 : 2; // a nan's payload is no text's business
        }
        std::array<char, 32> text{};
        const int length = std::snprintf(text.data(), text.size(), "%016" PRIx64, bits);
        feed({text.data(), static_cast<std::size_t>(length)});
    }
    void feedRead(const std::optional<double>& value) {
        if (value) {
            feedBits(*value);
        } else {
            feed("none");
        }
    }
    std::uint64_t value() const { return hash_; }
    long long texts() const { return texts_; }

private:
    void add(unsigned byte) { hash_ = (hash_ ^ byte) * 1099511628211ULL; }
    std::uint64_t hash_ = 1469598103934665603ULL;
    long long texts_ = 0;
};

void writeAll(Digest& digest, double value) {
    for (const NumberMask* mask :
         {&kBicMask, &kDifferenceMask, &kProbabilityMask, &kBayesFactorMask}) {
        digest.feed(Format(value, *mask));
    }
    digest.feed(shortestText(value));
    digest.feed(fixedText(value, 2));
    digest.feed(fixedText(value, 3));
    digest.feed(scientificText(value, 2));
}

void readAll(Digest& digest, std::string text) {
    digest.feedBits(Val(text));
    digest.feedRead(parseWholeNumber(text));
    DecimalMark mark = DecimalMark::None;
    for (char& c : text) {
        c = c == '.' ? ',' : c;
    }
    digest.feedRead(parseFieldNumber(text, true, mark));
    digest.feed(std::to_string(static_cast<int>(mark)));
}

} // namespace

int main(int argc, char** argv) {
    const long long rounds = argc > 1 ? std::atoll(argv[1]) : 100000;
    std::mt19937_64 random(2026);
    const auto below = [&random](std::uint64_t n) { return random() % n; };
    // The same draw as an index, whatever the width of std::size_t.
    const auto index = [&below](std::size_t n) { return static_cast<std::size_t>(below(n)); };
    Digest digest;
    for (long long i = 0; i < rounds; ++i) {
        // One draw a statement: compilers evaluate the operands of one in different orders.
        double any = 0.0;
        const std::uint64_t bits = random();
        std::memcpy(&any, &bits, sizeof any);
        const auto count = static_cast<std::int64_t>(below(2000000000000ULL)) - 1000000000000LL;
        const double decimal = static_cast<double>(count) / kExactTens[index(13)];
        const auto halfOdd = static_cast<double>(2 * (random() >> 40U) + 1);
        const int halfPower = -static_cast<int>(1 + below(12));
        const double halfSign = below(2) != 0 ? 1 : -1;
        const double half = std::ldexp(halfOdd, halfPower) * halfSign;
        const auto bigWhole = static_cast<double>(random() >> below(64));
        const double bigScale = kExactTens[index(23)];
        const double big = bigWhole * bigScale * (below(2) != 0 ? 1 : -1);
        const double tinyWhole = static_cast<double>(random() >> 11U) / kExactTens[22];
        const double tinyScale = kExactTens[index(23)];
        const double tiny = tinyWhole / tinyScale / kExactTens[index(23)];
        for (const double value : {any, decimal, half, std::nextafter(half, 0.0), big, tiny}) {
            writeAll(digest, value);
        }
        for (const double value : {any, decimal, tiny}) {
            readAll(digest, shortestText(value));
        }
        std::string junk;
        const auto junkLength = below(16);
        for (std::uint64_t k = 0; k < junkLength; ++k) {
            junk += kJunk[index(kJunk.size())];
        }
        readAll(digest, junk);
        std::string digits = below(2) != 0 ? "-" : "";
        const auto length = below(8) != 0 ? below(30) : below(800);
        for (std::uint64_t k = 0; k < length; ++k) {
            digits += static_cast<char>('0' + below(10));
        }
        if (below(2) != 0) {
            digits += "." + std::to_string(random());
        }
        if (below(2) != 0) {
            digits += below(2) != 0 ? "e-" : "e";
            digits += std::to_string(below(3) != 0 ? below(330) : random());
        }
        readAll(digest, digits);
        readAll(digest, " +" + digits);
    }
    std::printf("digest %016" PRIx64 " over %lld texts\n", digest.value(), digest.texts());
}

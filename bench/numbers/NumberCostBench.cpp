// What the fast_float and {fmt} side of text/DoubleChars costs against the
// standard library's to_chars and from_chars, on the values a BIC file holds
// and on values near 1e200, whose fixed form is long. The standard library is
// used wherever it has these functions; this says why.
#include "text/DoubleChars.hpp"

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace tovarin;

std::vector<double> bicLike() {
    std::mt19937_64 random(2026);
    std::vector<double> values(4096);
    for (double& value : values) {
        value = static_cast<double>(random() % 100000000) / 1e4;
    }
    return values;
}

std::vector<double> nearHuge() {
    std::mt19937_64 random(2026);
    std::vector<double> values(4096);
    for (double& value : values) {
        value = std::ldexp(1.0 + static_cast<double>(random() % 1000) / 1000, 660);
    }
    return values;
}

// Runs `write` over `values` in turn: each call one value.
template <typename Write>
void writeEach(benchmark::State& state, const std::vector<double>& values, Write write) {
    std::array<char, 400> buffer{};
    std::size_t next = 0;
    for (auto _ : state) {
        char* const end =
            write(buffer.data(), buffer.data() + buffer.size(), values[next++ % values.size()]);
        benchmark::DoNotOptimize(end);
    }
}

void ShortestLibrary(benchmark::State& state) {
    writeEach(state, bicLike(),
              [](char* a, char* b, double v) { return doubleToShortest(a, b, v).ptr; });
}
void ShortestStandard(benchmark::State& state) {
    writeEach(state, bicLike(),
              [](char* a, char* b, double v) { return std::to_chars(a, b, v).ptr; });
}
void FixedLibrary(benchmark::State& state) {
    writeEach(state, state.range(0) != 0 ? nearHuge() : bicLike(),
              [](char* a, char* b, double v) { return doubleToFixed(a, b, v, 2).ptr; });
}
void FixedStandard(benchmark::State& state) {
    writeEach(state, state.range(0) != 0 ? nearHuge() : bicLike(), [](char* a, char* b, double v) {
        return std::to_chars(a, b, v, std::chars_format::fixed, 2).ptr;
    });
}
void ScientificLibrary(benchmark::State& state) {
    writeEach(state, bicLike(),
              [](char* a, char* b, double v) { return doubleToScientific(a, b, v, 2).ptr; });
}
void ScientificStandard(benchmark::State& state) {
    writeEach(state, bicLike(), [](char* a, char* b, double v) {
        return std::to_chars(a, b, v, std::chars_format::scientific, 2).ptr;
    });
}

// Reads the shortest texts of BIC-like values, one a call.
template <typename Read> void readEach(benchmark::State& state, Read read) {
    std::vector<std::string> texts;
    std::array<char, 64> buffer{};
    for (const double value : bicLike()) {
        texts.emplace_back(buffer.data(),
                           std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
    }
    std::size_t next = 0;
    for (auto _ : state) {
        const std::string& text = texts[next++ % texts.size()];
        double value = 0.0;
        read(text.data(), text.data() + text.size(), value);
        benchmark::DoNotOptimize(value);
    }
}
void ReadLibrary(benchmark::State& state) {
    readEach(state,
             [](const char* a, const char* b, double& v) { return doubleFromChars(a, b, v); });
}
void ReadStandard(benchmark::State& state) {
    readEach(state,
             [](const char* a, const char* b, double& v) { return std::from_chars(a, b, v); });
}

} // namespace

BENCHMARK(ShortestLibrary);
BENCHMARK(ShortestStandard);
BENCHMARK(FixedLibrary)->Arg(0)->Arg(1); // 1: values near 1e200
BENCHMARK(FixedStandard)->Arg(0)->Arg(1);
BENCHMARK(ScientificLibrary);
BENCHMARK(ScientificStandard);
BENCHMARK(ReadLibrary);
BENCHMARK(ReadStandard);

BENCHMARK_MAIN();

#include "cli/ReportCommand.hpp"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <streambuf>
#include <string>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr int kModels = 10000;

// Names as a model search names them, BICs spread over a few thousand units
// so that weights run from large to underflowing and Bayes factors overflow.
std::filesystem::path writeModels() {
    const auto file = std::filesystem::temp_directory_path() / "tovarin-bench-10000-models.csv";
    std::ofstream stream(file, std::ios::binary);
    stream << "model,BIC\n";
    for (int i = 1; i <= kModels; ++i) {
        stream << "lm_x" << i << "_age_sex," << 24000.0 + (i * 7919 % 10007) * 0.3713 << '\n';
    }
    return file;
}

// Standard output as a pipe's reader sees it: every byte passes, none is kept.
class CountingBuffer : public std::streambuf {
public:
    std::size_t bytes = 0;

protected:
    std::streamsize xsputn(const char*, std::streamsize count) override {
        bytes += static_cast<std::size_t>(count);
        return count;
    }
    int_type overflow(int_type c) override {
        ++bytes;
        return traits_type::not_eof(c);
    }
};

// The whole command as a pipeline calls it: read the file, statistics, JSON text.
void BM_TenThousandModelsToJson(benchmark::State& state) {
    const auto file = writeModels();
    const std::vector<std::string> args{"--format", "json", file.string()};
    for (auto _ : state) {
        CountingBuffer buffer;
        std::ostream out(&buffer);
        std::ostringstream err;
        const tovarin::ExitStatus status = tovarin::reportCommand(args, out, err);
        if (status != tovarin::ExitStatus::Done) {
            state.SkipWithError(err.str().c_str());
            break;
        }
        benchmark::DoNotOptimize(buffer.bytes);
    }
    std::filesystem::remove(file);
}
BENCHMARK(BM_TenThousandModelsToJson)->Unit(benchmark::kMillisecond);

} // namespace

// glibc fits its heap to the largest block freed so far and, between two
// runs, gives back a heap that grew past twice that: how often the loop paid
// page faults would depend on the sizes of the blocks, not on the work. Held
// fixed, every run reuses the heap the first one grew, as a run of the command
// that was its first would have had to touch it.
int main(int argc, char** argv) {
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
#endif
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}

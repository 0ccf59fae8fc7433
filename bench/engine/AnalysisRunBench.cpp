#include "engine/report/AnalysisRun.hpp"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

// A host that answers at once and keeps the report in a string, so the
// measurement is the engine alone: file, statistics and report text.
// Well above the report of 99 models (about 9.6 kB).
constexpr std::size_t kReportBytes = 16 * 1024;

class StringHost : public tovarin::AnalysisHost {
public:
    // Room for the whole report from the start, so no append reallocates.
    explicit StringHost(std::filesystem::path file) : file_(std::move(file)) {
        results.reserve(kReportBytes);
    }

    std::string countText() const override { return "99"; }
    void showMessage(const std::string&) override {}
    void focusCountField() override {}
    std::optional<std::filesystem::path> chooseDataFile() override { return file_; }
    void showResults() override {}
    void appendResults(std::string_view piece) override { results += piece; }
    void setResultsBold(std::int64_t, std::int64_t) override {}
    tovarin::DateTimeText currentDateTime() override { return {"4/5/26", "09:30"}; }

    std::string results;

private:
    std::filesystem::path file_;
};

std::filesystem::path writeModels() {
    const auto file = std::filesystem::temp_directory_path() / "tovarin-bench-99-models.txt";
    std::ofstream stream(file, std::ios::binary);
    for (int i = 1; i <= 99; ++i) {
        stream << "Model" << i << '\t' << 1000.0 + (i * 37 % 101) * 1.2345 << '\n';
    }
    return file;
}

void BM_AnalysisRun99Models(benchmark::State& state) {
    const auto file = writeModels();
    StringHost host(file);
    for (auto _ : state) {
        host.results.clear();
        const tovarin::RunEnd end = tovarin::runAnalysis(host, "\n");
        benchmark::DoNotOptimize(end);
        benchmark::DoNotOptimize(host.results.data());
    }
    state.SetLabel(std::to_string(host.results.size()) + " bytes of report");
    std::filesystem::remove(file);
}
BENCHMARK(BM_AnalysisRun99Models)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();

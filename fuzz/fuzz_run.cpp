// Any bytes as a data file, any count from 2 to 99, through the whole analysis
// run into the report, with the report's shape checked against the data.
#include "engine/ByteSource.hpp"
#include "engine/report/AnalysisRun.hpp"
#include "engine/report/BicStatistics.hpp"
#include "engine/report/Messages.hpp"
#include "engine/report/ReportCells.hpp"
#include "text/Utf8.hpp"
#include "text/Val.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tovarin;

// The report collected as a text area would hold it.
class StringHost : public AnalysisHost {
public:
    explicit StringHost(std::string count) : count_(std::move(count)) {}

    std::string countText() const override { return count_; }
    void showMessage(const std::string& text) override { messages.push_back(text); }
    void focusCountField() override {}
    std::optional<std::filesystem::path> chooseDataFile() override { return "fuzz-data.txt"; }
    void showResults() override { shown = true; }
    void appendResults(std::string_view piece) override {
        if (!shown) {
            fail("report text before the results were shown");
        }
        results += piece;
    }
    void setResultsBold(std::int64_t start, std::int64_t length) override {
        ++bolds;
        if (start != 1 || length != 100) {
            fail("bold over the wrong range");
        }
    }
    DateTimeText currentDateTime() override { return {"1/2/26", "03:04"}; }

    [[noreturn]] static void fail(const char* what) {
        std::fprintf(stderr, "invariant broken: %s\n", what);
        std::abort();
    }

    std::vector<std::string> messages;
    std::string results;
    bool shown = false;
    int bolds = 0;

private:
    std::string count_;
};

void check(bool condition, const char* what) {
    if (!condition) {
        StringHost::fail(what);
    }
}

// What the reader should make of the data, worked out here on its own: lines
// end at CR, LF or CR LF; a tab or a comma separates fields.
struct ExpectedRow {
    std::string name;
    double bic = 0.0;
};

std::vector<ExpectedRow> expectedRows(std::string_view data, std::size_t count) {
    std::vector<ExpectedRow> rows;
    std::size_t pos = 0;
    while (rows.size() < count) {
        std::size_t end = pos;
        while (end < data.size() && data[end] != '\n' && data[end] != '\r') {
            ++end;
        }
        const std::string_view line = data.substr(std::min(pos, data.size()), end - pos);
        if (end < data.size()) {
            pos = end +
                  ((data[end] == '\r' && end + 1 < data.size() && data[end + 1] == '\n') ? 2 : 1);
        } else {
            pos = data.size();
        }
        const std::size_t first = line.find_first_of("\t,");
        const std::string_view name = line.substr(0, first);
        std::string_view bic;
        if (first != std::string_view::npos) {
            bic = line.substr(first + 1);
            bic = bic.substr(0, bic.find_first_of("\t,"));
        }
        rows.push_back({std::string(Left(name, 8)), Val(bic)});
    }
    return rows;
}

std::vector<std::string_view> splitLines(std::string_view text, std::string_view lineEnd) {
    std::vector<std::string_view> lines;
    std::size_t pos = 0;
    for (std::size_t at = text.find(lineEnd); at != std::string_view::npos;
         at = text.find(lineEnd, pos)) {
        lines.push_back(text.substr(pos, at - pos));
        pos = at + lineEnd.size();
    }
    check(pos == text.size(), "report does not end with a line end");
    return lines;
}

constexpr std::array<std::string_view, 3> kLineEnds = {"\n", "\r", "\r\n"};
// Head (date, file, blank, rule, heading, rule) and tail (rule, two footnotes,
// blank, credit, two blanks) around one line per model.
constexpr std::size_t kHeadLines = 6;
constexpr std::size_t kTailLines = 7;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::size_t count = 2 + bytes[0] % 98;
    const std::string lineEnd(kLineEnds[(bytes[0] / 98) % kLineEnds.size()]);
    const std::string data(reinterpret_cast<const char*>(bytes) + 1, size - 1);

    StringHost host(std::to_string(count));
    const RunEnd end = runAnalysis(host, lineEnd, [&data](const std::filesystem::path& file) {
        return std::make_unique<MemorySource>(data, file);
    });

    const std::vector<ExpectedRow> rows = expectedRows(data, count);
    double lowest = kLowBicStart;
    for (const ExpectedRow& row : rows) {
        lowest = row.bic < lowest ? row.bic : lowest;
    }
    if (!(lowest < kLowBicStart)) {
        check(end == RunEnd::NoLowBic, "no BIC below the start value, yet no message");
        check(host.messages == std::vector<std::string>{kNoLowBicMessage}, "wrong messages");
        check(host.results.empty() && !host.shown, "report without a low BIC");
        return 0;
    }
    check(end == RunEnd::Report, "a low BIC but no report");
    const std::vector<std::string> zeroWarning{kZeroBicMessage};
    check(host.messages == (lowest < kZeroBicLimit ? zeroWarning : std::vector<std::string>{}),
          "zero-BIC warning given wrongly");
    check(host.bolds == 1, "bold set more or less than once");

    const std::vector<std::string_view> lines = splitLines(host.results, lineEnd);
    check(lines.size() == kHeadLines + count + kTailLines, "wrong number of report lines");
    check(lines[1] == "File: fuzz-data.txt", "wrong file line");
    for (const std::size_t rule : {kHeadLines - 3, kHeadLines - 1, kHeadLines + count}) {
        check(lines[rule] == ruleLine(), "rule line missing");
    }
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view line = lines[kHeadLines + i];
        const std::string& name = rows[i].name;
        check(line.starts_with(name), "row does not start with its model's name");
        const auto pad = static_cast<std::size_t>(20 - 2 * Len(name));
        check(line.substr(name.size(), pad).find_first_not_of(' ') == std::string_view::npos,
              "name cell not padded with spaces");
    }
    return 0;
}

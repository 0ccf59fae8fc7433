// The engine as the web page calls it: tovarin-report's own command and the
// desktop app's own run, on bytes the page holds, so that every table the page
// offers is the command's to the byte and the report is the app's. The page
// writes its input through the buffers below, calls one function, and reads
// standard output and standard error back from the result.
#include "cli/InputText.hpp"
#include "cli/ReportCommand.hpp"
#include "engine/HelpText.hpp"
#include "engine/report/AnalysisHost.hpp"
#include "engine/report/AnalysisRun.hpp"
#include "system/Files.hpp"

#include <emscripten/emscripten.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

namespace {

// The data file, kept for every run the page makes of it (a new confidence
// level, another format, another count).
std::string dataBytes;
// What the page hands over besides the data: fields separated by NUL.
std::string fields;

struct Result {
    std::string out;
    std::string err;
};
Result result;

std::vector<std::string> splitFields() {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= fields.size()) {
        const std::size_t end = std::min(fields.find('\0', start), fields.size());
        parts.push_back(fields.substr(start, end - start));
        start = end + 1;
    }
    return parts;
}

// The app's window as the page stands in for it: the count typed, the file
// dropped, the messages collected one a line, the date and time the browser
// gave in the user's locale.
class PageHost : public tovarin::AnalysisHost {
public:
    PageHost(std::string count, std::string file, tovarin::DateTimeText now)
        : count_(std::move(count)), file_(std::move(file)), now_(std::move(now)) {}

    std::string countText() const override { return count_; }
    void showMessage(const std::string& text) override {
        result.err += text;
        if (text.empty() || text.back() != '\n') {
            result.err += '\n';
        }
    }
    void focusCountField() override {}
    std::optional<std::filesystem::path> chooseDataFile() override {
        return std::filesystem::path(file_);
    }
    void showResults() override {}
    void appendResults(std::string_view piece) override { result.out += piece; }
    void setResultsBold(std::int64_t, std::int64_t) override {}
    tovarin::DateTimeText currentDateTime() override { return now_; }

private:
    std::string count_;
    std::string file_;
    tovarin::DateTimeText now_;
};

} // namespace

extern "C" {

// Room for `size` bytes of the data file, which the page then fills.
EMSCRIPTEN_KEEPALIVE char* tovarin_data_buffer(std::size_t size) {
    dataBytes.assign(size, '\0');
    return dataBytes.data();
}

// Room for `size` bytes of fields, separated by NUL.
EMSCRIPTEN_KEEPALIVE char* tovarin_fields_buffer(std::size_t size) {
    fields.assign(size, '\0');
    return fields.data();
}

// tovarin-report with the fields as its arguments; "-" or the file operand
// reads the data file. Returns the exit status.
EMSCRIPTEN_KEEPALIVE int tovarin_command() {
    result = Result{};
    std::ostringstream out;
    std::ostringstream err;
    // Held to the command's limit as a file is; the page hands over one byte
    // past it at most.
    const auto status =
        tovarin::reportCommand(splitFields(), out, err, false, [](const std::string& operand) {
            tovarin::checkInputSize(tovarin::sys::pathFromUtf8(operand), dataBytes.size());
            return dataBytes;
        });
    result.out = std::move(out).str();
    result.err = std::move(err).str();
    return static_cast<int>(status);
}

// The app's run: fields count, file name, short date, short time. Returns how
// it ended (engine/report/AnalysisRun.hpp's RunEnd); the report on standard
// output, the app's messages on standard error.
EMSCRIPTEN_KEEPALIVE int tovarin_report() {
    result = Result{};
    std::vector<std::string> parts = splitFields();
    parts.resize(4);
    PageHost host(parts[0], parts[1], {parts[2], parts[3]});
    const tovarin::RunEnd end =
        tovarin::runAnalysis(host, "\n", [](const std::filesystem::path& file) {
            return std::make_unique<tovarin::MemorySource>(dataBytes, file);
        });
    return static_cast<int>(end);
}

EMSCRIPTEN_KEEPALIVE const char* tovarin_out() {
    return result.out.data();
}
EMSCRIPTEN_KEEPALIVE std::size_t tovarin_out_size() {
    return result.out.size();
}
EMSCRIPTEN_KEEPALIVE const char* tovarin_err() {
    return result.err.data();
}
EMSCRIPTEN_KEEPALIVE std::size_t tovarin_err_size() {
    return result.err.size();
}

// The Information text (engine/HelpText.hpp).
EMSCRIPTEN_KEEPALIVE const char* tovarin_help() {
    return tovarin::helpText().data();
}
EMSCRIPTEN_KEEPALIVE std::size_t tovarin_help_size() {
    return tovarin::helpText().size();
}
}

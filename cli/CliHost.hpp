#pragma once

#include "engine/report/AnalysisHost.hpp"
#include "system/Files.hpp"

#include <filesystem>
#include <ostream>
#include <string>

namespace tovarin {

// The command line as an analysis host: the count and the file come from the
// arguments (the file's name as UTF-8 text), the report goes to `out` and the
// messages to `err`.
class CliHost : public AnalysisHost {
public:
    CliHost(std::string count, std::string_view file, std::ostream& out, std::ostream& err)
        : count_(std::move(count)), file_(sys::pathFromUtf8(file)), out_(out), err_(err) {}

    std::string countText() const override { return count_; }
    void showMessage(const std::string& text) override;
    void focusCountField() override {}
    std::optional<std::filesystem::path> chooseDataFile() override { return file_; }
    void showResults() override {}
    void appendResults(std::string_view piece) override { out_ << piece; }
    void setResultsBold(std::int64_t, std::int64_t) override {}
    DateTimeText currentDateTime() override;

private:
    std::string count_;
    std::filesystem::path file_;
    std::ostream& out_;
    std::ostream& err_;
};

} // namespace tovarin

#pragma once

#include "engine/AnalysisHost.hpp"

namespace tovarin {

class ControlWnd;

// What an analysis run started from the main window sees of it: the count
// field, the results area and the platform's dialogs. Lives for one run.
class RunHost final : public AnalysisHost {
public:
    explicit RunHost(ControlWnd& window) : window_(window) {}

    std::string countText() const override;
    void showMessage(const std::string& text) override;
    void focusCountField() override;
    std::optional<std::filesystem::path> chooseDataFile() override;
    void showResults() override;
    void appendResults(std::string_view piece) override;
    void setResultsBold(std::int64_t start, std::int64_t length) override;
    DateTimeText currentDateTime() override;

private:
    ControlWnd& window_;
};

} // namespace tovarin

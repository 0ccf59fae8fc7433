#pragma once

#include "engine/report/AnalysisHost.hpp"

#include <QTextCursor>

namespace tovarin {

class ControlWnd;

// What an analysis run started from the main window sees of it: the count
// field, the results area and the platform's dialogs. Lives for one run.
class RunHost final : public AnalysisHost {
public:
    explicit RunHost(ControlWnd& window) : window_(window) {}
    ~RunHost() override;
    RunHost(const RunHost&) = delete;
    RunHost& operator=(const RunHost&) = delete;

    std::string countText() const override;
    void showMessage(const std::string& text) override;
    void focusCountField() override;
    std::optional<std::filesystem::path> chooseDataFile() override;
    void showResults() override;
    void appendResults(std::string_view piece) override;
    void setResultsBold(std::int64_t start, std::int64_t length) override;
    DateTimeText currentDateTime() override;

private:
    void beginBatch();
    void endBatch();

    ControlWnd& window_;
    // Holds the pieces appended in a row as one edit, so the results area lays
    // them out once instead of once per piece. A change near the top (the bold)
    // ends the batch: in the same edit it would make the whole text laid out anew.
    std::optional<QTextCursor> batch_;
};

} // namespace tovarin

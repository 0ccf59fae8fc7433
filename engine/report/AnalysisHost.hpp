#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tovarin {

// The current date and time as the user's locale writes them in short form.
struct DateTimeText {
    std::string shortDate;
    std::string shortTime;
};

// Everything an analysis run needs of the window that started it. The desktop
// window and the command-line tool each implement it; tests use a fake.
class AnalysisHost {
public:
    virtual ~AnalysisHost() = default;

    // The text the user typed as the number of models.
    virtual std::string countText() const = 0;
    // A modal message with one dismiss button; returns once it is dismissed.
    virtual void showMessage(const std::string& text) = 0;
    // Gives the keyboard focus to the count field.
    virtual void focusCountField() = 0;
    // Lets the user pick one existing data file; nullopt when cancelled.
    virtual std::optional<std::filesystem::path> chooseDataFile() = 0;
    // Makes the results area visible.
    virtual void showResults() = 0;
    // Appends one piece of report text behind whatever the results hold.
    virtual void appendResults(std::string_view piece) = 0;
    // Sets bold over `length` characters of the whole results text, counted
    // from `start` (1 is the first character).
    virtual void setResultsBold(std::int64_t start, std::int64_t length) = 0;
    // The current local date and time, read once per report.
    virtual DateTimeText currentDateTime() = 0;
};

} // namespace tovarin

#pragma once

#include "engine/AnalysisHost.hpp"
#include "engine/ModelSet.hpp"

#include <vector>

namespace tovarin::test {

// Records every call of a run in order ("message", "focus", "choose", "show",
// "append", "bold START LENGTH"), the messages and all the results.
class FakeHost : public AnalysisHost {
public:
    std::string count, results;
    std::optional<std::filesystem::path> file;
    std::vector<std::string> events, messages;

    std::string countText() const override { return count; }
    void showMessage(const std::string& text) override { events.emplace_back("message"), messages.push_back(text); }
    void focusCountField() override { events.emplace_back("focus"); }
    std::optional<std::filesystem::path> chooseDataFile() override { return events.emplace_back("choose"), file; }
    void showResults() override { events.emplace_back("show"); }
    void appendResults(std::string_view piece) override { events.emplace_back("append"), results += piece; }
    void setResultsBold(std::int64_t start, std::int64_t length) override {
        events.push_back("bold " + std::to_string(start) + " " + std::to_string(length));
    }
    DateTimeText currentDateTime() override { return {"4/5/26", "09:30"}; }
};

// A model set of these BICs in this order, as the reader leaves it, named "M1", "M2", ...
inline ModelSet modelSet(const std::vector<double>& bics) {
    ModelSet set;
    set.resize(static_cast<std::int64_t>(bics.size()));
    for (std::int64_t i = 1; i <= set.modelCount; ++i)
        set.row(i) = {"M" + std::to_string(i), "", bics[std::size_t(i - 1)]};
    return set;
}

} // namespace tovarin::test

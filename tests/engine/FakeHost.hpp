#pragma once

#include "engine/AnalysisHost.hpp"
#include "engine/ModelSet.hpp"

#include <string>
#include <utility>
#include <vector>

namespace tovarin::test {

// Records every call of a run in order, so tests can check what happened and when.
class FakeHost : public AnalysisHost {
public:
    std::string count;
    std::optional<std::filesystem::path> file;
    std::vector<std::string> events;   // "message", "focus", "choose", "show", "append", "bold"
    std::vector<std::string> messages; // texts of showMessage
    std::vector<std::string> pieces;   // texts of appendResults
    std::string results;               // everything appended, as a text area would hold it

    std::string countText() const override { return count; }
    void showMessage(const std::string& text) override {
        events.emplace_back("message");
        messages.push_back(text);
    }
    void focusCountField() override { events.emplace_back("focus"); }
    std::optional<std::filesystem::path> chooseDataFile() override {
        events.emplace_back("choose");
        return file;
    }
    void showResults() override { events.emplace_back("show"); }
    void appendResults(std::string_view piece) override {
        events.emplace_back("append");
        pieces.emplace_back(piece);
        results += piece;
    }
    void setResultsBold(std::int64_t start, std::int64_t length) override {
        events.push_back("bold " + std::to_string(start) + " " + std::to_string(length));
    }
    DateTimeText currentDateTime() override { return {"4/5/26", "09:30"}; }
};

// A model set of these names and BICs, in this order, as the reader leaves it.
inline ModelSet modelSet(const std::vector<std::pair<std::string, double>>& models) {
    ModelSet set;
    set.resize(static_cast<std::int64_t>(models.size()));
    for (std::size_t i = 0; i < models.size(); ++i) {
        set.row(static_cast<std::int64_t>(i) + 1).name = models[i].first;
        set.row(static_cast<std::int64_t>(i) + 1).bic = models[i].second;
    }
    return set;
}

} // namespace tovarin::test

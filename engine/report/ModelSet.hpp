#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tovarin {

// The characters of a name that a report keeps.
inline constexpr std::int64_t kNameCharacters = 8;

// One model of the set: what the data file gave and what the statistics made of it.
struct ModelRow {
    std::string name;    // at most kNameCharacters once the reader has finished
    std::string bicText; // the BIC as the file has it
    double bic = 0.0;
    double difference = 0.0;  // BIC minus the lowest BIC
    double probability = 0.0; // likelihood term, then the posterior probability
    double bayesFactor = 0.0; // best model against this one
};

// The data of one analysis run. Model i is rows[i] for i in 1..modelCount, in
// the order of the data file; rows[0] is never used, so that a lowIndex of 0
// can mean "no best model yet".
struct ModelSet {
    // How many models a set may hold.
    static constexpr std::int64_t kMinModels = 2;
    static constexpr std::int64_t kMaxModels = 99;

    std::int64_t modelCount = 0;
    std::int64_t lowIndex = 0;
    std::vector<ModelRow> rows = std::vector<ModelRow>(kMaxModels + 1);

    // Gives the set room for exactly `count` models, rows 1..count.
    void resize(std::int64_t count) {
        modelCount = count;
        rows.resize(static_cast<std::size_t>(count) + 1);
    }
    ModelRow& row(std::int64_t i) { return rows[static_cast<std::size_t>(i)]; }
    const ModelRow& row(std::int64_t i) const { return rows[static_cast<std::size_t>(i)]; }
};

} // namespace tovarin

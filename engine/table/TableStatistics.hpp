#pragma once

#include "engine/table/ModelTableReader.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace tovarin {

// How strongly the BIC difference speaks against a model, in the bands of
// Raftery (1995) that the Information window gives: up to 2 weak, up to 6
// positive, up to 10 strong, above 10 very strong. The best model is marked apart.
enum class Evidence { BestModel, Weak, Positive, Strong, VeryStrong };

Evidence evidenceFor(double deltaBic);
// "best model", "weak", "positive", "strong" or "very strong".
const char* evidenceLabel(Evidence evidence);

// One model with everything a table shows of it.
struct TableRow {
    std::int64_t rank = 0; // 1 is the best model; equal BICs keep the file's order
    std::string name;
    double bic = 0.0;
    double deltaBic = 0.0;         // BIC minus the lowest BIC
    double weight = 0.0;           // BIC posterior probability (Schwarz weight)
    double cumulativeWeight = 0.0; // sum of the weights of ranks 1..rank
    double bayesFactor = 0.0;      // best model against this one; +inf past a double
    double lnBayesFactor = 0.0;    // deltaBic / 2, finite whenever deltaBic is
    Evidence evidence = Evidence::Weak;
    bool inConfidenceSet = false;
    std::int64_t line = 0; // where the model stands in the file
};

// The rows of `models` (at least one) in rank order; the names move over. A model is in the
// confidence set when the models ranked above its group of equal BICs hold a
// cumulative weight below `confidence`: the smallest top set that reaches it,
// never splitting a tie.
std::vector<TableRow> computeTable(std::vector<TableModel> models, double confidence);

} // namespace tovarin

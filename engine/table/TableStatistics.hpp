#pragma once

#include "engine/table/ModelTableReader.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace tovarin {

// The bands that grade the evidence against a model. Raftery (1995), as the
// Information window gives it, by the BIC difference: up to 2 weak, up to 6
// positive, up to 10 strong, above 10 very strong. Jeffreys, as Lee and
// Wagenmakers (2013) tabulate it, by the Bayes factor: up to 3 anecdotal, up
// to 10 moderate, up to 30 strong, up to 100 very strong, above 100 extreme.
enum class EvidenceScale { Raftery, Jeffreys };

// The grade of a model; every model at the lowest BIC is marked apart.
enum class Evidence { BestModel, Weak, Positive, Strong, VeryStrong, Anecdotal, Moderate, Extreme };

Evidence evidenceFor(double deltaBic, EvidenceScale scale);
// "best model", "weak", "positive", "strong", "very strong", "anecdotal",
// "moderate" or "extreme".
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
    BicSource bicSource = BicSource::Read;
};

// The rows of `models` (at least one) in rank order; the names move over. A model is in the
// confidence set when the models ranked above its group of equal BICs hold a
// cumulative weight below `confidence`: the smallest top set that reaches it,
// never splitting a tie. A confidence of 1 takes every model.
std::vector<TableRow> computeTable(std::vector<TableModel> models, double confidence,
                                   EvidenceScale scale = EvidenceScale::Raftery);

} // namespace tovarin

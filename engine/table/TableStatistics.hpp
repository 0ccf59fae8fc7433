#pragma once

#include "engine/table/ModelTableReader.hpp"

#include <cmath>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tovarin {

// The bands that grade the evidence against a model. Raftery (1995), as the
// Information window gives it, by the BIC difference: up to 2 weak, up to 6
// positive, up to 10 strong, above 10 very strong. Jeffreys, as Lee and
// Wagenmakers (2013) tabulate it, by the Bayes factor: up to 3 anecdotal, up
// to 10 moderate, up to 30 strong, up to 100 very strong, above 100 extreme.
enum class EvidenceScale { Raftery, Jeffreys };

// The grade of a model; every model at the lowest BIC is marked apart.
enum class Evidence : std::uint8_t {
    BestModel,
    Weak,
    Positive,
    Strong,
    VeryStrong,
    Anecdotal,
    Moderate,
    Extreme
};

Evidence evidenceFor(double deltaBic, EvidenceScale scale);
// "best model", "weak", "positive", "strong", "very strong", "anecdotal",
// "moderate" or "extreme".
const char* evidenceLabel(Evidence evidence);

// One model with everything a table shows of it. A million of them are held
// at once, so what follows from the rest is worked out when asked for.
struct TableRow {
    std::int64_t rank = 0; // 1 is the best model; equal BICs keep the file's order
    std::string_view name; // the model's; TableDocument::gatherNames gives it a copy
    double bic = 0.0;
    double deltaBic = 0.0;         // BIC minus the lowest BIC
    double weight = 0.0;           // BIC posterior probability (Schwarz weight)
    double cumulativeWeight = 0.0; // sum of the weights of ranks 1..rank
    std::int64_t line = 0;         // where the model stands in the file
    Evidence evidence = Evidence::Weak;
    bool inConfidenceSet = false;
    BicSource bicSource = BicSource::Read;

    // deltaBic / 2, finite whenever deltaBic is.
    double lnBayesFactor() const { return deltaBic / 2.0; }
    // The best model against this one; +inf past a double.
    double bayesFactor() const { return std::exp(lnBayesFactor()); }
};

// The rows of `models` (at least one) in rank order, their names the models'. A model is in the
// confidence set when the models ranked above its group of equal BICs hold a
// cumulative weight below `confidence`: the smallest top set that reaches it,
// never splitting a tie. A confidence of 1 takes every model.
std::vector<TableRow> computeTable(std::vector<TableModel> models, double confidence,
                                   EvidenceScale scale = EvidenceScale::Raftery);

} // namespace tovarin

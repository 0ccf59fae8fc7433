#include "engine/report/BicStatistics.hpp"

#include <cmath>

namespace tovarin {

bool findLowBic(ModelSet& set) {
    double lowBic = kLowBicStart;
    for (std::int64_t i = 1; i <= set.modelCount; ++i) {
        if (lowBic > set.row(i).bic) {
            lowBic = set.row(i).bic;
            set.lowIndex = i;
        }
    }
    return set.lowIndex >= 1;
}

bool lowBicBelowLimit(const ModelSet& set) {
    return kZeroBicLimit > set.row(set.lowIndex).bic;
}

// Each pass is a full loop of its own, as the sum must be complete before any
// probability and every probability before any Bayes factor; the running sum
// in row order fixes the last bits of every result.
void computeResults(ModelSet& set) {
    const std::int64_t count = set.modelCount;
    const double lowBic = set.row(set.lowIndex).bic;
    for (std::int64_t i = 1; i <= count; ++i) {
        set.row(i).difference = set.row(i).bic - lowBic;
    }
    for (std::int64_t i = 1; i <= count; ++i) {
        set.row(i).probability = std::exp(-set.row(i).difference / 2.0);
    }
    double likelihoodSum = 0.0;
    for (std::int64_t i = 1; i <= count; ++i) {
        likelihoodSum += set.row(i).probability;
    }
    for (std::int64_t i = 1; i <= count; ++i) {
        set.row(i).probability /= likelihoodSum;
    }
    const double bestProbability = set.row(set.lowIndex).probability;
    for (std::int64_t i = 1; i <= count; ++i) {
        set.row(i).bayesFactor = bestProbability / set.row(i).probability;
    }
}

} // namespace tovarin

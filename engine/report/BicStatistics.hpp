#pragma once

#include "engine/report/ModelSet.hpp"

namespace tovarin {

// No BIC at or above this can be the lowest one.
inline constexpr double kLowBicStart = 99999999999.0;
// A lowest BIC below this makes the results suspect.
inline constexpr double kZeroBicLimit = 0.0001;

// Sets set.lowIndex to the first row with the lowest BIC below kLowBicStart,
// leaving it 0 when there is none. Returns whether a row was found.
bool findLowBic(ModelSet& set);

// Whether the lowest BIC (row lowIndex) is below kZeroBicLimit.
bool lowBicBelowLimit(const ModelSet& set);

// The result passes, in order: BIC differences, likelihood terms, their sum,
// posterior probabilities, Bayes factors. Needs a lowIndex from findLowBic.
void computeResults(ModelSet& set);

} // namespace tovarin

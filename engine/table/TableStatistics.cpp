#include "engine/table/TableStatistics.hpp"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <numeric>
#include <utility>

namespace tovarin {

Evidence evidenceFor(double deltaBic, EvidenceScale scale) {
    if (scale == EvidenceScale::Jeffreys) {
        const double factor = std::exp(deltaBic / 2.0);
        if (factor <= 3.0) {
            return Evidence::Anecdotal;
        }
        if (factor <= 10.0) {
            return Evidence::Moderate;
        }
        if (factor <= 30.0) {
            return Evidence::Strong;
        }
        return factor <= 100.0 ? Evidence::VeryStrong : Evidence::Extreme;
    }
    if (deltaBic <= 2.0) {
        return Evidence::Weak;
    }
    if (deltaBic <= 6.0) {
        return Evidence::Positive;
    }
    if (deltaBic <= 10.0) {
        return Evidence::Strong;
    }
    return Evidence::VeryStrong;
}

const char* evidenceLabel(Evidence evidence) {
    switch (evidence) {
    case Evidence::BestModel:
        return "best model";
    case Evidence::Weak:
        return "weak";
    case Evidence::Positive:
        return "positive";
    case Evidence::Strong:
        return "strong";
    case Evidence::VeryStrong:
        return "very strong";
    case Evidence::Anecdotal:
        return "anecdotal";
    case Evidence::Moderate:
        return "moderate";
    case Evidence::Extreme:
        return "extreme";
    }
    return "";
}

std::vector<TableRow> computeTable(std::vector<TableModel> models, double confidence,
                                   EvidenceScale scale) {
    const std::size_t count = models.size();
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return models[a].bic < models[b].bic; });
    const double lowBic = models[order.front()].bic;

    // Differences from the lowest BIC first, so the best term is exactly 1,
    // the sum lies between 1 and the count and nothing underflows before its
    // own term must. The sum runs in file order, as the report's does, so the
    // weights are the report's doubles.
    std::vector<double> delta(count);
    std::vector<double> term(count);
    double sum = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        delta[i] = models[i].bic - lowBic;
        term[i] = std::exp(-delta[i] / 2.0);
        sum += term[i];
    }
    const double logSum = std::log(sum);

    std::vector<TableRow> rows(count);
    double cumulative = 0.0;
    double beforeGroup = 0.0;
    for (std::size_t r = 0; r < count; ++r) {
        const std::size_t i = order[r];
        TableRow& row = rows[r];
        row.rank = static_cast<std::int64_t>(r) + 1;
        row.name = std::move(models[i].name);
        row.bic = models[i].bic;
        row.line = models[i].line;
        row.bicSource = models[i].source;
        row.deltaBic = delta[i];
        // A term below the normal range has lost bits; in logs the division
        // costs none, so a tiny weight keeps what precision the double allows.
        row.weight = term[i] >= DBL_MIN ? term[i] / sum : std::exp(-delta[i] / 2.0 - logSum);
        row.lnBayesFactor = delta[i] / 2.0;
        row.bayesFactor = std::exp(row.lnBayesFactor);
        row.evidence = models[i].bic == lowBic ? Evidence::BestModel : evidenceFor(delta[i], scale);
        if (r == 0 || models[i].bic != models[order[r - 1]].bic) {
            beforeGroup = cumulative;
        }
        cumulative += row.weight;
        row.cumulativeWeight = cumulative;
        row.inConfidenceSet = beforeGroup < confidence || confidence >= 1.0;
    }
    return rows;
}

} // namespace tovarin

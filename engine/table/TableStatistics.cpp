#include "engine/table/TableStatistics.hpp"

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <cstring>
#include <numeric>
#include <utility>

namespace tovarin {

namespace {

// A key that orders as the BIC does: equal BICs (0 and -0 too) get equal
// keys, a larger BIC a larger key. BICs are finite.
std::uint64_t sortKey(double bic) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63U;
    // memcpy, not std::bit_cast, which the libc++ of Emscripten and older
    // Xcode lacks; compilers make the same single move of it.
    const double value = bic == 0.0 ? 0.0 : bic;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// Each model's key beside its place in the file, sorted: by BIC, equal BICs in
// file order. A radix sort, least significant byte first, keeps equal keys in
// the order they come and costs eight passes at most over 16 bytes a model,
// whatever the BICs; a comparison sort of a million takes several times as long.
std::vector<std::pair<std::uint64_t, std::size_t>>
rankOrder(const std::vector<TableModel>& models) {
    constexpr unsigned kDigitBits = 8;
    constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;
    constexpr unsigned kPasses = 64 / kDigitBits;
    const auto digit = [](std::uint64_t key, unsigned pass) {
        return static_cast<std::size_t>(key >> (pass * kDigitBits)) & (kDigits - 1);
    };
    using Entry = std::pair<std::uint64_t, std::size_t>;
    std::vector<Entry> order(models.size());
    std::array<std::array<std::size_t, kDigits>, kPasses> starts{};
    for (std::size_t i = 0; i < models.size(); ++i) {
        order[i] = {sortKey(models[i].bic), i};
        for (unsigned pass = 0; pass < kPasses; ++pass) {
            ++starts[pass][digit(order[i].first, pass)];
        }
    }
    std::vector<Entry> spare(models.size());
    for (unsigned pass = 0; pass < kPasses; ++pass) {
        std::array<std::size_t, kDigits>& start = starts[pass];
        // Where every key has the same digit (the sign and the exponent, often), nothing moves.
        if (std::find(start.begin(), start.end(), models.size()) != start.end()) {
            continue;
        }
        std::exclusive_scan(start.begin(), start.end(), start.begin(), std::size_t{0});
        for (const Entry& entry : order) {
            spare[start[digit(entry.first, pass)]++] = entry;
        }
        order.swap(spare);
    }
    return order;
}

} // namespace

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
    const std::vector<std::pair<std::uint64_t, std::size_t>> order = rankOrder(models);
    const double lowBic = models[order.front().second].bic;

    // Differences from the lowest BIC first, so the best term is exactly 1,
    // the sum lies between 1 and the count and nothing underflows before its
    // own term must. The sum runs in file order, as the report's does, so the
    // weights are the report's doubles.
    double sum = 0.0;
    for (const TableModel& model : models) {
        sum += std::exp(-(model.bic - lowBic) / 2.0);
    }
    const double logSum = std::log(sum);

    // What rows take from their models first, alone: the models are read in
    // rank order, from all over, and a loop that does nothing else has many of
    // those reads under way at once.
    std::vector<TableRow> rows(count);
    for (std::size_t r = 0; r < count; ++r) {
        const TableModel& model = models[order[r].second];
        rows[r].name = model.name;
        rows[r].bic = model.bic;
        rows[r].line = model.line;
        rows[r].bicSource = model.source;
    }
    double cumulative = 0.0;
    double beforeGroup = 0.0;
    for (std::size_t r = 0; r < count; ++r) {
        TableRow& row = rows[r];
        row.rank = static_cast<std::int64_t>(r) + 1;
        row.deltaBic = row.bic - lowBic;
        // A term below the normal range has lost bits; in logs the division
        // costs none, so a tiny weight keeps what precision the double allows.
        const double term = std::exp(-row.deltaBic / 2.0);
        row.weight = term >= DBL_MIN ? term / sum : std::exp(-row.deltaBic / 2.0 - logSum);
        row.evidence = row.bic == lowBic ? Evidence::BestModel : evidenceFor(row.deltaBic, scale);
        if (r == 0 || row.bic != rows[r - 1].bic) {
            beforeGroup = cumulative;
        }
        cumulative += row.weight;
        row.cumulativeWeight = cumulative;
        row.inConfidenceSet = beforeGroup < confidence || confidence >= 1.0;
    }
    return rows;
}

} // namespace tovarin

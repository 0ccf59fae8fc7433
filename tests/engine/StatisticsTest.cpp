#include "engine/BicStatistics.hpp"
#include "tests/engine/FakeHost.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace tovarin {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

ModelSet setOf(const std::vector<double>& bics) {
    std::vector<std::pair<std::string, double>> models;
    for (const double bic : bics)
        models.emplace_back("M", bic);
    return test::modelSet(models);
}

TEST(LowBic, TheFirstLowestBelowTheStartValueAndTheWarningLimit) {
    struct Case {
        std::vector<double> bics;
        std::int64_t lowIndex; // 0: the search fails
        bool warns;
    };
    // clang-format off
    const Case cases[] = {{{5, 5}, 1, false}, {{10, 5, 5}, 2, false}, {{30, 20, 10}, 3, false},
        {{-20, -10}, 1, true}, {{0.00005, 3}, 1, true}, {{0.0001, 3}, 1, false}, {{0, 3}, 1, true},
        {{99999999999.0, 5}, 2, false}, {{99999999999.0, 99999999999.0}, 0, false},
        {{99999999998.5, 99999999999.0}, 1, false}, {{1e300, kInf}, 0, false}, {{100, 0, 50}, 2, true}};
    // clang-format on
    for (const Case& c : cases) {
        ModelSet set = setOf(c.bics);
        EXPECT_EQ(findLowBic(set), c.lowIndex != 0);
        EXPECT_EQ(set.lowIndex, c.lowIndex);
        EXPECT_TRUE(set.lowIndex == 0 || lowBicBelowLimit(set) == c.warns) << c.bics[0];
    }
}

// The statistics written out independently, with the likelihood terms summed
// front to back or back to front.
std::vector<ModelRow> reference(const std::vector<double>& bics, bool backToFront) {
    const double low = *std::min_element(bics.begin(), bics.end());
    const auto best = std::min_element(bics.begin(), bics.end()) - bics.begin();
    std::vector<ModelRow> rows(bics.size());
    double sum = 0;
    for (std::size_t k = 0; k < bics.size(); ++k) {
        const std::size_t i = backToFront ? bics.size() - 1 - k : k;
        rows[i].difference = bics[i] - low;
        rows[i].probability = std::exp(-rows[i].difference / 2);
        sum += rows[i].probability;
    }
    for (ModelRow& row : rows)
        row.probability /= sum;
    for (ModelRow& row : rows)
        row.bayesFactor = rows[std::size_t(best)].probability / row.probability;
    return rows;
}

bool sameRows(const std::vector<ModelRow>& a, const std::vector<ModelRow>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), [](const ModelRow& x, const ModelRow& y) {
        return x.probability == y.probability && x.bayesFactor == y.bayesFactor;
    });
}

// Bit for bit against the reference summed in row order, over fixed sets and
// random ones of four to nine models, among which the order of the sum changes
// the last bit of some result.
TEST(Results, EqualARowOrderReferenceBitForBit) {
    std::vector<std::vector<double>> sets = {{7, 7}, {100, 3000}, {-20, -10}, {10, 5, 5}};
    std::mt19937_64 random(2026);
    std::uniform_real_distribution<double> spread(0.0, 12.0);
    for (int n = 0; n < 2000; ++n) {
        std::vector<double> bics(4 + n % 6);
        for (double& bic : bics)
            bic = 50.0 + spread(random);
        sets.push_back(bics);
    }
    int orderShows = 0;
    for (const auto& bics : sets) {
        ModelSet set = setOf(bics);
        ASSERT_TRUE(findLowBic(set));
        computeResults(set);
        const std::vector<ModelRow> expected = reference(bics, false);
        orderShows += sameRows(expected, reference(bics, true)) ? 0 : 1;
        for (std::size_t i = 0; i < bics.size(); ++i) {
            const ModelRow& row = set.row(std::int64_t(i) + 1);
            EXPECT_EQ(row.difference, expected[i].difference);
            EXPECT_EQ(row.probability, expected[i].probability) << "row " << i + 1;
            EXPECT_EQ(row.bayesFactor, expected[i].bayesFactor) << "row " << i + 1;
        }
    }
    EXPECT_GT(orderShows, 0);
}

} // namespace
} // namespace tovarin

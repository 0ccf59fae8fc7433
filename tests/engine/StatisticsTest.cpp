#include "engine/BicStatistics.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace tovarin {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

ModelSet setOf(const std::vector<double>& bics) {
    ModelSet set;
    set.resize(static_cast<std::int64_t>(bics.size()));
    for (std::size_t i = 0; i < bics.size(); ++i) {
        set.row(static_cast<std::int64_t>(i) + 1).bic = bics[i];
    }
    return set;
}

struct SearchCase {
    std::vector<double> bics;
    std::int64_t lowIndex; // 0: the search fails
    bool warns;
};

class LowBicSearch : public ::testing::TestWithParam<SearchCase> {};

TEST_P(LowBicSearch, FindsTheFirstLowestAndTestsItAgainstTheLimit) {
    ModelSet set = setOf(GetParam().bics);
    EXPECT_EQ(findLowBic(set), GetParam().lowIndex != 0);
    EXPECT_EQ(set.lowIndex, GetParam().lowIndex);
    if (set.lowIndex != 0) {
        EXPECT_EQ(lowBicBelowLimit(set), GetParam().warns);
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Bics, LowBicSearch, ::testing::Values(
    SearchCase{{5, 5}, 1, false}, SearchCase{{10, 5, 5}, 2, false}, SearchCase{{30, 20, 10}, 3, false},
    SearchCase{{-20, -10}, 1, true}, SearchCase{{0.00005, 3}, 1, true}, SearchCase{{0.0001, 3}, 1, false},
    SearchCase{{0, 3}, 1, true}, SearchCase{{99999999999.0, 5}, 2, false},
    SearchCase{{99999999999.0, 99999999999.0}, 0, false}, SearchCase{{99999999998.5, 99999999999.0}, 1, false},
    SearchCase{{1e300, kInf}, 0, false}, SearchCase{{100, 0, 50}, 2, true}));
// clang-format on

struct ResultCase {
    std::vector<double> bics;
    std::vector<double> difference, probability, bayesFactor; // rows 1.. in order
};

class ResultPasses : public ::testing::TestWithParam<ResultCase> {};

TEST_P(ResultPasses, GiveTheseDoublesBitForBit) {
    ModelSet set = setOf(GetParam().bics);
    ASSERT_TRUE(findLowBic(set));
    computeResults(set);
    for (std::size_t i = 0; i < GetParam().bics.size(); ++i) {
        const ModelRow& row = set.row(static_cast<std::int64_t>(i) + 1);
        EXPECT_EQ(row.difference, GetParam().difference[i]) << "row " << i + 1;
        EXPECT_EQ(row.probability, GetParam().probability[i]) << "row " << i + 1;
        EXPECT_EQ(row.bayesFactor, GetParam().bayesFactor[i]) << "row " << i + 1;
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Sets, ResultPasses, ::testing::Values(
    ResultCase{{67.82, 74.15, 72.03}, {0, 6.3300000000000125, 4.210000000000008},
               {0.8590623833788779, 0.036264581279120016, 0.10467303534200216},
               {1, 23.68874403283124, 8.207103009595842}},
    ResultCase{{7, 7}, {0, 0}, {0.5, 0.5}, {1, 1}},
    ResultCase{{100, 3000}, {0, 2900}, {1, 0}, {1, kInf}}));
// clang-format on

TEST(ResultPasses, OnlyDifferencesMatterAndHugeOnesStayFinite) {
    ModelSet negative = setOf({-20, -10}), positive = setOf({110, 120}), near = setOf({100, 130});
    ModelSet ties = setOf({10, 5, 5});
    for (ModelSet* set : {&negative, &positive, &near, &ties}) {
        ASSERT_TRUE(findLowBic(*set));
        computeResults(*set);
    }
    EXPECT_EQ(negative.row(2).probability, positive.row(2).probability);
    EXPECT_EQ(negative.row(2).bayesFactor, positive.row(2).bayesFactor);
    EXPECT_NEAR(near.row(2).probability, 3.059e-7, 1e-9);
    EXPECT_NEAR(near.row(2).bayesFactor, 3269017.37, 0.01);
    EXPECT_EQ(ties.row(2).probability, ties.row(3).probability);
    EXPECT_EQ(ties.row(3).bayesFactor, 1.0);
    EXPECT_NEAR(ties.row(1).bayesFactor, 12.182493960703473, 1e-12); // e^2.5
}

} // namespace
} // namespace tovarin

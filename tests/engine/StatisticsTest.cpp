#include "engine/BicStatistics.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace tovarin {
namespace {

ModelSet setOf(const std::vector<double>& bics) {
    ModelSet set;
    set.resize(static_cast<std::int64_t>(bics.size()));
    for (std::size_t i = 0; i < bics.size(); ++i) {
        set.row(static_cast<std::int64_t>(i) + 1).bic = bics[i];
    }
    return set;
}

TEST(Statistics, WorkedExampleBitForBit) {
    ModelSet set = setOf({67.82, 74.15, 72.03});
    ASSERT_TRUE(findLowBic(set));
    EXPECT_EQ(set.lowIndex, 1);
    EXPECT_FALSE(lowBicBelowLimit(set));
    computeResults(set);
    struct Expected {
        double difference, probability, bayesFactor;
    };
    const Expected table[] = {{0, 0.8590623833788779, 1},
                              {6.3300000000000125, 0.036264581279120016, 23.68874403283124},
                              {4.210000000000008, 0.10467303534200216, 8.207103009595842}};
    for (std::int64_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(set.row(i).difference, table[i - 1].difference) << i;
        EXPECT_EQ(set.row(i).probability, table[i - 1].probability) << i;
        EXPECT_EQ(set.row(i).bayesFactor, table[i - 1].bayesFactor) << i;
    }
    EXPECT_EQ(set.row(1).probability / 0.8590623833788779, 1.0);
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

INSTANTIATE_TEST_SUITE_P(
    Bics, LowBicSearch,
    ::testing::Values(SearchCase{{5, 5}, 1, false}, SearchCase{{10, 5, 5}, 2, false},
                      SearchCase{{30, 20, 10}, 3, false}, SearchCase{{-20, -10}, 1, true},
                      SearchCase{{0.00005, 3}, 1, true}, SearchCase{{0.0001, 3}, 1, false},
                      SearchCase{{0.00009, 3}, 1, true}, SearchCase{{0, 3}, 1, true},
                      SearchCase{{99999999999.0, 5}, 2, false},
                      SearchCase{{99999999999.0, 99999999999.0}, 0, false},
                      SearchCase{{99999999998.5, 99999999999.0}, 1, false},
                      SearchCase{{1e300, std::numeric_limits<double>::infinity()}, 0, false},
                      SearchCase{{100, 0, 50}, 2, true}));

TEST(Statistics, TiesShareTheirResults) {
    ModelSet set = setOf({10, 5, 5});
    ASSERT_TRUE(findLowBic(set));
    computeResults(set);
    EXPECT_EQ(set.row(2).probability, set.row(3).probability);
    EXPECT_EQ(set.row(3).bayesFactor, 1.0);
    ModelSet pair = setOf({7, 7});
    ASSERT_TRUE(findLowBic(pair));
    computeResults(pair);
    EXPECT_EQ(pair.row(1).probability, 0.5);
    EXPECT_EQ(pair.row(2).bayesFactor, 1.0);
}

TEST(Statistics, OnlyDifferencesMatter) {
    ModelSet negative = setOf({-20, -10});
    ModelSet positive = setOf({110, 120});
    for (ModelSet* set : {&negative, &positive}) {
        ASSERT_TRUE(findLowBic(*set));
        computeResults(*set);
    }
    EXPECT_EQ(negative.row(2).probability, positive.row(2).probability);
    EXPECT_EQ(negative.row(2).bayesFactor, positive.row(2).bayesFactor);
}

TEST(Statistics, HugeDifferencesUnderflowWithoutHarm) {
    ModelSet near = setOf({100, 130});
    ASSERT_TRUE(findLowBic(near));
    computeResults(near);
    EXPECT_NEAR(near.row(2).probability, 3.059e-7, 1e-9);
    EXPECT_NEAR(near.row(2).bayesFactor, 3269017.37, 0.01);

    ModelSet far = setOf({100, 3000, 101});
    ASSERT_TRUE(findLowBic(far));
    computeResults(far);
    EXPECT_EQ(far.row(2).probability, 0.0);
    EXPECT_EQ(far.row(2).bayesFactor, std::numeric_limits<double>::infinity());
    EXPECT_EQ(far.row(1).bayesFactor, 1.0);
    EXPECT_DOUBLE_EQ(far.row(1).probability + far.row(3).probability, 1.0);
}

} // namespace
} // namespace tovarin

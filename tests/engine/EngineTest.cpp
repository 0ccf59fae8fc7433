// The parts of the run: the line reader and the data lines, and the
// statistics against an independent reference.
#include "engine/BicStatistics.hpp"
#include "engine/ByteSource.hpp"
#include "engine/DataFileReader.hpp"
#include "engine/FileError.hpp"
#include "engine/LineReader.hpp"
#include "tests/engine/FakeHost.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace tovarin {
namespace {

// Hands out its bytes a few at a time, so line ends fall across reads.
class TrickleSource : public MemorySource {
public:
    TrickleSource(std::string bytes, std::size_t step) : MemorySource(std::move(bytes)), step_(step) {}
    std::size_t read(char* buffer, std::size_t size) override {
        return MemorySource::read(buffer, std::min(size, step_));
    }

private:
    std::size_t step_;
};

TEST(ReadLine, SplitsAtEveryKindOfLineEndWhereverReadsEnd) {
    // clang-format off
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"a\nb\nc\n", {"a", "b", "c", "", ""}}, {"a\rb\rc", {"a", "b", "c", "", ""}},
        {"a\r\nb\r\nc\r\n", {"a", "b", "c", ""}}, {"a\r\rb", {"a", "", "b", ""}}, {"a\n\rb", {"a", "", "b"}},
        {"a\r\n\nb", {"a", "", "b"}}, {"", {"", "", ""}}, {"\xef\xbb\xbfN\t1", {"\xef\xbb\xbfN\t1", ""}}};
    // clang-format on
    for (const auto& [bytes, lines] : cases) {
        for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{1} << 20}) {
            TrickleSource source(bytes, step);
            LineReader reader(source);
            for (const std::string& expected : lines)
                EXPECT_EQ(reader.readLine(), expected) << bytes << " step " << step;
        }
    }
    MemorySource endless(std::string(5000, 'x') + "\nshort\n");
    EXPECT_THROW(LineReader(endless, 4096).readLine(), FileError);
}

// Exactly count lines, each a name (cut to 8 characters) and a BIC, whatever the file holds.
TEST(ReadModels, EachLineGivesANameAndABic) {
    // clang-format off
    const std::tuple<std::string, std::string, double> cases[] = {{"Name\t67.82", "Name", 67.82},
        {"Name,67.82", "Name", 67.82}, {"Name\t67.82\t.86", "Name", 67.82}, {"Name\t\t67.82", "Name", 0},
        {"Name", "Name", 0}, {"Name\t67,82", "Name", 67}, {"NCM 67.82", "NCM 67.8", 0}, {"", "", 0},
        {"ABCDEFGHIJ\t5", "ABCDEFGH", 5}, {"\t5", "", 5}, {"\"Q\" \t-120.5", "\"Q\" ", -120.5},
        {"Модель12345\t3", "Модель12", 3}};
    // clang-format on
    for (const auto& [line, name, bic] : cases) {
        ModelSet set = test::modelSet({9, 9, 9});
        MemorySource source(line + "\nnext\t1\n");
        LineReader reader(source);
        readModels(reader, set);
        EXPECT_EQ(set.row(1).name + "|" + set.row(2).name + "|" + set.row(3).name, name + "|next|") << line;
        EXPECT_EQ(set.row(1).bic + set.row(3).bic, bic) << line;
    }
}

TEST(LowBic, TheFirstLowestBelowTheStartValueAndTheWarningLimit) {
    // clang-format off
    const std::tuple<std::vector<double>, std::int64_t, bool> cases[] = {{{5, 5}, 1, false}, {{10, 5, 5}, 2, false}, {{30, 20, 10}, 3, false},
        {{-20, -10}, 1, true}, {{0.00005, 3}, 1, true}, {{0.0001, 3}, 1, false}, {{0, 3}, 1, true},
        {{99999999999.0, 5}, 2, false}, {{99999999999.0, 99999999999.0}, 0, false},
        {{99999999998.5, 99999999999.0}, 1, false}, {{1e300, HUGE_VAL}, 0, false}, {{100, 0, 50}, 2, true}};
    // clang-format on
    for (const auto& [bics, lowIndex, warns] : cases) { // a low index of 0: the search fails
        ModelSet set = test::modelSet(bics);
        EXPECT_EQ(findLowBic(set), lowIndex != 0);
        EXPECT_EQ(set.lowIndex, lowIndex);
        EXPECT_TRUE(lowIndex == 0 || lowBicBelowLimit(set) == warns) << bics[0];
    }
}

// The statistics written out independently, with the likelihood terms summed
// front to back or back to front.
std::vector<ModelRow> reference(const std::vector<double>& bics, bool backToFront) {
    const auto best = std::size_t(std::min_element(bics.begin(), bics.end()) - bics.begin());
    std::vector<ModelRow> rows(bics.size());
    double sum = 0;
    for (std::size_t k = 0; k < bics.size(); ++k) {
        const std::size_t i = backToFront ? bics.size() - 1 - k : k;
        rows[i].difference = bics[i] - bics[best];
        rows[i].probability = std::exp(-rows[i].difference / 2);
        sum += rows[i].probability;
    }
    for (ModelRow& row : rows)
        row.probability /= sum;
    for (ModelRow& row : rows)
        row.bayesFactor = rows[best].probability / row.probability;
    return rows;
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
        ModelSet set = test::modelSet(bics);
        ASSERT_TRUE(findLowBic(set));
        computeResults(set);
        const std::vector<ModelRow> expected = reference(bics, false);
        const std::vector<ModelRow> backwards = reference(bics, true);
        orderShows += std::equal(expected.begin(), expected.end(), backwards.begin(),
                                 [](const auto& a, const auto& b) { return a.probability == b.probability; }) ? 0 : 1;
        for (std::size_t i = 0; i < bics.size(); ++i) {
            const ModelRow& row = set.row(std::int64_t(i) + 1);
            EXPECT_EQ(row.difference, expected[i].difference);
            EXPECT_EQ(row.probability, expected[i].probability);
            EXPECT_EQ(row.bayesFactor, expected[i].bayesFactor);
        }
    }
    EXPECT_GT(orderShows, 0);
}

} // namespace
} // namespace tovarin

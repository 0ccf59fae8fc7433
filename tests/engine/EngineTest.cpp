// The analysis engine: the whole run through a recording host, the line reader and the data
// lines, and the statistics against an independent reference.
#include "engine/ByteSource.hpp"
#include "engine/FileError.hpp"
#include "engine/Version.hpp"
#include "engine/report/AnalysisRun.hpp"
#include "engine/report/BicStatistics.hpp"
#include "engine/report/DataFileReader.hpp"
#include "engine/report/LineReader.hpp"
#include "engine/report/Messages.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace tovarin {
namespace {

// Records every call of a run in order ("message", "focus", "choose", "show",
// "append", "bold START LENGTH"), the messages and all the results.
class FakeHost : public AnalysisHost {
public:
    std::string count, results;
    std::optional<std::filesystem::path> file;
    std::vector<std::string> events, messages;

    std::string countText() const override { return count; }
    void showMessage(const std::string& text) override {
        events.emplace_back("message");
        messages.push_back(text);
    }
    void focusCountField() override { events.emplace_back("focus"); }
    std::optional<std::filesystem::path> chooseDataFile() override {
        events.emplace_back("choose");
        return file;
    }
    void showResults() override { events.emplace_back("show"); }
    void appendResults(std::string_view piece) override {
        events.emplace_back("append");
        results += piece;
    }
    void setResultsBold(std::int64_t start, std::int64_t length) override {
        events.push_back("bold " + std::to_string(start) + " " + std::to_string(length));
    }
    DateTimeText currentDateTime() override { return {"4/5/26", "09:30"}; }
};

// A model set of these BICs in this order, as the reader leaves it, named "M1", "M2", ...
ModelSet modelSet(const std::vector<double>& bics) {
    ModelSet set;
    set.resize(static_cast<std::int64_t>(bics.size()));
    for (std::int64_t i = 1; i <= set.modelCount; ++i)
        set.row(i) = {"M" + std::to_string(i), "", bics[std::size_t(i - 1)]};
    return set;
}

using Texts = std::vector<std::string>;

TEST(Run, RefusesCountsOutsideTwoToNinetyNineBeforeTheChooser) {
    for (const char* count : {"", "1", "100", "0", "abc", "1.99", "99.01", " ", "1e400"}) {
        FakeHost host;
        host.count = count;
        EXPECT_EQ(runAnalysis(host, "\r"), *count ? RunEnd::BadCount : RunEnd::EmptyCount);
        const std::string message = *count ? kBadCountMessage : kEmptyCountMessage;
        EXPECT_EQ(host.messages, Texts{message + "\r"});
        EXPECT_EQ(host.events, (Texts{"message", "focus"})) << count;
    }
}

// The texts `piece` gives for 1 to n, joined.
std::string joined(int n, const std::function<std::string(int)>& piece) {
    std::string text;
    for (int i = 1; i <= n; ++i)
        text += piece(i);
    return text;
}

// Counts cut towards zero, and each hostile file held in memory: a report of
// `rows` rows (after any message), or with no rows, the message alone.
TEST(Run, EndsAsExpectedWhateverTheFileHolds) {
    const std::string zero = kZeroBicMessage, three = "A\t10\nB\t20\nC\t30\n";
    const std::string badBytes = "\xff\xfe"
                                 "A\t10\n\xc3(B\t20\n\xe2\x82G\xed\xa0\x80\t30\n";
    struct Case {
        std::string count, bytes;
        Texts messages;
        int rows;
        Texts reportHas; // with "\r" line ends
    };
    const Case cases[] = {
        {"2.9", three, {}, 2, {"\rB "}},
        {"99", three, {zero}, 99, {"\r                    +0.0"}},
        {"2", "A\t99999999999\nB\t1e12\n", {kNoLowBicMessage}, 0, {}},
        {"2", "A\t99999999998.5\nB\t99999999999\n", {}, 2, {"0.5622"}},
        {"2", "A\t0.0001\nB\t3\n", {}, 2, {"+0.0001"}},
        {"2", "A\t10\nB\t29.13\n", {}, 2, {"0.0001 "}}, // 0.00007 shows as 0.0001
        {"2", "A\t0.00009\nB\t-3\n", {zero}, 2, {"+0.0001", "-3.0"}},
        {"3", "", {zero}, 3, {"+0.0"}},
        {"5", joined(1024, [](int i) { return std::string(1, char(i % 256)); }), {zero}, 5, {}},
        {"3", std::string("Al\0pha\t10\n\0\0\t20\nGamma\t30\0x\n", 26), {}, 3, {"Gamma", "+20.0"}},
        {"3", badBytes, {}, 3, {"+10.0", "+20.0", "+30.0"}},
        {"2", "\xef\xbb\xbfName\t10\nBeta\t20\n", {}, 2, {"\r\xef\xbb\xbfName"}},
        {"2", "Big\t1e400\nSmall\t20\n", {}, 2, {"+inf", ">99999", "<.0001"}},
        {"2", "Neg\t-1e400\nSmall\t20\n", {zero}, 2, {"-inf", "+20.0"}},
        {"2",
         std::string(10000, 'N') + "\t10\n" + joined(10000, [](int) { return "é"; }) + "\t20\n",
         {},
         2,
         {"\rNNNNNNNN    +10.0 ", "\réééééééé    +20.0 "}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.count + " " + c.bytes.substr(0, 40));
        FakeHost host;
        host.count = c.count;
        host.file = "/data/models.txt";
        const auto open = [&](const auto& file) {
            return std::make_unique<MemorySource>(c.bytes, file);
        };
        EXPECT_EQ(runAnalysis(host, "\r", open), c.rows ? RunEnd::Report : RunEnd::NoLowBic);
        EXPECT_EQ(host.messages, c.messages);
        // Each message takes the focus to the count field; a report shows the area
        // first, and the bold over the start of the results comes before its closing piece.
        std::string events, expected = "choose,";
        for (const std::string& event : host.events)
            events += event + ",";
        for (std::size_t i = 0; i < c.messages.size(); ++i)
            expected += "message,focus,";
        if (c.rows == 0) {
            EXPECT_EQ(events, expected);
            continue;
        }
        EXPECT_EQ(events.substr(0, expected.size() + 12), expected + "show,append,");
        EXPECT_TRUE(events.ends_with(",bold 1 100,append,")) << events;
        EXPECT_TRUE(host.results.ends_with("\r" + std::string(kCreditLine) + "\r\r\r"));
        EXPECT_EQ(std::count(host.results.begin(), host.results.end(), '\r'), 13 + c.rows);
        EXPECT_EQ(host.results.find('\n'), std::string::npos);
        EXPECT_NE(host.results.find("\rFile: models.txt\r"), std::string::npos);
        for (const std::string& text : c.reportHas)
            EXPECT_NE(host.results.find(text), std::string::npos) << text << " in\n"
                                                                  << host.results;
    }
}

// Hands out its bytes one at a time, so every line end falls across reads.
struct TrickleSource : MemorySource {
    using MemorySource::MemorySource;
    std::size_t read(char* buffer, std::size_t size) override {
        return MemorySource::read(buffer, std::min<std::size_t>(size, 1));
    }
};

TEST(ReadLine, SplitsAtEveryKindOfLineEndWhereverReadsEnd) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"a\nb\nc\n", {"a", "b", "c", "", ""}},
        {"a\rb\rc", {"a", "b", "c", "", ""}},
        {"a\r\nb\r\nc\r\n", {"a", "b", "c", ""}},
        {"a\r\rb", {"a", "", "b", ""}},
        {"a\n\rb", {"a", "", "b"}},
        {"a\r\n\nb", {"a", "", "b"}},
        {"", {"", "", ""}},
        {"\xef\xbb\xbfN\t1", {"\xef\xbb\xbfN\t1", ""}}};
    for (const auto& [bytes, lines] : cases) {
        TrickleSource trickle(bytes);
        MemorySource whole(bytes);
        for (ByteSource* source :
             {static_cast<ByteSource*>(&trickle), static_cast<ByteSource*>(&whole)}) {
            LineReader reader(*source);
            for (const std::string& expected : lines)
                EXPECT_EQ(reader.readLine(), expected) << bytes;
        }
    }
    // Lines up to the limit are read whole; one byte more is no text data.
    MemorySource atLimit(std::string(4096, 'x') + "\n");
    EXPECT_EQ(LineReader(atLimit, 4096).readLine().size(), 4096U);
    MemorySource endless(std::string(4097, 'x') + "\nshort\n");
    EXPECT_THROW(LineReader(endless, 4096).readLine(), FileError);
}

// Exactly count lines, each a name (cut to 8 characters) and a BIC, whatever the file holds.
TEST(ReadModels, EachLineGivesANameAndABic) {
    const std::tuple<std::string, std::string, double> cases[] = {
        {"Name\t67.82", "Name", 67.82},
        {"Name,67.82", "Name", 67.82},
        {"Name\t67.82\t.86", "Name", 67.82},
        {"Name\t\t67.82", "Name", 0},
        {"Name", "Name", 0},
        {"Name\t67,82", "Name", 67},
        {"NCM 67.82", "NCM 67.8", 0},
        {"", "", 0},
        {"ABCDEFGHIJ\t5", "ABCDEFGH", 5},
        {"\t5", "", 5},
        {"\"Q\" \t-120.5", "\"Q\" ", -120.5},
        {"Модель12345\t3", "Модель12", 3}};
    for (const auto& [line, name, bic] : cases) {
        ModelSet set = modelSet({9, 9, 9});
        MemorySource source(line + "\nnext\t1\n");
        LineReader reader(source);
        readModels(reader, set);
        EXPECT_EQ(set.row(1).name + "|" + set.row(2).name + "|" + set.row(3).name, name + "|next|")
            << line;
        EXPECT_EQ(set.row(1).bic + set.row(3).bic, bic) << line;
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
        std::vector<double> bics(static_cast<std::size_t>(4 + n % 6));
        for (double& bic : bics)
            bic = 50.0 + spread(random);
        sets.push_back(bics);
    }
    int orderShows = 0;
    for (const auto& bics : sets) {
        ModelSet set = modelSet(bics);
        ASSERT_TRUE(findLowBic(set));
        computeResults(set);
        const std::vector<ModelRow> expected = reference(bics, false);
        const std::vector<ModelRow> backwards = reference(bics, true);
        orderShows +=
            std::equal(expected.begin(), expected.end(), backwards.begin(),
                       [](const auto& a, const auto& b) { return a.probability == b.probability; })
                ? 0
                : 1;
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

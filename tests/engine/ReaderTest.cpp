#include "engine/ByteSource.hpp"
#include "engine/DataFileReader.hpp"
#include "engine/FileError.hpp"
#include "engine/LineReader.hpp"
#include "tests/engine/FakeHost.hpp"

#include <gtest/gtest.h>

#include <limits>

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
        {"Name", "Name", 0}, {"Name\tpoor", "Name", 0}, {"Name\t67,82", "Name", 67}, {"N\t12abc", "N", 12},
        {"Name\t 67.82", "Name", 67.82}, {"NCM 67.82", "NCM 67.8", 0}, {"ABCDEFGHIJ\t5", "ABCDEFGH", 5},
        {"", "", 0}, {"\t5", "", 5}, {"\"Q\" \t-120.5", "\"Q\" ", -120.5}, {"M\t1.5e3", "M", 1500},
        {"Модель12345\t3", "Модель12", 3}, {"A\t1e400", "A", std::numeric_limits<double>::infinity()}};
    // clang-format on
    for (const auto& [line, name, bic] : cases) {
        ModelSet set = test::modelSet({{"", 0}, {"", 0}, {"", 0}});
        MemorySource source(line + "\nnext\t1\n");
        LineReader reader(source);
        readModels(reader, set);
        EXPECT_EQ(set.row(1).name, name) << line;
        EXPECT_EQ(set.row(1).bic, bic) << line;
        EXPECT_EQ(set.row(2).name, "next");
        EXPECT_EQ(set.row(3).name + set.row(3).bicText, "");
    }
}

// A line from elsewhere than the line reader may hold the system line end,
// which then separates fields like a tab.
TEST(SplitDataLine, TheSystemLineEndSeparatesFields) {
    for (const std::string& end : {std::string("\t"), std::string(","), systemLineEnd()}) {
        std::string line = "Name" + end + "67.82" + end + "rest";
        ModelRow row;
        splitDataLine(line, row);
        EXPECT_EQ(row.name + "|" + row.bicText, "Name|67.82");
    }
}

} // namespace
} // namespace tovarin

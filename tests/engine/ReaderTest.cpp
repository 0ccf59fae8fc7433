#include "engine/ByteSource.hpp"
#include "engine/DataFileReader.hpp"
#include "engine/FileError.hpp"
#include "engine/LineReader.hpp"
#include "tests/engine/TestFiles.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace tovarin {
namespace {

// Hands out its bytes a few at a time, so line ends fall across reads.
class TrickleSource : public MemorySource {
public:
    TrickleSource(std::string bytes, std::size_t step)
        : MemorySource(std::move(bytes)), step_(step) {}
    std::size_t read(char* buffer, std::size_t size) override {
        return MemorySource::read(buffer, std::min(size, step_));
    }

private:
    std::size_t step_;
};

struct LinesCase {
    std::string bytes;
    std::vector<std::string> lines; // what successive reads give, past the end too
};

class ReadLine : public ::testing::TestWithParam<LinesCase> {};

TEST_P(ReadLine, SplitsAtEveryKindOfLineEnd) {
    for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{1} << 20}) {
        TrickleSource source(GetParam().bytes, step);
        LineReader reader(source);
        for (const std::string& expected : GetParam().lines) {
            EXPECT_EQ(reader.readLine(), expected) << "step " << step;
        }
    }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Bytes, ReadLine, ::testing::Values(
    LinesCase{"a\nb\nc\n", {"a", "b", "c", "", ""}}, LinesCase{"a\rb\rc", {"a", "b", "c", "", ""}},
    LinesCase{"a\r\nb\r\nc\r\n", {"a", "b", "c", ""}}, LinesCase{"a\r\rb", {"a", "", "b", ""}},
    LinesCase{"a\n\rb", {"a", "", "b"}}, LinesCase{"a\r\n\nb", {"a", "", "b"}},
    LinesCase{"", {"", "", ""}}, LinesCase{"\xef\xbb\xbfNCM\t1", {"\xef\xbb\xbfNCM\t1", ""}}));
// clang-format on

TEST(ReadLine, EndlessLinesEndInAnErrorNotInExhaustedMemory) {
    MemorySource source(std::string(5000, 'x') + "\nshort\n");
    EXPECT_THROW(LineReader(source, 4096).readLine(), FileError);
    if (std::filesystem::exists("/dev/zero")) {
        FileSource zeros("/dev/zero");
        EXPECT_THROW(LineReader(zeros, std::size_t{1} << 20).readLine(), FileError);
    }
}

TEST(FileSource, OpenOrReadFailuresNameTheFileAndTheReason) {
    const test::TempFolder folder;
    for (const auto& file : {folder.path(), folder.path() / "gone.txt"}) {
        try {
            FileSource source(file);
            LineReader(source).readLine();
            FAIL() << "read " << file;
        } catch (const FileError& error) {
            EXPECT_EQ(error.file(), file);
            EXPECT_FALSE(error.reason().empty());
            EXPECT_NE(std::string(error.what()).find(file.string()), std::string::npos);
        }
    }
}

using Rows = std::vector<std::pair<std::string, double>>;

Rows readRows(const std::string& bytes, std::int64_t count) {
    ModelSet set;
    set.resize(count);
    MemorySource source(bytes);
    LineReader reader(source);
    readModels(reader, set);
    Rows rows;
    for (std::int64_t i = 1; i <= count; ++i) {
        rows.emplace_back(set.row(i).name, set.row(i).bic);
    }
    return rows;
}

TEST(ReadModels, EachLineGivesANameAndABic) {
    struct RowCase {
        std::string line, name;
        double bic;
    };
    // clang-format off
    const RowCase cases[] = {{"Name\t67.82", "Name", 67.82}, {"Name,67.82", "Name", 67.82},
        {"Name\t67.82\t.86", "Name", 67.82}, {"Name\t\t67.82", "Name", 0}, {"Name", "Name", 0},
        {"Name\tpoor", "Name", 0}, {"Name\t67,82", "Name", 67}, {"Name\t12abc", "Name", 12},
        {"Name\t 67.82", "Name", 67.82}, {"NCM 67.82", "NCM 67.8", 0}, {"ABCDEFGHIJ\t5", "ABCDEFGH", 5},
        {"", "", 0}, {"\t5", "", 5}, {"\"Q\" \t-120.5", "\"Q\" ", -120.5}, {"M\t1.5e3", "M", 1500},
        {"Модель12345\t3", "Модель12", 3}, {"A\t1e400", "A", std::numeric_limits<double>::infinity()}};
    // clang-format on
    for (const RowCase& c : cases) {
        EXPECT_EQ(readRows(c.line + "\nnext\t1\n", 2), (Rows{{c.name, c.bic}, {"next", 1}}))
            << c.line;
    }
}

// A line from elsewhere than the line reader may hold the system line end,
// which then separates fields like a tab.
TEST(SplitDataLine, TheSystemLineEndSeparatesFields) {
    for (const std::string& end : {std::string("\t"), std::string(","), systemLineEnd()}) {
        std::string line = "Name" + end + "67.82" + end + "rest";
        ModelRow row;
        splitDataLine(line, row);
        EXPECT_EQ(row.name, "Name");
        EXPECT_EQ(row.bicText, "67.82");
    }
}

TEST(ReadModels, ReadsExactlyCountLinesWhateverTheFileHolds) {
    const Rows three = {{"NCM", 67.82}, {"DUM", 74.15}, {"CXM", 72.03}};
    for (const char* bytes :
         {"NCM\t67.82\nDUM\t74.15\nCXM\t72.03\n", "NCM,67.82\rDUM,74.15\rCXM,72.03",
          "NCM\t67.82\r\nDUM,74.15\r\nCXM\t72.03\r\nEXTRA\t1\r\n"}) {
        EXPECT_EQ(readRows(bytes, 3), three) << bytes;
    }
    EXPECT_EQ(readRows("A\t1\nB\t2\n", 4), (Rows{{"A", 1}, {"B", 2}, {"", 0}, {"", 0}}));
    EXPECT_EQ(readRows("", 2), (Rows{{"", 0}, {"", 0}}));
    EXPECT_EQ(readRows("\nA\t1\nB\t2\n", 2), (Rows{{"", 0}, {"A", 1}}));
    EXPECT_EQ(readRows("Model\tBIC\nA\t1\nB\t2", 2), (Rows{{"Model", 0}, {"A", 1}}));
}

} // namespace
} // namespace tovarin

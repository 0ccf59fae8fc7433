#include "engine/ByteSource.hpp"
#include "engine/DataFileReader.hpp"
#include "engine/FileError.hpp"
#include "engine/LineReader.hpp"
#include "tests/engine/TestFiles.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tovarin {
namespace {

// Hands out its bytes a few at a time, so line ends fall across reads.
class TrickleSource : public ByteSource {
public:
    TrickleSource(std::string bytes, std::size_t step) : bytes_(std::move(bytes)), step_(step) {}
    std::size_t read(char* buffer, std::size_t size) override {
        const std::size_t got = std::min({size, step_, bytes_.size() - pos_});
        std::copy_n(bytes_.data() + pos_, got, buffer);
        pos_ += got;
        return got;
    }
    const std::filesystem::path& name() const override { return name_; }

private:
    std::string bytes_;
    std::size_t step_;
    std::size_t pos_ = 0;
    std::filesystem::path name_ = "trickle.txt";
};

struct LinesCase {
    std::string bytes;
    std::vector<std::string> lines; // what successive reads give, past the end too
};

class ReadLine : public ::testing::TestWithParam<LinesCase> {};

TEST_P(ReadLine, SplitsAtEveryKindOfLineEnd) {
    for (std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{1} << 20}) {
        TrickleSource source(GetParam().bytes, step);
        LineReader reader(source);
        for (const std::string& expected : GetParam().lines) {
            EXPECT_EQ(reader.readLine(), expected) << "step " << step;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, ReadLine,
    ::testing::Values(LinesCase{"a\nb\nc\n", {"a", "b", "c", "", ""}},
                      LinesCase{"a\rb\rc", {"a", "b", "c", "", ""}},
                      LinesCase{"a\r\nb\r\nc\r\n", {"a", "b", "c", ""}},
                      LinesCase{"a\r\rb", {"a", "", "b", ""}}, LinesCase{"a\n\rb", {"a", "", "b"}},
                      LinesCase{"a\r\n\nb", {"a", "", "b"}}, LinesCase{"\n\nx", {"", "", "x", ""}},
                      LinesCase{"", {"", "", ""}}, LinesCase{"no end", {"no end", ""}},
                      LinesCase{"\xef\xbb\xbfNCM\t1", {"\xef\xbb\xbfNCM\t1", ""}}));

TEST(ReadLine, RefusesALineBeyondTheLimit) {
    MemorySource source(std::string(5000, 'x') + "\nshort\n");
    LineReader reader(source, 4096);
    try {
        reader.readLine();
        FAIL() << "no error for an endless line";
    } catch (const FileError& error) {
        EXPECT_EQ(error.file(), "<memory>");
        EXPECT_NE(error.reason().find("longer than"), std::string::npos) << error.reason();
    }
}

TEST(ReadLine, EndlessDeviceEndsInAnErrorNotInExhaustedMemory) {
    if (!std::filesystem::exists("/dev/zero")) {
        GTEST_SKIP() << "no /dev/zero here";
    }
    FileSource zeros("/dev/zero");
    LineReader reader(zeros, std::size_t{1} << 20);
    EXPECT_THROW(reader.readLine(), FileError);
}

TEST(FileSource, OpenOrReadFailuresNameTheFileAndTheReason) {
    const test::TempFolder folder;
    const std::filesystem::path missing = folder.path() / "gone.txt";
    for (const auto& file : {folder.path(), missing}) {
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

struct RowCase {
    std::string line;
    std::string name;
    double bic;
};

class DataLine : public ::testing::TestWithParam<RowCase> {};

TEST_P(DataLine, GivesNameAndBic) {
    ModelSet set;
    set.resize(2);
    MemorySource source(GetParam().line + "\nnext\t1\n");
    LineReader reader(source);
    readModels(reader, set);
    EXPECT_EQ(set.row(1).name, GetParam().name);
    EXPECT_EQ(set.row(1).bic, GetParam().bic);
    EXPECT_EQ(set.row(2).name, "next");
}

INSTANTIATE_TEST_SUITE_P(
    Lines, DataLine,
    ::testing::Values(RowCase{"Name\t67.82", "Name", 67.82}, RowCase{"Name,67.82", "Name", 67.82},
                      RowCase{"Name\t67.82\t.86", "Name", 67.82},
                      RowCase{"Name\t\t67.82", "Name", 0.0}, RowCase{"Name", "Name", 0.0},
                      RowCase{"Name\tpoor", "Name", 0.0}, RowCase{"Name\t67,82", "Name", 67.0},
                      RowCase{"Name\t12abc", "Name", 12.0}, RowCase{"Name\t 67.82", "Name", 67.82},
                      RowCase{"NCM 67.82", "NCM 67.8", 0.0},
                      RowCase{"ABCDEFGHIJ\t5", "ABCDEFGH", 5.0}, RowCase{"", "", 0.0},
                      RowCase{"\t5", "", 5.0}, RowCase{"\"Q\" \t-120.5", "\"Q\" ", -120.5},
                      RowCase{"M\t1.5e3", "M", 1500.0}, RowCase{"Модель12345\t3", "Модель12", 3.0},
                      RowCase{"A\t1e400", "A", std::numeric_limits<double>::infinity()}));

std::vector<std::pair<std::string, double>> readRows(const std::string& bytes, std::int64_t count) {
    ModelSet set;
    set.resize(count);
    MemorySource source(bytes);
    LineReader reader(source);
    readModels(reader, set);
    std::vector<std::pair<std::string, double>> rows;
    for (std::int64_t i = 1; i <= count; ++i) {
        rows.emplace_back(set.row(i).name, set.row(i).bic);
    }
    return rows;
}

TEST(ReadModels, ReadsExactlyCountLinesWhateverTheFileHolds) {
    using Rows = std::vector<std::pair<std::string, double>>;
    const Rows three = {{"NCM", 67.82}, {"DUM", 74.15}, {"CXM", 72.03}};
    for (const char* bytes :
         {"NCM\t67.82\nDUM\t74.15\nCXM\t72.03\n", "NCM,67.82\rDUM,74.15\rCXM,72.03",
          "NCM\t67.82\r\nDUM,74.15\r\nCXM\t72.03\r\nEXTRA\t1\r\n"}) {
        EXPECT_EQ(readRows(bytes, 3), three) << bytes;
    }
    EXPECT_EQ(readRows("A\t1\nB\t2\n", 4), (Rows{{"A", 1}, {"B", 2}, {"", 0}, {"", 0}}));
    EXPECT_EQ(readRows("", 3), (Rows{{"", 0}, {"", 0}, {"", 0}}));
    EXPECT_EQ(readRows("\nA\t1\nB\t2\n", 2), (Rows{{"", 0}, {"A", 1}}));
    EXPECT_EQ(readRows("Model\tBIC\nA\t1\nB\t2", 2), (Rows{{"Model", 0}, {"A", 1}}));
}

} // namespace
} // namespace tovarin

#include "text/Fields.hpp"
#include "text/Utf8.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tovarin {
namespace {

struct CharCase {
    std::string text;
    std::int64_t length;
    std::int64_t count;
    std::string left;
};

class CharacterCounting : public ::testing::TestWithParam<CharCase> {};

TEST_P(CharacterCounting, LenAndLeft) {
    EXPECT_EQ(Len(GetParam().text), GetParam().length);
    EXPECT_EQ(Left(GetParam().text, GetParam().count), GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(Text, CharacterCounting,
                         ::testing::Values(CharCase{"", 0, 8, ""}, CharCase{"abc", 3, 8, "abc"},
                                           CharCase{"ABCDEFGHIJ", 10, 8, "ABCDEFGH"},
                                           CharCase{"ABCDEFGH", 8, 8, "ABCDEFGH"},
                                           CharCase{"abc", 3, 0, ""}, CharCase{"abc", 3, -5, ""},
                                           CharCase{"Модельный", 9, 8, "Модельны"},
                                           CharCase{"a–b", 3, 2, "a–"},
                                           CharCase{"日本語モデル名です", 9, 8, "日本語モデル名で"},
                                           CharCase{"😀😀x", 3, 1, "😀"}));

// Each byte that starts no well-formed sequence is one character of its own.
INSTANTIATE_TEST_SUITE_P(InvalidUtf8, CharacterCounting,
                         ::testing::Values(CharCase{"\xff\xfe", 2, 1, "\xff"},
                                           CharCase{"\x80"
                                                    "a",
                                                    2, 1, "\x80"},
                                           CharCase{"\xe2\x80", 2, 1, "\xe2"},
                                           CharCase{"\xc0\xaf", 2, 1, "\xc0"},
                                           CharCase{"\xed\xa0\x80", 3, 1, "\xed"},
                                           CharCase{"\xe0\x80\x80", 3, 1, "\xe0"},
                                           CharCase{"\xf4\x90\x80\x80", 4, 2, "\xf4\x90"},
                                           CharCase{"\xe2\x80"
                                                    "a–",
                                                    4, 3,
                                                    "\xe2\x80"
                                                    "a"}));

TEST(CharacterCounting, AnyBytesCutCleanly) {
    std::mt19937 random(11);
    for (int i = 0; i < 2000; ++i) {
        std::string bytes(static_cast<std::size_t>(random() % 24), '\0');
        for (char& c : bytes) {
            c = static_cast<char>(random() % 6 == 0 ? random() % 128 : 0x80 + random() % 128);
        }
        const std::int64_t length = Len(bytes);
        EXPECT_EQ(Left(bytes, length), bytes);
        for (std::int64_t n = 0; n <= length; ++n) {
            const std::string left = Left(bytes, n);
            ASSERT_EQ(bytes.compare(0, left.size(), left), 0);
            EXPECT_EQ(Len(left), n);
            EXPECT_EQ(Len(bytes.substr(left.size())), length - n);
        }
    }
}

struct FieldCase {
    std::string source;
    std::string separator;
    std::int64_t number;
    std::string field;
};

class Fields : public ::testing::TestWithParam<FieldCase> {};

TEST_P(Fields, NthField) {
    EXPECT_EQ(NthField(GetParam().source, GetParam().separator, GetParam().number),
              GetParam().field);
}

INSTANTIATE_TEST_SUITE_P(
    Splitting, Fields,
    ::testing::Values(FieldCase{"a,b", ",", 3, ""}, FieldCase{"", ",", 1, ""},
                      FieldCase{"a,,b", ",", 2, ""}, FieldCase{"a,,b", ",", 3, "b"},
                      FieldCase{"a, b", ",", 2, " b"}, FieldCase{",a", ",", 1, ""},
                      FieldCase{"a,", ",", 2, ""}, FieldCase{"abc", ",", 1, "abc"},
                      FieldCase{"a,b", ",", 0, ""}, FieldCase{"a,b", ",", -1, ""},
                      FieldCase{"a::b::c", "::", 3, "c"}, FieldCase{"a,b", "", 1, "a,b"},
                      FieldCase{"NCM 67.82", ",", 1, "NCM 67.82"}));

TEST(ReplaceAll, ReplacesLeftToRightWithoutRescanning) {
    struct Case {
        std::string source, find, replacement, expected;
    };
    const Case cases[] = {{"a\t\tb", "\t", ",", "a,,b"}, {"abc", "x", ",", "abc"},
                          {"aaa", "a", "aa", "aaaaaa"},  {"aaaa", "aa", "b", "bb"},
                          {"aaa", "aa", "b", "ba"},      {"abc", "", "x", "abc"},
                          {"\ta\t", "\t", ",", ",a,"},   {"x–y", "–", "-", "x-y"}};
    for (const Case& c : cases) {
        EXPECT_EQ(ReplaceAll(c.source, c.find, c.replacement), c.expected) << c.source;
    }
}

} // namespace
} // namespace tovarin

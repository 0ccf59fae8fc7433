#include "text/Fields.hpp"
#include "text/Utf8.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tovarin {
namespace {

struct CharCase {
    std::string text;
    std::int64_t length, count;
    std::string left;
};

class CharacterCounting : public ::testing::TestWithParam<CharCase> {};

TEST_P(CharacterCounting, LenAndLeft) {
    EXPECT_EQ(Len(GetParam().text), GetParam().length);
    EXPECT_EQ(Left(GetParam().text, GetParam().count), GetParam().left);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Text, CharacterCounting, ::testing::Values(
    CharCase{"", 0, 8, ""}, CharCase{"ABCDEFGHIJ", 10, 8, "ABCDEFGH"}, CharCase{"abc", 3, 8, "abc"},
    CharCase{"abc", 3, 0, ""}, CharCase{"abc", 3, -5, ""}, CharCase{"Модельный", 9, 8, "Модельны"},
    CharCase{"a–b", 3, 2, "a–"}, CharCase{"日本語モデル名です", 9, 8, "日本語モデル名で"},
    CharCase{"😀😀x", 3, 1, "😀"}));

// Each byte that starts no well-formed sequence is one character of its own.
INSTANTIATE_TEST_SUITE_P(InvalidUtf8, CharacterCounting, ::testing::Values(
    CharCase{"\xff\xfe", 2, 1, "\xff"}, CharCase{"\x80" "a", 2, 1, "\x80"}, CharCase{"\xe2\x80", 2, 1, "\xe2"},
    CharCase{"\xc0\xaf", 2, 1, "\xc0"}, CharCase{"\xed\xa0\x80", 3, 1, "\xed"},
    CharCase{"\xe0\x80\x80", 3, 1, "\xe0"}, CharCase{"\xf4\x90\x80\x80", 4, 2, "\xf4\x90"},
    CharCase{"\xe2\x80" "a–", 4, 3, "\xe2\x80" "a"}));
// clang-format on

TEST(CharacterCounting, AnyBytesCutCleanly) {
    std::mt19937 random(11);
    for (int i = 0; i < 2000; ++i) {
        std::string bytes(random() % 24, '\0');
        for (char& c : bytes) {
            c = static_cast<char>(random() % 6 == 0 ? random() % 128 : 0x80 + random() % 128);
        }
        const std::int64_t length = Len(bytes);
        for (std::int64_t n = 0; n <= length; ++n) {
            const std::string left(Left(bytes, n));
            ASSERT_EQ(bytes.compare(0, left.size(), left), 0);
            EXPECT_EQ(Len(left), n);
            EXPECT_EQ(Len(bytes.substr(left.size())), length - n);
        }
    }
}

TEST(Fields, NthFieldAndReplaceAll) {
    struct FieldCase {
        std::string source, separator;
        std::int64_t number;
        std::string field;
    };
    // clang-format off
    const FieldCase fields[] = {{"a,b", ",", 3, ""}, {"", ",", 1, ""}, {"a,,b", ",", 2, ""},
        {"a,,b", ",", 3, "b"}, {"a, b", ",", 2, " b"}, {",a", ",", 1, ""}, {"a,", ",", 2, ""},
        {"abc", ",", 1, "abc"}, {"a,b", ",", 0, ""}, {"a::b::c", "::", 3, "c"}, {"a,b", "", 1, "a,b"}};
    // clang-format on
    for (const FieldCase& c : fields) {
        EXPECT_EQ(NthField(c.source, c.separator, c.number), c.field)
            << c.source << ' ' << c.number;
    }
    struct ReplaceCase {
        std::string source, find, replacement, expected;
    };
    const ReplaceCase replacements[] = {{"a\t\tb", "\t", ",", "a,,b"}, {"abc", "x", ",", "abc"},
                                        {"aaa", "a", "aa", "aaaaaa"},  {"aaa", "aa", "b", "ba"},
                                        {"abc", "", "x", "abc"},       {"x–y", "–", "-", "x-y"}};
    for (const ReplaceCase& c : replacements) {
        EXPECT_EQ(ReplaceAll(c.source, c.find, c.replacement), c.expected) << c.source;
    }
}

} // namespace
} // namespace tovarin

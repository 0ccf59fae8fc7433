#include "text/Fields.hpp"
#include "text/Utf8.hpp"

#include <gtest/gtest.h>

#include <random>

namespace tovarin {
namespace {

// Characters, not bytes; each byte that starts no well-formed sequence is one of its own.
TEST(Characters, LenAndLeft) {
    // clang-format off
    const std::tuple<std::string, std::int64_t, std::int64_t, std::string> cases[] = {
        {"ABCDEFGHIJ", 10, 8, "ABCDEFGH"}, {"abc", 3, -5, ""}, {"Модельный", 9, 8, "Модельны"},
        {"日本語モデル名です", 9, 8, "日本語モデル名で"}, {"😀😀x", 3, 1, "😀"}, {"\xff\xfe", 2, 1, "\xff"},
        {"\xc0\xaf", 2, 1, "\xc0"}, {"\xed\xa0\x80", 3, 1, "\xed"}, {"\xf4\x90\x80\x80", 4, 2, "\xf4\x90"},
        {"\xe2\x80" "a–", 4, 3, "\xe2\x80" "a"}};
    // clang-format on
    for (const auto& [text, length, count, left] : cases) {
        EXPECT_EQ(Len(text), length) << text;
        EXPECT_EQ(Left(text, count), left) << text;
    }
    // Any bytes at all are cut cleanly: the parts add up.
    std::mt19937 random(11);
    for (int i = 0; i < 2000; ++i) {
        std::string bytes(random() % 24, '\0');
        for (char& c : bytes)
            c = static_cast<char>(random() % 6 == 0 ? random() % 128 : 0x80 + random() % 128);
        const std::int64_t length = Len(bytes);
        for (std::int64_t n = 0; n <= length; ++n) {
            const std::string_view left = Left(bytes, n);
            ASSERT_EQ(bytes.compare(0, left.size(), left), 0);
            EXPECT_EQ(Len(left) * 100 + Len(bytes.substr(left.size())), n * 100 + length - n);
        }
    }
}

TEST(Fields, NthFieldAndReplaceAll) {
    // clang-format off
    const std::tuple<std::string, std::string, std::int64_t, std::string> fields[] = {{"a,b", ",", 3, ""},
        {"a,,b", ",", 2, ""}, {"a,,b", ",", 3, "b"}, {"a, b", ",", 2, " b"}, {"a,b", ",", 0, ""},
        {"a::b::c", "::", 3, "c"}, {"a,b", "", 1, "a,b"}};
    // clang-format on
    for (const auto& [source, separator, number, field] : fields)
        EXPECT_EQ(NthField(source, separator, number), field) << source << ' ' << number;
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
}

} // namespace
} // namespace tovarin

#include "common/BytePattern.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace korvanta {
namespace {

std::vector<std::uint8_t> Bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

// Both ways to find, each in turn.
class BytePatternTest : public testing::TestWithParam<bool> {
  protected:
    static constexpr std::size_t nowhere = std::string::npos;

    static std::size_t Find(const std::string& pattern, const std::string& text) {
        const BytePattern bytes(Bytes(pattern), GetParam());
        // Of its own, so that a sanitizer sees who reads beyond it.
        const std::vector<std::uint8_t> copy = Bytes(text);
        const std::uint8_t* const found = bytes.Find(copy.data(), copy.data() + copy.size());
        return found == nullptr ? nowhere : static_cast<std::size_t>(found - copy.data());
    }
};

TEST_P(BytePatternTest, ThePlaceIsTheFirstOne) {
    EXPECT_EQ(Find("b", "abcb"), 1U);
    EXPECT_EQ(Find("cb", "abcb"), 2U);
    EXPECT_EQ(Find("abcb", "abcb"), 0U);
    EXPECT_EQ(Find("aab", "aaaab"), 2U);
    EXPECT_EQ(Find(std::string("\0\xFF", 2), std::string("\0\0\xFF", 3)), 1U);
}

TEST_P(BytePatternTest, WhatIsNotThereIsNotFound) {
    EXPECT_EQ(Find("x", "abc"), nowhere);
    EXPECT_EQ(Find("abcd", "abc"), nowhere);
    EXPECT_EQ(Find("a", ""), nowhere);
    EXPECT_EQ(Find("abab", "abaabbabbaaba"), nowhere);
}

TEST_P(BytePatternTest, NothingIsFoundEverywhere) {
    EXPECT_EQ(Find("", "abc"), 0U);
}

TEST_P(BytePatternTest, EveryPlaceAndLengthIsLikeAnyOther) {
    std::minstd_rand chance(3);
    for (int round = 0; round < 3'000; ++round) {
        std::string text(chance() % 700, 'a');
        for (char& character : text) {
            character = "abc\x80"[chance() % (round % 2 == 0 ? 4 : 2)];
        }
        const std::size_t length = 1 + chance() % (round % 50 == 0 ? 600 : 12);
        std::string pattern(length, 'a');
        for (char& character : pattern) {
            character = "abc\x80"[chance() % 2];
        }
        if (round % 3 == 0 && text.size() > length) {
            text.replace(chance() % (text.size() - length + 1), length, pattern);
        }
        ASSERT_EQ(Find(pattern, text), text.find(pattern)) << pattern << " in " << text;
    }
}

INSTANTIATE_TEST_SUITE_P(BySkips, BytePatternTest, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(BySixteens, BytePatternTest, testing::Values(true));

}  // namespace
}  // namespace korvanta

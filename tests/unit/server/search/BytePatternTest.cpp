#include "server/search/BytePattern.h"

#include <gmock/gmock.h>

#include <random>
#include <string>

namespace korvanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::uint8_t> Bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

using Places = std::vector<std::size_t>;

// Both ways to find, each in turn.
class BytePatternTest : public testing::TestWithParam<bool> {
  protected:
    static Places Find(const std::string& pattern, const std::string& text) {
        const BytePattern bytes(Bytes(pattern), GetParam());
        // Of its own, so that a sanitizer sees who reads beyond it.
        const std::vector<std::uint8_t> copy = Bytes(text);
        Marks marks;
        bytes.Mark(copy.data(), copy.data() + copy.size(), marks);
        Places places;
        for (std::size_t place = 0; place < text.size(); ++place) {
            if (marks.Any(place, place + 1)) {
                places.push_back(place);
            }
        }
        EXPECT_EQ(marks.Any(), !places.empty());
        return places;
    }
};

TEST_P(BytePatternTest, EveryPlaceIsFound) {
    EXPECT_THAT(Find("b", "abcb"), ElementsAre(1, 3));
    EXPECT_THAT(Find("cb", "abcb"), ElementsAre(2));
    EXPECT_THAT(Find("abcb", "abcb"), ElementsAre(0));
    EXPECT_THAT(Find(std::string("\0\xFF", 2), std::string("\0\0\xFF", 3)), ElementsAre(1));
}

TEST_P(BytePatternTest, PlacesMayOverlap) {
    EXPECT_THAT(Find("aa", "aaaab"), ElementsAre(0, 1, 2));
    EXPECT_THAT(Find("aba", "abababa"), ElementsAre(0, 2, 4));
}

TEST_P(BytePatternTest, WhatIsNotThereIsNotFound) {
    EXPECT_THAT(Find("x", "abc"), IsEmpty());
    EXPECT_THAT(Find("abcd", "abc"), IsEmpty());
    EXPECT_THAT(Find("a", ""), IsEmpty());
    EXPECT_THAT(Find("abab", "abaabbabbaaba"), IsEmpty());
}

TEST_P(BytePatternTest, NothingIsFoundNowhere) {
    EXPECT_THAT(Find("", "abc"), IsEmpty());
}

TEST_P(BytePatternTest, MarksOfAnEarlierTextAreGone) {
    const BytePattern pattern(Bytes("a"), GetParam());
    Marks marks;
    for (const std::string& text : {std::string(100, 'a'), std::string(90, 'b')}) {
        const std::vector<std::uint8_t> bytes = Bytes(text);
        pattern.Mark(bytes.data(), bytes.data() + bytes.size(), marks);
        EXPECT_EQ(marks.Any(), text.front() == 'a');
        EXPECT_EQ(marks.Any(0, text.size()), text.front() == 'a');
    }
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
        Places expected;
        for (std::size_t at = text.find(pattern); at != std::string::npos; at = text.find(pattern, at + 1)) {
            expected.push_back(at);
        }
        ASSERT_EQ(Find(pattern, text), expected) << pattern << " in " << text;
    }
}

INSTANTIATE_TEST_SUITE_P(BySkips, BytePatternTest, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(BySixteens, BytePatternTest, testing::Values(true));

}  // namespace
}  // namespace korvanta

#include "server/search/Marks.h"

#include <gtest/gtest.h>

#include <random>

namespace korvanta {
namespace {

TEST(MarksTest, APlaceIsMarkedWhenItWasSet) {
    Marks marks;
    marks.Reset(100);
    EXPECT_FALSE(marks.Any());
    EXPECT_FALSE(marks.Any(0, 100));
    marks.Set(70);
    EXPECT_TRUE(marks.Any());
    EXPECT_TRUE(marks.Any(70, 71));
    EXPECT_FALSE(marks.Any(0, 70));
    EXPECT_FALSE(marks.Any(71, 100));
    EXPECT_FALSE(marks.Any(70, 70));
}

TEST(MarksTest, AWordIsSetAtOnce) {
    Marks marks;
    marks.Reset(64);
    marks.SetWord(32, 0x8000'0001U);
    EXPECT_TRUE(marks.Any(32, 33));
    EXPECT_FALSE(marks.Any(33, 63));
    EXPECT_TRUE(marks.Any(63, 64));
    EXPECT_FALSE(marks.Any(0, 32));
}

TEST(MarksTest, AWordWithoutMarksLeavesTheOthers) {
    Marks marks;
    marks.Reset(64);
    marks.SetWord(0, 1);
    marks.SetWord(32, 0);
    EXPECT_TRUE(marks.Any());
}

TEST(MarksTest, ThereMayBeNoPlacesAtAll) {
    Marks marks;
    marks.Reset(0);
    EXPECT_FALSE(marks.Any());
    EXPECT_FALSE(marks.Any(0, 0));
}

TEST(MarksTest, PlacesThatAreNotKeptLoseTheirMarks) {
    Marks marks;
    marks.Reset(300);
    for (const std::size_t place : {0U, 31U, 32U, 150U, 299U}) {
        marks.Set(place);
    }
    std::vector<std::size_t> asked;
    marks.KeepIf([&asked](std::size_t place) {
        asked.push_back(place);
        return place == 32 || place == 299;
    });
    EXPECT_EQ(asked, (std::vector<std::size_t>{0, 31, 32, 150, 299}));
    EXPECT_TRUE(marks.Any());
    EXPECT_FALSE(marks.Any(0, 32));
    EXPECT_TRUE(marks.Any(32, 33));
    EXPECT_FALSE(marks.Any(33, 299));
    EXPECT_TRUE(marks.Any(299, 300));
    marks.KeepIf([](std::size_t) { return false; });
    EXPECT_FALSE(marks.Any());
    EXPECT_FALSE(marks.Any(0, 300));
}

TEST(MarksTest, EveryRangeTellsWhetherItHasAMark) {
    constexpr std::size_t places = 400;
    std::minstd_rand chance(5);
    for (int round = 0; round < 40; ++round) {
        Marks marks;
        marks.Reset(places);
        std::vector<bool> expected(places);
        for (std::uint32_t left = chance() % 4; left != 0; --left) {
            const std::size_t place = chance() % places;
            marks.Set(place);
            expected[place] = true;
        }
        for (std::size_t from = 0; from < places; ++from) {
            bool any = false;
            for (std::size_t end = from; end <= places; ++end) {
                any = any || (end > from && expected[end - 1]);
                ASSERT_EQ(marks.Any(from, end), any) << from << " " << end;
            }
        }
    }
}

}  // namespace
}  // namespace korvanta

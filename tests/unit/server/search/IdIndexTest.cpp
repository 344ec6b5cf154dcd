#include "server/search/IdIndex.h"

#include "gtest/gtest.h"

namespace korvanta {
namespace {

TEST(IdIndex, ANewIndexFindsNothing) {
    const IdIndex index;
    EXPECT_EQ(index.DifferentIds(), 0U);
    EXPECT_EQ(index.Find(0), std::nullopt);
}

TEST(IdIndex, AnIdFindsItsLastAccount) {
    IdIndex index;
    for (const std::int32_t id : {5, -5, 0, 5, INT32_MAX, INT32_MIN}) {
        index.Add(id);
    }
    EXPECT_EQ(index.DifferentIds(), 5U);
    EXPECT_EQ(index.Find(5), 3U);
    EXPECT_EQ(index.Find(-5), 1U);
    EXPECT_EQ(index.Find(0), 2U);
    EXPECT_EQ(index.Find(INT32_MAX), 4U);
    EXPECT_EQ(index.Find(INT32_MIN), 5U);
    EXPECT_EQ(index.Find(6), std::nullopt);
}

TEST(IdIndex, AnAccountHasItsIdAlsoWhenALaterOneHasTheSame) {
    IdIndex index;
    for (const std::int32_t id : {7, 8, 7}) {
        index.Add(id);
    }
    EXPECT_EQ(index.Id(0), 7);
    EXPECT_EQ(index.Id(1), 8);
    EXPECT_EQ(index.Id(2), 7);
}

TEST(IdIndex, ManyIdsOfAnyPatternAreFound) {
    for (const std::int32_t distance : {1, -1, 4096, 65'536, 1'000'003}) {
        IdIndex index;
        std::int32_t id = 0;
        for (int i = 0; i < 2'000; ++i, id += distance) {
            index.Add(id);
        }
        EXPECT_EQ(index.DifferentIds(), 2'000U);
        id = 0;
        for (std::size_t i = 0; i < 2'000; ++i, id += distance) {
            ASSERT_EQ(index.Find(id), i) << distance;
        }
        EXPECT_EQ(index.Find(id), std::nullopt);
    }
}

}  // namespace
}  // namespace korvanta

#include "ui/KeyTable.h"

#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace korvanta {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(KeyTableTest, KeepsTheOrderInWhichKeysWereFirstSet) {
    KeyTable table;
    table.Set(u"b", u"1");
    table.Set(u"a", u"2");
    table.Set(u"b", u"3");
    EXPECT_THAT(table.All(), ElementsAre(Pair(u"b", u"3"), Pair(u"a", u"2")));
}

TEST(KeyTableTest, TellsKeysApartByLetterCaseAndFindsNoneThatIsAbsent) {
    KeyTable table;
    table.Set(u"Key", u"1");
    table.Set(u"key", u"");
    ASSERT_NE(table.Find(u"Key"), nullptr);
    EXPECT_EQ(*table.Find(u"Key"), u"1");
    ASSERT_NE(table.Find(u"key"), nullptr);
    EXPECT_EQ(*table.Find(u"key"), u"");
    EXPECT_EQ(table.Find(u"KEY"), nullptr);
    EXPECT_EQ(table.Find(u""), nullptr);
}

TEST(KeyTableTest, StartsAnewAfterClear) {
    KeyTable table;
    table.Set(u"b", u"1");
    table.Clear();
    EXPECT_THAT(table.All(), IsEmpty());
    EXPECT_EQ(table.Find(u"b"), nullptr);
    table.Set(u"a", u"2");
    table.Set(u"b", u"3");
    EXPECT_THAT(table.All(), ElementsAre(Pair(u"a", u"2"), Pair(u"b", u"3")));
}

}  // namespace korvanta

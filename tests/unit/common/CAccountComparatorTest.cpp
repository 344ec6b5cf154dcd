#include "common/CAccountComparator.h"

#include <gtest/gtest.h>

#include "common/List.h"
#include "fakes/FakeMutexFactory.h"

namespace korvanta {
namespace {

class CAccountComparatorTest : public testing::Test {
  protected:
    std::int32_t ErrorOf(const Variant& a, const Variant& b) {
        try {
            comparator.Compare(a, b);
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }
    CAccountComparator comparator;
};

TEST_F(CAccountComparatorTest, LinesAreOrderedByWhatFollowsTheirFirstTab) {
    EXPECT_EQ(comparator.Compare(u"9\tApple", u"1\tBanana"), -1);
    EXPECT_EQ(comparator.Compare(u"1\tBanana", u"9\tApple"), 1);
    EXPECT_EQ(comparator.Compare(u"1\tsame", u"2\tsame"), 0);
    EXPECT_EQ(comparator.Compare(u"\t", u"anything\t"), 0);
    EXPECT_EQ(comparator.Compare(u"1\ta\tb", u"1\ta\tc"), -1);
}

TEST_F(CAccountComparatorTest, LetterCaseDoesNotCount) {
    EXPECT_EQ(comparator.Compare(u"1\tMÜLLER ЁЖ", u"2\tmüller ёж"), 0);
    EXPECT_EQ(comparator.Compare(u"1\tapple", u"2\tBANANA"), -1);
}

TEST_F(CAccountComparatorTest, AShorterLineComesFirst) {
    EXPECT_EQ(comparator.Compare(u"1\tab", u"1\tabc"), -1);
    EXPECT_EQ(comparator.Compare(u"1\tabc", u"1\tab"), 1);
}

TEST_F(CAccountComparatorTest, ALineWithoutATabIsAnError) {
    EXPECT_EQ(ErrorOf(u"no tab", u"1\ta"), 5);
    EXPECT_EQ(ErrorOf(u"1\ta", u""), 5);
}

TEST_F(CAccountComparatorTest, WhatIsNoTextIsATypeMismatch) {
    EXPECT_EQ(ErrorOf(1, u"1\ta"), 13);
    EXPECT_EQ(ErrorOf(u"1\ta", Variant()), 13);
}

TEST_F(CAccountComparatorTest, AListSortsByIt) {
    fakes::FakeMutexFactory mutexes;
    List list(mutexes);
    for (const char16_t* line : {u"3\tc", u"1\tB", u"2\ta", u"4\tb"}) {
        list.Append(line);
    }
    list.Sort(comparator);
    EXPECT_EQ(list.ToString(), u"[\"2\ta\", \"1\tB\", \"4\tb\", \"3\tc\"]");
}

}  // namespace
}  // namespace korvanta

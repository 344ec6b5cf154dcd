#include "controls/AccessKey.h"

#include "gtest/gtest.h"

namespace korvanta {
namespace {

TEST(AccessKey, IsTheLetterBehindTheFirstSingleAmpersand) {
    EXPECT_EQ(AccessKeyPlace(u"&Search"), 1U);
    EXPECT_EQ(AccessKeyPlace(u"Ta&x && S&ub"), 3U);
    EXPECT_EQ(AccessKeyPlace(u"R&&D &x"), 6U);
    EXPECT_EQ(AccessKeyPlace(u"&&&x"), 3U);
}

TEST(AccessKey, IsMissingWithoutASingleAmpersandBeforeALetter) {
    for (const char16_t* caption : {u"", u"&", u"Search", u"R&&D", u"R&&", u"R&&D &"}) {
        EXPECT_EQ(AccessKeyPlace(caption), std::u16string_view::npos);
        EXPECT_EQ(WithoutAccessKey(caption), caption);
    }
}

TEST(AccessKey, GoesWithItsMarkAndLeavesTheText) {
    EXPECT_EQ(WithoutAccessKey(u"&Search"), u"Search");
    EXPECT_EQ(WithoutAccessKey(u"R&&D &x"), u"R&&D x");
}

TEST(AccessKey, IsNoneInATextWithPlainAmpersands) {
    EXPECT_EQ(WithPlainAmpersands(u"R&D"), u"R&&D");
    EXPECT_EQ(WithPlainAmpersands(u"R&&D"), u"R&&D");
    EXPECT_EQ(WithPlainAmpersands(u"a && b & c&"), u"a && b && c&&");
    EXPECT_EQ(WithPlainAmpersands(u"&&&"), u"&&&&");
    EXPECT_EQ(WithPlainAmpersands(u""), u"");
}

}  // namespace
}  // namespace korvanta

#include "server/search/TitleIndex.h"

#include <string>

#include "gtest/gtest.h"

namespace korvanta {
namespace {

std::u16string Units(const TitleIndex::Block& block) {
    return {block.units.get(), block.used};
}

TEST(TitleIndex, TitlesLieOneBehindTheOtherEachWithASeparator) {
    TitleIndex titles;
    titles.Add(u"Smith", u"");
    titles.Add(u"Jones", u"Tax");
    ASSERT_EQ(titles.Blocks().size(), 1U);
    EXPECT_EQ(Units(titles.Blocks()[0]), u"Smith\u0001\u0001Jones\u0001Tax\u0001");
    EXPECT_EQ(titles.Count(), 2U);
    EXPECT_EQ(titles.Offset(0), 0U);
    EXPECT_EQ(titles.Offset(1), 7U);
    EXPECT_EQ(titles.SubTitleOffset(0), 6U);
    EXPECT_EQ(titles.SubTitleOffset(1), 13U);
}

TEST(TitleIndex, ASubAccountSharesTheMainTitleWhenItIsTheSame) {
    TitleIndex titles;
    titles.Add(u"Smith", u"");
    titles.AddBelow(0, u"Smith", u"Audit");
    titles.AddBelow(0, u"smith", u"Tax");
    EXPECT_EQ(Units(titles.Blocks()[0]), u"Smith\u0001\u0001Audit\u0001smith\u0001Tax\u0001");
    EXPECT_TRUE(titles.HasOwnMainTitle(0));
    EXPECT_FALSE(titles.HasOwnMainTitle(1));
    EXPECT_TRUE(titles.HasOwnMainTitle(2));
    EXPECT_EQ(titles.MainTitle(1), u"Smith");
    EXPECT_EQ(titles.SubTitle(1), u"Audit");
    EXPECT_EQ(titles.MainTitle(2), u"smith");
    EXPECT_EQ(titles.SubTitle(2), u"Tax");
    EXPECT_EQ(titles.SubTitleOffset(1), titles.Offset(1));
    EXPECT_EQ(titles.SubTitleOffset(2), titles.Offset(2) + 6);
}

TEST(TitleIndex, EachUnitHasTheByteOfItsLowerCaseForm) {
    TitleIndex titles;
    titles.Add(u"aB\u00C4", u"");
    const TitleIndex::Block& block = titles.Blocks()[0];
    const std::vector<std::uint8_t> bytes(block.folded.get(), block.folded.get() + block.used);
    EXPECT_EQ(bytes, TitleIndex::Folded(u"ab\u00E4\u0001\u0001"));
    EXPECT_EQ(bytes[1], 'b');
    EXPECT_GE(bytes[2], 0x80);
}

TEST(TitleIndex, OnlyAsciiHasBytesOfItsOwn) {
    for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
        const std::uint8_t byte = TitleIndex::FoldedByte(static_cast<char16_t>(unit));
        if (unit < 0x80) {
            EXPECT_EQ(byte, unit);
        } else {
            EXPECT_GE(byte, 0x80);
        }
    }
}

TEST(TitleIndex, ATitleThatDoesNotFitBeginsABlock) {
    TitleIndex titles;
    const std::u16string half(32'767, u'x');
    titles.Add(half, u"");
    titles.AddBelow(0, half, std::u16string(32'766, u'y'));
    EXPECT_EQ(titles.Blocks().size(), 1U) << "exactly full";
    titles.AddBelow(0, half, u"");
    ASSERT_EQ(titles.Blocks().size(), 2U);
    EXPECT_EQ(titles.Blocks()[0].firstAccount, 0U);
    EXPECT_EQ(titles.Blocks()[1].firstAccount, 2U);
    EXPECT_EQ(titles.Offset(2), 0U);
    EXPECT_EQ(titles.MainTitle(2), half);
    titles.Add(std::u16string(100'000, u'z'), u"end");
    EXPECT_EQ(titles.Blocks().size(), 3U);
    EXPECT_EQ(titles.SubTitle(3), u"end");
}

}  // namespace
}  // namespace korvanta

#include "server/AccountTitles.h"

#include "ServerFixture.h"

namespace korvanta {
namespace {

std::shared_ptr<clsAccount> Account(const std::u16string& mainTitle, const std::u16string& subTitle) {
    auto account = std::make_shared<clsAccount>();
    account->MainTitle = mainTitle;
    account->SubTitle = subTitle;
    return account;
}

TEST(AccountTitlesTest, AccountsAreCountedThroughTheGroups) {
    AccountTitles titles;
    titles.AddGroup({Account(u"Smith", u""), Account(u"Smith", u"Audit")});
    titles.AddGroup({});
    titles.AddGroup({Account(u"Jones", u"")});
    ASSERT_EQ(titles.Count(), 3U);
    EXPECT_TRUE(titles.MainTitleContains(0, u"smith"));
    EXPECT_FALSE(titles.SubTitleContains(0, u"audit"));
    EXPECT_TRUE(titles.MainTitleContains(1, u"mit"));
    EXPECT_TRUE(titles.SubTitleContains(1, u"audit"));
    EXPECT_TRUE(titles.MainTitleContains(2, u"nes"));
    EXPECT_FALSE(titles.MainTitleContains(2, u"smith"));
}

TEST(AccountTitlesTest, ASubAccountMayHaveAMainTitleOfItsOwn) {
    AccountTitles titles;
    titles.AddGroup({Account(u"Smith", u""), Account(u"Schmidt", u"x"), Account(u"Smith", u"y")});
    EXPECT_FALSE(titles.MainTitleContains(1, u"smith"));
    EXPECT_TRUE(titles.MainTitleContains(1, u"schmidt"));
    EXPECT_TRUE(titles.MainTitleContains(2, u"smith"));
}

TEST(AccountTitlesTest, TitlesAreFoldedInEveryScript) {
    AccountTitles titles;
    titles.AddGroup({Account(u"[@SALES`{]", u"M\u00DCLLER \u03A3\u0416\u0130")});
    EXPECT_TRUE(titles.MainTitleContains(0, u"[@sales`{]"));
    EXPECT_TRUE(titles.SubTitleContains(0, Lower(u"m\u00DCller \u03A3\u0416\u0130")));
}

TEST(AccountTitlesTest, TheEmptyTextIsInEveryTitle) {
    AccountTitles titles;
    titles.AddGroup({Account(u"", u""), Account(u"a", u"b")});
    for (std::size_t account = 0; account < 2; ++account) {
        EXPECT_TRUE(titles.SubTitleContains(account, u""));
        EXPECT_TRUE(titles.MainTitleContains(account, u""));
    }
    EXPECT_FALSE(titles.SubTitleContains(0, u"a"));
}

TEST(AccountTitlesTest, MatchesNeverReachIntoTheNextTitle) {
    AccountTitles titles;
    titles.AddGroup({Account(u"ab", u"cd"), Account(u"ab", u"ef")});
    EXPECT_FALSE(titles.MainTitleContains(0, u"abcd"));
    EXPECT_FALSE(titles.SubTitleContains(0, u"cde"));
    EXPECT_TRUE(titles.SubTitleContains(1, u"ef"));
}

TEST(AccountTitlesTest, FalseStartsAreNotTakenForMatches) {
    AccountTitles titles;
    titles.AddGroup({Account(u"aaab", u"ababac")});
    EXPECT_TRUE(titles.MainTitleContains(0, u"aab"));
    EXPECT_TRUE(titles.SubTitleContains(0, u"abac"));
    EXPECT_FALSE(titles.SubTitleContains(0, u"abad"));
    EXPECT_TRUE(titles.SubTitleContains(0, u"c"));
    EXPECT_FALSE(titles.SubTitleContains(0, u"cc"));
}

TEST(AccountTitlesTest, ZerosAndLoneSurrogatesAreCharactersLikeOthers) {
    AccountTitles titles;
    const std::u16string odd{u'X', u'\0', 0xD800, u'Y'};
    titles.AddGroup({Account(odd, odd)});
    EXPECT_TRUE(titles.MainTitleContains(0, std::u16string{u'x', u'\0', 0xD800, u'y'}));
    EXPECT_TRUE(titles.SubTitleContains(0, std::u16string{u'\0'}));
    EXPECT_FALSE(titles.SubTitleContains(0, std::u16string{u'\0', u'\0'}));
}

TEST(AccountTitlesTest, TitlesOfAnyLengthAreHeld) {
    AccountTitles titles;
    for (int group = 0; group < 300; ++group) {
        titles.AddGroup({Account(std::u16string(1000, u'A') + NumberText(group), u"S")});
    }
    titles.AddGroup({Account(std::u16string(1'000'000, u'B') + u"c", u"T")});
    titles.AddGroup({Account(u"Last", u"U")});
    for (std::size_t group = 0; group < 300; ++group) {
        EXPECT_TRUE(titles.MainTitleContains(group, u"a" + NumberText(static_cast<std::int64_t>(group))));
        EXPECT_TRUE(titles.SubTitleContains(group, u"s"));
    }
    EXPECT_TRUE(titles.MainTitleContains(300, u"bc"));
    EXPECT_TRUE(titles.SubTitleContains(300, u"t"));
    EXPECT_TRUE(titles.MainTitleContains(301, u"last"));
}

}  // namespace
}  // namespace korvanta

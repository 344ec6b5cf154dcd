#include "server/search/AccountSearch.h"

#include <gmock/gmock.h>

#include <random>

#include "unit/server/ServerFixture.h"

namespace korvanta {
namespace {

using testing::ElementsAre;
using Numbers = std::vector<std::uint32_t>;

// An account with both its titles; a main account's is given with an empty or a filled sub title.
struct Titles {
    bool isMain;
    std::u16string mainTitle;
    std::u16string subTitle;
};
using Accounts = std::vector<Titles>;

std::shared_ptr<AccountTable> Table(const Accounts& accounts) {
    auto table = std::make_shared<AccountTable>();
    std::int32_t id = 0;
    for (const Titles& account : accounts) {
        table->Add({.accountId = ++id,
                    .isMain = account.isMain,
                    .mainTitle = account.mainTitle,
                    .subTitle = account.subTitle,
                    .isActive = true,
                    .password = u"password"});
    }
    table->EndGroup();
    return table;
}

Numbers ShownIn(const std::shared_ptr<AccountTable>& table, const std::u16string& text) {
    AccountSearch search(table, text);
    Numbers all;
    for (std::size_t group = 0; group < table->GroupCount(); ++group) {
        const std::span<const std::uint32_t> shown = search.Shown(group);
        all.insert(all.end(), shown.begin(), shown.end());
    }
    return all;
}

Numbers Shown(const Accounts& accounts, const std::u16string& text) {
    return ShownIn(Table(accounts), text);
}

// The rule, word for word: see AccountSearch::Shown.
Numbers ShownByTheRule(const Accounts& accounts, const std::u16string& text) {
    Numbers all;
    for (std::size_t first = 0, end = 0; first < accounts.size(); first = end) {
        end = first + 1;
        while (end < accounts.size() && !accounts[end].isMain) {
            ++end;
        }
        std::size_t match = first;
        while (match < end && !ContainsNoCase(accounts[match].subTitle, text) &&
               !ContainsNoCase(accounts[match].mainTitle, text)) {
            ++match;
        }
        for (std::size_t i = first; i < end && match < end; ++i) {
            if (i == first || match == first || ContainsNoCase(accounts[i].subTitle, text)) {
                all.push_back(static_cast<std::uint32_t>(i));
            }
        }
    }
    return all;
}

const Accounts smithAndJones = {{true, u"Smith", u""},
                                {false, u"Smith", u"Audit"},
                                {false, u"Smith", u"Tax"},
                                {true, u"Jones", u""},
                                {false, u"Jones", u"Audit"}};

TEST(AccountSearchTest, TheEmptyTextShowsEverything) {
    EXPECT_THAT(Shown(smithAndJones, u""), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(Shown({}, u""), ElementsAre());
}

TEST(AccountSearchTest, AHitOnTheMainAccountShowsItsGroup) {
    EXPECT_THAT(Shown(smithAndJones, u"mith"), ElementsAre(0, 1, 2));
    EXPECT_THAT(Shown({{true, u"A", u"own"}, {false, u"A", u"x"}}, u"own"), ElementsAre(0, 1));
}

TEST(AccountSearchTest, AHitOnASubAccountShowsItWithItsMainAccount) {
    EXPECT_THAT(Shown(smithAndJones, u"tax"), ElementsAre(0, 2));
    EXPECT_THAT(Shown(smithAndJones, u"audit"), ElementsAre(0, 1, 3, 4));
}

TEST(AccountSearchTest, WhatIsNowhereShowsNothing) {
    EXPECT_THAT(Shown(smithAndJones, u"audits"), ElementsAre());
    EXPECT_THAT(Shown(smithAndJones, std::u16string(1000, u'a')), ElementsAre());
    EXPECT_THAT(Shown({}, u"a"), ElementsAre());
}

TEST(AccountSearchTest, AMainTitleOfItsOwnShowsTheMainAccountAlone) {
    const Accounts accounts = {{true, u"Smith", u""}, {false, u"Schmidt", u"x"}, {false, u"Schmied", u"Schmidt"}};
    EXPECT_THAT(Shown(accounts, u"schmidt"), ElementsAre(0, 2));
    EXPECT_THAT(Shown(accounts, u"schmied"), ElementsAre(0));
    EXPECT_THAT(Shown(accounts, u"x"), ElementsAre(0, 1));
    EXPECT_THAT(Shown({{true, u"A", u""}, {false, u"ab", u"ab"}}, u"ab"), ElementsAre(0, 1));
}

TEST(AccountSearchTest, LetterCaseDoesNotCountInAnyScript) {
    const Accounts accounts = {{true, u"[@SALES`{]", u"M\u00DCLLER \u03A3\u0416\u0130"}};
    EXPECT_THAT(Shown(accounts, u"[@sales`{]"), ElementsAre(0));
    EXPECT_THAT(Shown(accounts, u"m\u00FCller \u03C3\u0436\u0130"), ElementsAre(0));
    EXPECT_THAT(Shown({{true, u"\u212A\u212B", u""}}, u"k\u00E5"), ElementsAre(0)) << "signs of unlike capitals";
}

TEST(AccountSearchTest, UnitsThatAreFoldedToOneByteAreNotTakenForEachOther) {
    EXPECT_THAT(Shown({{true, u"\u6100\u6200", u""}, {true, u"ab", u""}}, u"AB"), ElementsAre(1));
    EXPECT_THAT(Shown({{true, u"abab\u6100\u6200ab", u""}}, u"\u6100\u6200"), ElementsAre(0));
    EXPECT_THAT(Shown({{true, u"a", u""}}, u"\u6100"), ElementsAre());
}

TEST(AccountSearchTest, MatchesNeverReachIntoTheNextTitle) {
    const Accounts accounts = {{true, u"ab", u"cd"}, {false, u"ab", u"ef"}, {true, u"gh", u""}};
    for (const char16_t* text : {u"abcd", u"cde", u"efg", u"b\u0001c", u"\u0001", u"d\u0001"}) {
        EXPECT_THAT(Shown(accounts, text), ElementsAre());
    }
    EXPECT_THAT(Shown(accounts, u"cd"), ElementsAre(0, 1));
}

TEST(AccountSearchTest, PasswordsAreNotSearched) {
    EXPECT_THAT(Shown(smithAndJones, u"password"), ElementsAre());
}

TEST(AccountSearchTest, FalseStartsAreNotTakenForMatches) {
    const Accounts accounts = {{true, u"aaab", u"ababac"}};
    for (const char16_t* text : {u"aab", u"abac", u"c", u"AAAB", u"ababac"}) {
        EXPECT_THAT(Shown(accounts, text), ElementsAre(0));
    }
    for (const char16_t* text : {u"abad", u"cc", u"aaaa", u"bb"}) {
        EXPECT_THAT(Shown(accounts, text), ElementsAre());
    }
}

TEST(AccountSearchTest, ZerosAndLoneSurrogatesAreCharactersLikeOthers) {
    const Accounts accounts = {{true, std::u16string{u'X', u'\0', 0xD800, u'Y'}, u""}};
    EXPECT_THAT(Shown(accounts, std::u16string{u'x', u'\0', 0xD800, u'y'}), ElementsAre(0));
    EXPECT_THAT(Shown(accounts, std::u16string{u'\0'}), ElementsAre(0));
    EXPECT_THAT(Shown(accounts, std::u16string{u'\0', u'\0'}), ElementsAre());
}

TEST(AccountSearchTest, TextsLongerThanAByteCountsAreFound) {
    const std::u16string title = std::u16string(400, u'a') + std::u16string(400, u'b');
    const Accounts accounts = {{true, u"x", u""}, {true, title, u""}, {true, u"y", u""}};
    for (const std::size_t length : {255U, 256U, 257U, 600U, 800U}) {
        EXPECT_THAT(Shown(accounts, title.substr(800 - length)), ElementsAre(1));
        EXPECT_THAT(Shown(accounts, title.substr(0, length)), ElementsAre(1));
    }
    EXPECT_THAT(Shown(accounts, title + u"b"), ElementsAre());
}

TEST(AccountSearchTest, TitlesOfAnyLengthAreSearched) {
    Accounts accounts;
    for (int group = 0; group < 300; ++group) {
        accounts.push_back({true, std::u16string(1000, u'A') + NumberText(group) + u".", u"S"});
    }
    accounts.push_back({true, std::u16string(1'000'000, u'B') + u"c", u"T"});
    accounts.push_back({true, u"Last", u"U"});
    const std::shared_ptr<AccountTable> table = Table(accounts);
    for (const std::uint32_t group : {0U, 1U, 64U, 65U, 298U, 299U}) {
        EXPECT_THAT(ShownIn(table, u"a" + NumberText(group) + u"."), ElementsAre(group));
    }
    EXPECT_THAT(ShownIn(table, u"bc"), ElementsAre(300));
    EXPECT_THAT(ShownIn(table, u"last"), ElementsAre(301));
}

TEST(AccountSearchTest, AGroupThatHasNotEndedIsNotReachedInto) {
    auto table = std::make_shared<AccountTable>();
    table->Add({1, true, u"A", u"", true, false, 0, u""});
    table->Add({2, true, u"needle", u"", true, false, 0, u""});
    AccountSearch search(table, u"needle");
    EXPECT_THAT(search.Shown(0), ElementsAre());
}

TEST(AccountSearchTest, GroupsMayBeAskedForInAnyOrderAndAgain) {
    const std::shared_ptr<AccountTable> table = Table(smithAndJones);
    AccountSearch search(table, u"audit");
    for (const int round : {1, 2}) {
        EXPECT_THAT(search.Shown(1), ElementsAre(3, 4)) << round;
        EXPECT_THAT(search.Shown(1), ElementsAre(3, 4)) << round;
        EXPECT_THAT(search.Shown(0), ElementsAre(0, 1)) << round;
    }
}

// Few letters and short titles, so that hits, false starts and groups of every shape are frequent; many, so that the
// titles fill several blocks.
TEST(AccountSearchTest, WhatIsShownIsWhatTheRuleSays) {
    std::minstd_rand chance(7);
    const auto below = [&chance](std::uint32_t limit) { return static_cast<std::uint32_t>(chance() % limit); };
    const auto title = [&](std::uint32_t longest) {
        std::u16string text;
        for (std::uint32_t left = below(longest + 1); left != 0; --left) {
            text += u"abAB\u00C4\u00E4\u6100"[below(7)];
        }
        return text;
    };
    Accounts accounts;
    std::u16string group;
    for (int i = 0; i < 40'000; ++i) {
        const bool isMain = i == 0 || below(3) == 0;
        if (isMain) {
            group = title(6);
        }
        accounts.push_back({isMain, below(8) == 0 ? title(6) : group, title(8)});
    }
    const std::shared_ptr<AccountTable> table = Table(accounts);
    for (const char16_t* text :
         {u"a", u"\u00E4", u"bA", u"abab", u"aab\u00E4", u"\u6100a\u6100", u"bbbbbb", u"abaabba"}) {
        EXPECT_EQ(ShownIn(table, text), ShownByTheRule(accounts, text)) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace korvanta

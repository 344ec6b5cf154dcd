#include "server/clsAccount.h"
#include "server/search/AccountTable.h"

#include "unit/server/ServerFixture.h"

namespace korvanta {
namespace {

AccountFields Main(std::int32_t id, std::u16string_view title) {
    return {.accountId = id, .isMain = true, .mainTitle = title, .subTitle = {}, .isActive = true, .password = {}};
}
AccountFields Sub(std::int32_t id, std::u16string_view mainTitle, std::u16string_view subTitle) {
    return {.accountId = id, .mainTitle = mainTitle, .subTitle = subTitle, .isActive = true, .password = {}};
}

TEST(AccountTableTest, ANewTableIsEmpty) {
    const AccountTable table;
    EXPECT_EQ(table.Count(), 0U);
    EXPECT_EQ(table.GroupCount(), 0U);
    EXPECT_EQ(table.GroupStart(0), 0U);
    EXPECT_EQ(table.DifferentIds(), 0U);
    EXPECT_EQ(table.Find(0), std::nullopt);
}

TEST(AccountTableTest, EveryFieldComesBack) {
    AccountTable table;
    const std::vector<std::u16string> lines = {
        u"1\u00011\u0001Smith\u0001\u00011\u00010\u00010\u0001secret",
        u"-2147483648\u00010\u0001Smith\u0001Audit\u00010\u00011\u0001-32768\u0001",
        u"2147483647\u00010\u0001Schmidt\u0001x\u00010\u00010\u000132767\u0001pass",
        u"7\u00011\u0001\u0001Own sub title\u00011\u00011\u00012\u0001",
    };
    for (const std::u16string& line : lines) {
        table.Add(ParseAccount(line));
    }
    clsAccount account;
    for (const std::size_t number : {0U, 1U, 2U, 3U, 2U, 0U}) {
        account.Fields(table.Fields(number));
        EXPECT_EQ(account.StringForm(), lines[number]);
    }
}

TEST(AccountTableTest, AGroupIsListedWhenItEnds) {
    AccountTable table;
    table.Add(Main(1, u"A"));
    table.Add(Sub(2, u"A", u"a"));
    EXPECT_EQ(table.GroupCount(), 0U);
    table.Add(Main(3, u"B"));
    EXPECT_EQ(table.GroupCount(), 1U);
    EXPECT_EQ(table.GroupStart(0), 0U);
    EXPECT_EQ(table.GroupStart(1), 2U);
    EXPECT_EQ(table.Count(), 3U);
    table.EndGroup();
    table.EndGroup();
    EXPECT_EQ(table.GroupCount(), 2U);
    EXPECT_EQ(table.GroupStart(2), 3U);
}

TEST(AccountTableTest, ASubAccountNeedsAMainAccountBeforeIt) {
    AccountTable table;
    try {
        table.Add(Sub(1, u"A", u"a"));
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 91);
    }
    EXPECT_EQ(table.Find(1), 0U);
    EXPECT_EQ(table.GroupCount(), 0U);
}

TEST(AccountTableTest, AnIdFindsItsLastAccount) {
    AccountTable table;
    for (const std::int32_t id : {5, -5, 5}) {
        table.Add(Main(id, u"A"));
    }
    EXPECT_EQ(table.DifferentIds(), 2U);
    EXPECT_EQ(table.Find(5), 2U);
    EXPECT_EQ(table.Find(-5), 1U);
    EXPECT_EQ(table.Find(6), std::nullopt);
}

TEST(AccountTableTest, TitlesOfAnyLengthAreHeld) {
    AccountTable table;
    const std::vector<std::size_t> lengths = {0, 1, 65'533, 65'534, 65'535, 65'536, 1'000'000, 3};
    for (const std::size_t length : lengths) {
        const std::u16string title(length, u'x');
        table.Add(Main(static_cast<std::int32_t>(length), title));
        table.Add(Sub(1, title, title + u"y"));
    }
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const AccountFields main = table.Fields(2 * i);
        EXPECT_EQ(main.mainTitle, std::u16string(lengths[i], u'x'));
        EXPECT_EQ(main.subTitle, u"");
        const AccountFields sub = table.Fields(2 * i + 1);
        EXPECT_EQ(sub.mainTitle, std::u16string(lengths[i], u'x'));
        EXPECT_EQ(sub.subTitle, std::u16string(lengths[i], u'x') + u"y");
    }
}

}  // namespace
}  // namespace korvanta

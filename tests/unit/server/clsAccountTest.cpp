#include "server/clsAccount.h"

#include "ServerFixture.h"

namespace korvanta {
namespace {

const std::u16string audit = u"12\u00010\u0001Smith\u0001Audit\u00011\u00010\u00012\u0001secret";

std::int32_t ErrorOf(std::u16string_view text) {
    clsAccount account;
    try {
        account.StringForm(text);
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(Account, TheStringFormIsTheFirstEightFields) {
    clsAccount account;
    account.AccountID = 12;
    account.MainTitle = u"Smith";
    account.SubTitle = u"Audit";
    account.IsActive = true;
    account.RequireComment = 2;
    account.Password = u"secret";
    account.NumPages = 99;
    account.Cost = 99;
    EXPECT_EQ(account.StringForm(), audit);
}

TEST(Account, ANewAccountIsEmpty) {
    EXPECT_EQ(clsAccount().StringForm(), u"0\u00010\u0001\u0001\u00010\u00010\u00010\u0001");
}

TEST(Account, AStringFormReadsBack) {
    clsAccount account;
    account.NumPages = 3;
    account.StringForm(audit);
    EXPECT_EQ(account.AccountID, 12);
    EXPECT_FALSE(account.IsMain);
    EXPECT_EQ(account.MainTitle, u"Smith");
    EXPECT_EQ(account.SubTitle, u"Audit");
    EXPECT_TRUE(account.IsActive);
    EXPECT_FALSE(account.AllowNoninvoiceable);
    EXPECT_EQ(account.RequireComment, 2);
    EXPECT_EQ(account.Password, u"secret");
    EXPECT_EQ(account.NumPages, 3);
    EXPECT_EQ(account.StringForm(), audit);
}

TEST(Account, GenerateStringFormTouchesNoObject) {
    EXPECT_EQ(clsAccount::GenerateStringForm(-1, true, u"Main", u"", false, true, -2, u"p"),
              u"-1\u00011\u0001Main\u0001\u00010\u00011\u0001-2\u0001p");
}

TEST(Account, EveryFlagButZeroIsTrue) {
    for (const std::u16string flag : {u"1", u"", u"no", u"00", u" 0", u"-1", u"False"}) {
        clsAccount account;
        account.StringForm(u"1\u0001" + flag + u"\u0001\u0001\u0001" + flag + u"\u0001" + flag + u"\u00010\u0001");
        EXPECT_TRUE(account.IsMain && account.IsActive && account.AllowNoninvoiceable) << testing::PrintToString(flag);
    }
}

TEST(Account, FieldsAfterTheEighthAreIgnored) {
    clsAccount account;
    account.StringForm(audit + u"\u0001ninth\u0001tenth");
    EXPECT_EQ(account.Password, u"secret");
}

TEST(Account, FewerThanEightFieldsAreAnError) {
    std::u16string text = audit;
    for (std::size_t separator = text.rfind(fieldSeparator); separator != std::u16string::npos;
         separator = text.rfind(fieldSeparator)) {
        text.resize(separator);
        EXPECT_EQ(ErrorOf(text), errorNumber::subscriptOutOfRange) << testing::PrintToString(text);
    }
    EXPECT_EQ(ErrorOf(u""), errorNumber::subscriptOutOfRange);
}

TEST(Account, NumbersThatAreNoneOrTooLargeAreErrors) {
    EXPECT_EQ(ErrorOf(u"x\u00011\u0001\u0001\u00011\u00011\u00010\u0001"), errorNumber::typeMismatch);
    EXPECT_EQ(ErrorOf(u"\u00011\u0001\u0001\u00011\u00011\u00010\u0001"), errorNumber::typeMismatch);
    EXPECT_EQ(ErrorOf(u"1\u00011\u0001\u0001\u00011\u00011\u0001x\u0001"), errorNumber::typeMismatch);
    EXPECT_EQ(ErrorOf(u"1\u00011\u0001\u0001\u00011\u00011\u0001\u0001"), errorNumber::typeMismatch);
    EXPECT_EQ(ErrorOf(u"2147483648\u00011\u0001\u0001\u00011\u00011\u00010\u0001"), errorNumber::overflow);
    EXPECT_EQ(ErrorOf(u"1\u00011\u0001\u0001\u00011\u00011\u000132768\u0001"), errorNumber::overflow);
}

TEST(Account, AFailedStringFormLeavesTheAccountAsItWas) {
    clsAccount account;
    account.StringForm(audit);
    EXPECT_THROW(account.StringForm(u"5\u00011\u0001other"), Error);
    EXPECT_EQ(account.StringForm(), audit);
}

TEST(Account, OddCharactersInTitlesComeThrough) {
    const std::u16string title{u'a', u'\0', 0xDC00, 0xD800, 0xFFFE};
    clsAccount account;
    account.StringForm(u"1\u00010\u0001" + title + u"\u0001" + title + u"\u00011\u00011\u00010\u0001" + title);
    EXPECT_EQ(account.MainTitle, title);
    EXPECT_EQ(account.SubTitle, title);
    EXPECT_EQ(account.Password, title);
}

TEST(Account, CompoundTitleNamesTheMainAccountFirst) {
    clsAccount account;
    account.MainTitle = u"Smith";
    account.SubTitle = u"Audit";
    EXPECT_EQ(account.CompoundTitle(), u"Smith / Audit");
    account.SubTitle = u"";
    EXPECT_EQ(account.CompoundTitle(), u"Smith / ");
    account.IsMain = true;
    account.SubTitle = u"Audit";
    EXPECT_EQ(account.CompoundTitle(), u"Smith");
}

}  // namespace
}  // namespace korvanta

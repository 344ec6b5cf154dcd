#include <ctime>

#include "unit/ui/DialogFixture.h"

namespace korvanta {

namespace {

using testing::ElementsAre;

constexpr std::int32_t accounts = 100'000;
// Seconds of the processor under the sanitizers, where the program is many times as slow as it is.
constexpr double sane = 10.0;

class LargeListTest : public DialogFixture {
  protected:
    LargeListTest() { WriteAccounts(ManyAccounts(accounts / 2)); }

    template <class Action>
    void ExpectSane(const char* what, Action action) {
        const std::clock_t start = std::clock();
        action();
        EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, sane) << what;
    }
};

}  // namespace

TEST_F(LargeListTest, AHundredThousandAccountsAreFilledSearchedAndWalkedInASaneTime) {
    ExpectSane("showing", [this] { Offer(1); });
    EXPECT_EQ(AllIds().size(), 1U * accounts);
    ExpectSane("a search that finds one", [this] {
        Type(u"matter 49999");
        SearchTicks(7);
    });
    EXPECT_THAT(AllIds(), ElementsAre(1000 + 49'999, 1'000'000 + 49'999));
    ExpectSane("a search that finds all", [this] {
        Type(u"ACCOUNT");
        SearchTicks(7);
    });
    EXPECT_EQ(AllIds().size(), 1U * accounts);
    ExpectSane("showing again", [this] {
        SelectAll(1'000'000 + 49'999);
        PressOK();
        Type(u"");
        Offer(2);
    });
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 1'000'000 + 49'999);
    ExpectWhole();
}

TEST_F(LargeListTest, EveryAccountMayBePreferred) {
    for (std::int32_t i = 0; i < 2'000; ++i) {
        Prefs().AddPreferred(1000 + i);
    }
    ExpectSane("showing", [this] { Offer(1); });
    EXPECT_EQ(Ids(Dialog().ctlAccountListPreferred).size(), 2'000U);
}

TEST_F(LargeListTest, PreferencesWithAHundredThousandKeysLoadAndSaveInASaneTime) {
    std::u16string text;
    for (std::int32_t i = 0; i < 100'000; ++i) {
        text += u"key" + NumberText(i) + u"\u0001value\r\n";
    }
    files.WriteUtf16(prefsFile, text);
    ExpectSane("loading", [this] { Prefs(); });
    ExpectSane("saving", [this] { EXPECT_TRUE(Prefs().Save()); });
    EXPECT_TRUE(files.ReadUtf16(prefsFile).starts_with(text));
}

TEST_F(LargeListTest, PreferredAccountsThatAreNoLongerThereAreForgottenInASaneTime) {
    std::u16string text = u"preferred\u00011000,1001";
    for (std::int32_t i = 0; i < 100'000; ++i) {
        text += u"," + NumberText(2'000'000 + i);
    }
    files.WriteUtf16(prefsFile, text + u",1002\r\n");
    ExpectSane("showing", [this] { Offer(1); });
    EXPECT_THAT(Ids(Dialog().ctlAccountListPreferred), ElementsAre(1000, 1001, 1002));
    EXPECT_THAT(Numbers(*Prefs().Preferred()), ElementsAre(1000, 1001, 1002));
}

}  // namespace korvanta

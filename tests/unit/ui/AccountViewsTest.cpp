#include "unit/ui/AccountViewsFixture.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AccountViewsTest : public AccountViewsFixture {};

}  // namespace

TEST_F(AccountViewsTest, WithoutSearchTextEveryGroupIsListedInFileOrder) {
    Dialog().PreLoadAccounts();
    EXPECT_THAT(AllIds(), ElementsAre(1, 11, 12, 2, 21, 3, 4, 5, 6));
    ExpectWhole();
}

TEST_F(AccountViewsTest, TypingTwoLettersQuicklyRunsOneSearchOnTheSeventhTickAfterTheSecond) {
    Dialog().PreLoadAccounts();
    const int before = Fills();
    Type(u"n");
    SearchTicks(6);
    EXPECT_EQ(Fills(), before);
    Type(u"no");
    EXPECT_EQ(TicksUntil({1, 11}), 7);
    EXPECT_EQ(Fills(), before + 1);
    SearchTicks(20);
    EXPECT_EQ(Fills(), before + 1);
}

TEST_F(AccountViewsTest, EnterRunsTheSearchOnTheSecondTickAndIsSwallowed) {
    Dialog().PreLoadAccounts();
    Type(u"no");
    EXPECT_TRUE(Dialog().txtSearch.HandleKeyDown(Key::Enter));
    EXPECT_EQ(TicksUntil({1, 11}), 2);
    EXPECT_EQ(NotificationCount(), 0U);
}

TEST_F(AccountViewsTest, EnterAlsoHurriesASearchThatHasWaitedLess) {
    Dialog().PreLoadAccounts();
    Type(u"no");
    SearchTicks(3);
    Dialog().txtSearch.HandleKeyDown(Key::Enter);
    EXPECT_EQ(TicksUntil({1, 11}), 2);
}

TEST_F(AccountViewsTest, EnterTakesTwoTicksAlsoWhenTheSearchWouldHaveRunAtTheNextOne) {
    Dialog().PreLoadAccounts();
    Type(u"no");
    SearchTicks(6);
    Dialog().txtSearch.HandleKeyDown(Key::Enter);
    EXPECT_EQ(TicksUntil({1, 11}), 2);
}

TEST_F(AccountViewsTest, ATextThatIsTypedAndTakenBackFillsNothingAndKeepsTheSelection) {
    Dialog().PreLoadAccounts();
    const int before = Fills();
    SelectAll(12);
    Type(u"n");
    Type(u"");
    SearchTicks(20);
    EXPECT_EQ(Fills(), before);
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 12);
    EXPECT_FALSE(Dialog().tmrSearch.Enabled());
}

TEST_F(AccountViewsTest, TheSearchTimerRunsOnlyWhileASearchIsPending) {
    Dialog().PreLoadAccounts();
    SearchTicks(1);
    EXPECT_FALSE(Dialog().tmrSearch.Enabled());
    Type(u"no");
    EXPECT_TRUE(Dialog().tmrSearch.Enabled());
    SearchTicks(6);
    EXPECT_TRUE(Dialog().tmrSearch.Enabled());
    SearchTicks(1);
    EXPECT_FALSE(Dialog().tmrSearch.Enabled());
    Dialog().txtSearch.HandleKeyDown(Key::Enter);
    EXPECT_TRUE(Dialog().tmrSearch.Enabled());
}

TEST_F(AccountViewsTest, EnterListsAccountsThatHaveChangedThoughNothingWasTyped) {
    Dialog().PreLoadAccounts();
    WriteAccounts({Main(50, u"New")});
    Accounts().LoadAccounts();
    Dialog().txtSearch.HandleKeyDown(Key::Enter);
    EXPECT_EQ(TicksUntil({50}), 2);
}

TEST_F(AccountViewsTest, ASearchForTheParentListsAllItsSubAccountsAndOneForASubAccountThatOneAlone) {
    Dialog().PreLoadAccounts();
    Search(u"ales");
    EXPECT_THAT(AllIds(), ElementsAre(1, 11, 12));
    Search(u"outh");
    EXPECT_THAT(AllIds(), ElementsAre(1, 12));
    Search(u"nothing like it");
    EXPECT_THAT(AllIds(), IsEmpty());
    Search(u"");
    EXPECT_EQ(AllIds().size(), 9U);
    ExpectWhole();
}

TEST_F(AccountViewsTest, ASearchIgnoresLetterCase) {
    WriteAccounts({Main(1, u"Sales"), Main(2, u"\u00C4rzte"), Main(3, u"\u0416\u0423\u041A")});
    Dialog().PreLoadAccounts();
    Search(u"SALES");
    EXPECT_THAT(AllIds(), ElementsAre(1));
    Search(u"\u00E4RZ");
    EXPECT_THAT(AllIds(), ElementsAre(2));
    Search(u"\u0436\u0443\u043A");
    EXPECT_THAT(AllIds(), ElementsAre(3));
}

// The parent's title in a sub-account's own line counts: such a group is listed, though only with its main account.
TEST_F(AccountViewsTest, AHitInASubAccountsMainTitleListsTheGroupButNotTheSubAccountsWithoutAHit) {
    WriteAccounts({Main(1, u"Sales"), Sub(11, u"Old name", u"North"), Sub(12, u"Sales", u"South")});
    Dialog().PreLoadAccounts();
    Search(u"old");
    EXPECT_THAT(AllIds(), ElementsAre(1));
}

TEST_F(AccountViewsTest, OddSearchTextsFindExactlyWhatHoldsThem) {
    const std::u16string lone{u'A', 0xD800, u'B'};
    const std::u16string nul{u'C', u'\0', u'D'};
    WriteAccounts(
        {Main(1, lone), Main(2, nul), Main(3, u"R&D"), Main(4, u"plain"), Main(5, std::u16string(60'000, u'z'))});
    Dialog().PreLoadAccounts();
    Search(std::u16string{0xD800});
    EXPECT_THAT(AllIds(), ElementsAre(1));
    Search(std::u16string{u'\0'});
    EXPECT_THAT(AllIds(), ElementsAre(2));
    Search(u"&");
    EXPECT_THAT(AllIds(), ElementsAre(3));
    Search(std::u16string(50'000, u'Z'));
    EXPECT_THAT(AllIds(), ElementsAre(5));
    Search(u"\r\n");
    EXPECT_THAT(AllIds(), IsEmpty());
}

TEST_F(AccountViewsTest, ARunningSearchShowsItsProgressTakesTheWaitCursorAndDisablesOK) {
    WriteAccounts(ManyAccounts(100));
    bool looked = false;
    int last = -1;
    platform.messageLoop.onRunPendingOften = [&] {
        looked = true;
        EXPECT_TRUE(Dialog().prgSearch.Visible());
        EXPECT_EQ(Dialog().prgSearch.Maximum(), 100);
        EXPECT_GT(Dialog().prgSearch.Value(), last);
        last = Dialog().prgSearch.Value();
        EXPECT_EQ(last % 5, 0);
        EXPECT_EQ(Dialog().Pointer(), MousePointer::Hourglass);
        EXPECT_FALSE(Dialog().cmdOK.Enabled());
        EXPECT_FALSE(Dialog().ctlAccountListAll.Redraw());
    };
    Dialog().PreLoadAccounts();
    EXPECT_TRUE(looked);
    EXPECT_EQ(platform.messageLoop.oftenRuns, 20);
    EXPECT_EQ(last, 100);
    ExpectWhole();

    Type(u"account");
    last = -1;
    SearchTicks(ticksBeforeSearch);
    EXPECT_EQ(platform.messageLoop.oftenRuns, 40);
    ExpectWhole();
}

TEST_F(AccountViewsTest, TypingAbortsARunningSearchAndStartsAnotherFromTheTimer) {
    WriteAccounts(ManyAccounts(100));
    Dialog().PreLoadAccounts();
    Type(u"account");
    bool typed = false;
    platform.messageLoop.onRunPendingOften = [&] {
        if (!typed) {
            typed = true;
            Type(u"account 10");  // every account again
        }
    };
    SearchTicks(ticksBeforeSearch);
    EXPECT_TRUE(typed);
    EXPECT_EQ(AllIds().size(), 12U);
    ExpectWhole();
    SearchTicks(ticksBeforeSearch - 1);
    EXPECT_EQ(AllIds().size(), 12U);
    SearchTicks(1);
    EXPECT_EQ(AllIds().size(), 200U);
    ExpectWhole();
}

TEST_F(AccountViewsTest, EachGroupIsComparedWithTheTextAsItIsThen) {
    WriteAccounts(ManyAccounts(100));
    Dialog().PreLoadAccounts();
    Type(u"account");
    bool typed = false;
    platform.messageLoop.onRunPendingOften = [&] {
        if (!typed) {
            typed = true;
            Type(u"nothing like it");
        }
    };
    SearchTicks(ticksBeforeSearch);
    EXPECT_EQ(AllIds().size(), 10U) << "five groups, and of the sixth, which has no such title, nothing";
}

TEST_F(AccountViewsTest, TheAccountChosenLastIsSelectedInEveryViewThatListsItAndTheFirstRowOtherwise) {
    SetPreferred({21, 12});
    Prefs().SetLastSelectedAccount(1);
    Prefs().SetLastSelectedAccount(12);
    Dialog().PreLoadAccounts();
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 12);
    EXPECT_EQ(Dialog().ctlAccountListPreferred.SelectedID(), 12);
    EXPECT_EQ(Dialog().ctlAccountListRecent.SelectedID(), 12);
    Search(u"research");
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 2);
}

TEST_F(AccountViewsTest, AUserWithoutHistoryStandsOnTheFirstRow) {
    Dialog().PreLoadAccounts();
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 1);
    EXPECT_EQ(Dialog().ctlAccountListRecent.SelectedID(), -1);
}

TEST_F(AccountViewsTest, TheRecentViewListsTheNewestFirstAndSkipsButKeepsUnknownAccounts) {
    for (const std::int32_t id : {1, 99, 12, 2}) {
        Prefs().SetLastSelectedAccount(id);
    }
    Dialog().PreLoadAccounts();
    EXPECT_THAT(RecentRows(), ElementsAre(2, 12, 1));
    EXPECT_THAT(Numbers(*Prefs().History()), ElementsAre(1, 99, 12, 2));
}

TEST_F(AccountViewsTest, ATabShowsItsFrameAloneAndIsRemembered) {
    Dialog().PreLoadAccounts();
    for (const int tab : {2, 3, 1, 3}) {
        ChooseTab(tab);
        EXPECT_EQ(Dialog().fraAllAccounts.Visible(), tab == 1);
        EXPECT_EQ(Dialog().fraPreferred.Visible(), tab == 2);
        EXPECT_EQ(Dialog().fraRecent.Visible(), tab == 3);
        EXPECT_EQ(Prefs().LastTab(), tab);
    }
}

TEST_F(AccountViewsTest, ATabAppliesTheRulesOfTheAccountSelectedInItsList) {
    SetPreferred({4});
    Prefs().SetLastSelectedAccount(6);
    Dialog().PreLoadAccounts();
    SelectAll(1);
    EXPECT_FALSE(Dialog().txtComment.Enabled());
    ChooseTab(2);
    EXPECT_TRUE(Dialog().txtComment.Enabled());
    EXPECT_TRUE(Dialog().chkInvoice.Enabled());
    ChooseTab(3);
    EXPECT_FALSE(Dialog().txtComment.Enabled());
    EXPECT_FALSE(Dialog().chkInvoice.Enabled());
    EXPECT_TRUE(Dialog().chkInvoice.Value());
    ChooseTab(1);
    EXPECT_TRUE(Dialog().chkInvoice.Enabled());
}

TEST_F(AccountViewsTest, ShowingTheDialogRestoresTheTabAndTheRememberedSearch) {
    files.WriteUtf16(
        prefsFile, u"lasttab\u00013\r\nlastsearchremember\u00011\r\nlastsearchstring\u0001north\r\nhistory\u00011\r\n");
    Offer(1);
    EXPECT_EQ(Dialog().tabView.Selected(), 3);
    EXPECT_TRUE(Dialog().fraRecent.Visible());
    EXPECT_TRUE(Dialog().chkRememberSearch.Value());
    EXPECT_EQ(Dialog().txtSearch.Text(), u"north");
    EXPECT_THAT(AllIds(), ElementsAre(1, 11));
    SearchTicks(20);
    EXPECT_THAT(AllIds(), ElementsAre(1, 11));
}

TEST_F(AccountViewsTest, ShowingTheDialogEmptiesASearchThatIsNotRemembered) {
    files.WriteUtf16(prefsFile, u"lastsearchremember\u00010\r\nlastsearchstring\u0001north\r\n");
    Dialog().PreLoadAccounts();
    Dialog().chkRememberSearch.HandleClick(true);
    Search(u"south");
    Offer(1);
    EXPECT_FALSE(Dialog().chkRememberSearch.Value());
    EXPECT_EQ(Dialog().txtSearch.Text(), u"");
    EXPECT_EQ(AllIds().size(), 9U);
}

TEST_F(AccountViewsTest, TheTabThatIsShownIsStoredEvenWhenItDidNotChange) {
    Offer(1);
    PressCancel();
    EXPECT_TRUE(files.ReadUtf16(prefsFile).starts_with(u"lasttab\u00011\r\n"));
}

class StoredTabTest : public AccountViewsTest, public testing::WithParamInterface<const char16_t*> {};

TEST_P(StoredTabTest, ThatIsNoneShowsTheFirstAtTheStart) {
    files.WriteUtf16(prefsFile, std::u16string(u"lasttab\u0001") + GetParam() + u"\r\n");
    Offer(1);
    EXPECT_EQ(Dialog().tabView.Selected(), 1);
    EXPECT_TRUE(Dialog().fraAllAccounts.Visible());
    EXPECT_EQ(Prefs().LastTab(), 1);
    ExpectWhole();
}

INSTANTIATE_TEST_SUITE_P(Everything, StoredTabTest,
                         testing::Values(u"0", u"-1", u"word", u"", u"4", u"99", u"-32768", u"99999999999"));

TEST_F(AccountViewsTest, ARememberedTabThatIsNoneLeavesTheTabThatIsShown) {
    ChooseTab(2);
    for (const std::int16_t tab : std::initializer_list<std::int16_t>{0, -1, 4, 32767}) {
        Prefs().LastTab(tab);
        Offer(1);
        EXPECT_EQ(Dialog().tabView.Selected(), 2);
        EXPECT_TRUE(Dialog().fraPreferred.Visible());
        EXPECT_EQ(Prefs().LastTab(), 2);
        ExpectWhole();
        PressCancel();
    }
}

TEST_F(AccountViewsTest, TheKeyboardWalksTheListFromTheSearchBox) {
    WriteAccounts(ManyAccounts(50));
    Dialog().PreLoadAccounts();
    ctlAccountList& list = Dialog().ctlAccountListAll;
    list.flxAccounts.HandleViewport(1, 10);
    TextBox& search = Dialog().txtSearch;
    EXPECT_TRUE(search.HandleKeyDown(Key::Down));
    EXPECT_EQ(list.flxAccounts.Row(), 2);
    EXPECT_TRUE(search.HandleKeyDown(Key::PageDown));
    EXPECT_EQ(list.flxAccounts.Row(), 12);
    EXPECT_TRUE(list.flxAccounts.RowIsVisible(12));
    EXPECT_TRUE(search.HandleKeyDown(Key::PageUp));
    EXPECT_TRUE(search.HandleKeyDown(Key::Up));
    EXPECT_TRUE(search.HandleKeyDown(Key::Up));
    EXPECT_EQ(list.flxAccounts.Row(), 1);
    EXPECT_TRUE(list.flxAccounts.RowIsVisible(1));
    for (int i = 0; i < 20; ++i) {
        search.HandleKeyDown(Key::PageDown);
    }
    EXPECT_EQ(list.flxAccounts.Row(), 100);
    EXPECT_TRUE(search.HandleKeyDown(Key::ControlHome));
    EXPECT_EQ(list.flxAccounts.Row(), 1);
    EXPECT_TRUE(search.HandleKeyDown(Key::ControlEnd));
    EXPECT_EQ(list.flxAccounts.Row(), 100);
    for (const Key key : {Key::Escape, Key::Other}) {
        EXPECT_FALSE(search.HandleKeyDown(key));
    }
}

TEST_F(AccountViewsTest, HomeAndEndWalkTheListFromAnEmptySearchBoxAndTheCursorInOneWithText) {
    Dialog().PreLoadAccounts();
    Grid& grid = Dialog().ctlAccountListAll.flxAccounts;
    EXPECT_TRUE(Dialog().txtSearch.HandleKeyDown(Key::End));
    EXPECT_EQ(grid.Row(), grid.Rows() - 1);
    EXPECT_TRUE(Dialog().txtSearch.HandleKeyDown(Key::Home));
    EXPECT_EQ(grid.Row(), 1);
    Dialog().txtSearch.HandleChange(u"a");
    EXPECT_FALSE(Dialog().txtSearch.HandleKeyDown(Key::End));
    EXPECT_FALSE(Dialog().txtSearch.HandleKeyDown(Key::Home));
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(AccountViewsTest, ATabThatAKeyChoosesGivesTheKeyboardToItsSearchBoxOrList) {
    Dialog().PreLoadAccounts();
    const auto focused = [this](const Control& control) { return peers.Of(control).focused; };
    Dialog().tabView.HandleChosenByKey(2);
    EXPECT_TRUE(Dialog().fraPreferred.Visible());
    EXPECT_EQ(focused(Dialog().ctlAccountListPreferred.flxAccounts), 1);
    Dialog().tabView.HandleStepByKey(1);
    EXPECT_EQ(focused(Dialog().ctlAccountListRecent.flxAccounts), 1);
    Dialog().tabView.HandleStepByKey(1);
    EXPECT_TRUE(Dialog().fraAllAccounts.Visible());
    EXPECT_EQ(focused(Dialog().txtSearch), 1);
    Dialog().tabView.HandleChosenByKey(1);
    EXPECT_EQ(focused(Dialog().txtSearch), 2) << "also when the tab is there already";
}

TEST_F(AccountViewsTest, TheAccountsThatASearchAddsDoNotApplyTheirRules) {
    Prefs().SetLastSelectedAccount(1);
    Dialog().PreLoadAccounts();
    Dialog().chkInvoice.HandleClick(true);
    Dialog().chkInvoice.HandleClick(false);
    Search(u"a");  // the board, which must be invoiced, among others
    EXPECT_EQ(AllIds().back(), 6);
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 1);
    EXPECT_FALSE(Dialog().chkInvoice.Value());
}

TEST_F(AccountViewsTest, WalkingAppliesTheRulesOfEachAccount) {
    Dialog().PreLoadAccounts();
    SelectAll(3);
    EXPECT_FALSE(Dialog().txtComment.Enabled());
    Dialog().txtSearch.HandleKeyDown(Key::Down);
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 4);
    EXPECT_TRUE(Dialog().txtComment.Enabled());
}

TEST_F(AccountViewsTest, AChangedAccountsFileIsShownForTheNextJob) {
    Offer(1);
    PressCancel();
    WriteAccounts({Main(50, u"New")});
    Offer(2);
    EXPECT_THAT(AllIds(), ElementsAre(50));
    ExpectWhole();
}

TEST_F(AccountViewsTest, AnUnchangedAccountsFileIsNotListedAnew) {
    Offer(1);
    const int before = Fills();
    PressCancel();
    Offer(2);
    EXPECT_EQ(Fills(), before);
    EXPECT_EQ(AllIds().size(), 9U);
}

TEST_F(AccountViewsTest, AnUnchangedListStandsOnTheAccountChosenLastAgain) {
    Offer(1);
    SelectAll(21);
    PressOK();
    Offer(2);
    SelectAll(1);
    PressCancel();
    Offer(3);
    EXPECT_EQ(Dialog().ctlAccountListAll.SelectedID(), 21);
}

TEST_F(AccountViewsTest, ASearchThatFailsHalfWayLeavesTheViewWhole) {
    WriteAccounts(ManyAccounts(30));
    Dialog().PreLoadAccounts();
    for (int failing = 0; failing < 40; ++failing) {
        Type(u"account " + NumberText(failing));
        SearchTicks(ticksBeforeSearch - 1);
        for (int good = 0; good < failing; ++good) {
            platform.mutexes.state.waitResults.push_back(WaitResult::Acquired);
        }
        platform.mutexes.state.waitResults.push_back(WaitResult::Failed);
        EXPECT_NO_THROW(SearchTicks(1));
        platform.mutexes.state.waitResults.clear();
        ExpectWhole();
    }
}

TEST_F(AccountViewsTest, OldAccountsAreLetGoBeforeNewOnesAreRead) {
    Dialog().PreLoadAccounts();
    const std::weak_ptr<const AccountTable> old = Accounts().Table();
    WriteAccounts({Main(1, u"Sales")});
    bool expired = false;
    files.onRead = [&](const std::u16string&) { expired = old.expired(); };
    Offer(1);
    files.onRead = nullptr;
    EXPECT_TRUE(expired) << "two lists of a million accounts do not fit";
    EXPECT_THAT(AllIds(), ElementsAre(1));
}

}  // namespace korvanta

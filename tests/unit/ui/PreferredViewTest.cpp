#include "unit/ui/AccountViewsFixture.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PreferredViewTest : public AccountViewsFixture {};

}  // namespace

TEST_F(PreferredViewTest, AnUnknownPreferredAccountGoesWithANonEmptyListAndStaysWithAnEmptyOne) {
    SetPreferred({99, 21, 98, 1});
    files.RemoveFile(accountsFile);
    Dialog().PreLoadAccounts();
    Offer(1);
    EXPECT_THAT(Preferred(), ElementsAre(99, 21, 98, 1));
    WriteAccounts(StandardAccounts());
    Offer(2);
    EXPECT_THAT(Preferred(), ElementsAre(21, 1));
    EXPECT_THAT(PreferredRows(), ElementsAre(21, 1));
}

TEST_F(PreferredViewTest, AFillWithAnEmptyListTakesNoPreferredAccountAway) {
    SetPreferred({1, 12, 2});
    Dialog().PreLoadAccounts();
    files.RemoveFile(accountsFile);
    files.RemoveFile(u"C:\\Temp\\tlxact.txt");
    EXPECT_FALSE(Accounts().LoadAccounts());
    Select(Dialog().ctlAccountListPreferred, 12);
    Dialog().lblRemovePreferred.HandleClick();
    EXPECT_THAT(PreferredRows(), IsEmpty()) << "the view was filled";
    EXPECT_THAT(Preferred(), ElementsAre(1, 2));
}

TEST_F(PreferredViewTest, AListThatCouldNotBeReadWholeTakesNoPreferredAccountAway) {
    Lines lines = StandardAccounts();
    Dialog().PreLoadAccounts();
    SetPreferred({21, 1});
    WriteAccounts({lines[0], u"no account at all"});
    files.WriteUtf16(u"C:\\Temp\\tlxact.txt", lines[0] + u"\r\nno account at all\r\n");
    Offer(1);
    EXPECT_EQ(Accounts().AccountDict().Count(), 1U);
    Select(Dialog().ctlAccountListAll, 1);
    Dialog().lblAddPreferred.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(21, 1));
}

TEST_F(PreferredViewTest, AddingTheSelectedAccountShowsItInThePreferredView) {
    Dialog().PreLoadAccounts();
    SelectAll(12);
    Dialog().lblAddPreferred.HandleClick();
    SelectAll(2);
    Dialog().lblAddPreferred.HandleClick();
    Dialog().lblAddPreferred.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(12, 2));
    EXPECT_THAT(PreferredRows(), ElementsAre(12, 2));
    ExpectWhole();
}

TEST_F(PreferredViewTest, AnIdOfZeroOrBelowIsNeitherAddedNorRemovedNorMoved) {
    WriteAccounts({Main(0, u"Zero"), Main(-5, u"Negative"), Main(7, u"Seven")});
    Dialog().PreLoadAccounts();
    for (const std::int32_t id : {0, -5}) {
        SelectAll(id);
        Dialog().lblAddPreferred.HandleClick();
        EXPECT_THAT(Preferred(), IsEmpty());
    }
    SetPreferred({7, 0, -5, 7});
    Dialog().PreLoadAccounts();
    for (const std::int32_t id : {0, -5}) {
        Select(Dialog().ctlAccountListPreferred, id);
        for (Label* label : {&Dialog().lblRemovePreferred, &Dialog().lblMoveUp, &Dialog().lblMoveDown}) {
            label->HandleClick();
            EXPECT_THAT(Preferred(), ElementsAre(7, 0, -5)) << id;
        }
    }
}

TEST_F(PreferredViewTest, AddingAndRemovingShowTheWaitCursorWhileThePreferredViewIsFilled) {
    SetPreferred({1});
    Dialog().PreLoadAccounts();
    std::vector<MousePointer> pointers;
    peers.onChanged = [&](Control& control, Aspect aspect) {
        if (&control == &Dialog().ctlAccountListPreferred.flxAccounts && aspect == Aspect::Content) {
            pointers.push_back(Dialog().Pointer());
        }
    };
    for (Label* label : {&Dialog().lblAddPreferred, &Dialog().lblRemovePreferred}) {
        pointers.clear();
        SelectAll(12);
        label->HandleClick();
        EXPECT_THAT(pointers, testing::Not(IsEmpty()));
        EXPECT_THAT(pointers, testing::Each(MousePointer::Hourglass));
        EXPECT_EQ(Dialog().Pointer(), MousePointer::Default);
    }
    peers.onChanged = nullptr;
}

TEST_F(PreferredViewTest, NothingIsAddedRemovedOrMovedWithoutASelection) {
    WriteAccounts({});
    Dialog().PreLoadAccounts();
    SetPreferred({1, 2});
    for (Label* label :
         {&Dialog().lblAddPreferred, &Dialog().lblRemovePreferred, &Dialog().lblMoveUp, &Dialog().lblMoveDown}) {
        label->HandleClick();
    }
    EXPECT_THAT(Preferred(), ElementsAre(1, 2));
    ExpectWhole();
}

TEST_F(PreferredViewTest, RemovingTheSelectedAccountTakesItFromThePreferredView) {
    SetPreferred({1, 12, 2});
    Dialog().PreLoadAccounts();
    Select(Dialog().ctlAccountListPreferred, 12);
    Dialog().lblRemovePreferred.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(1, 2));
    EXPECT_THAT(PreferredRows(), ElementsAre(1, 2));
    ExpectWhole();
}

TEST_F(PreferredViewTest, AMovedAccountChangesPlacesWithItsNeighbourAndNothingElse) {
    SetPreferred({1, 12, 2, 21});
    Dialog().PreLoadAccounts();
    Select(Dialog().ctlAccountListPreferred, 2);
    Dialog().lblMoveUp.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(1, 2, 12, 21));
    EXPECT_THAT(PreferredRows(), ElementsAre(1, 2, 12, 21));
    Select(Dialog().ctlAccountListPreferred, 12);
    Dialog().lblMoveDown.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(1, 2, 21, 12));
    EXPECT_THAT(PreferredRows(), ElementsAre(1, 2, 21, 12));
}

TEST_F(PreferredViewTest, AMovedAccountStaysSelected) {
    SetPreferred({1, 12, 2});
    Dialog().PreLoadAccounts();
    Select(Dialog().ctlAccountListPreferred, 12);
    Dialog().lblMoveUp.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(12, 1, 2));
    EXPECT_THAT(PreferredRows(), ElementsAre(12, 1, 2));
    EXPECT_EQ(Dialog().ctlAccountListPreferred.SelectedID(), 12);
    Dialog().lblMoveDown.HandleClick();
    Dialog().lblMoveDown.HandleClick();
    EXPECT_THAT(PreferredRows(), ElementsAre(1, 2, 12));
    EXPECT_EQ(Dialog().ctlAccountListPreferred.SelectedID(), 12);
}

TEST_F(PreferredViewTest, MovingTheFirstUpOrTheLastDownChangesNothing) {
    SetPreferred({1, 12, 2});
    Dialog().PreLoadAccounts();
    Select(Dialog().ctlAccountListPreferred, 1);
    Dialog().lblMoveUp.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(1, 12, 2));
    Select(Dialog().ctlAccountListPreferred, 2);
    Dialog().lblMoveDown.HandleClick();
    EXPECT_THAT(Preferred(), ElementsAre(1, 12, 2));
    EXPECT_EQ(Dialog().ctlAccountListPreferred.SelectedID(), 2);
}

TEST_F(PreferredViewTest, ANewOrderIsWrittenWithTheNextCancel) {
    SetPreferred({1, 12});
    Offer(1);
    Select(Dialog().ctlAccountListPreferred, 12);
    Dialog().lblMoveUp.HandleClick();
    EXPECT_FALSE(files.Has(prefsFile));
    PressCancel();
    EXPECT_NE(files.ReadUtf16(prefsFile).find(u"preferred\u000112,1\r\n"), std::u16string::npos);
}

TEST_F(PreferredViewTest, TheCaptionsOfThePreferredListAreAsTheyStand) {
    EXPECT_EQ(Dialog().lblAddPreferred.Caption(), u"Add selected account to preferred list");
    EXPECT_EQ(Dialog().lblRemovePreferred.Caption(), u"Remove selected account from preferred list");
    EXPECT_EQ(Dialog().lblPreferredList.Caption(), u"Preferred list");
}

TEST_F(PreferredViewTest, AListThatFailsWhileItIsFilledIsShownAgain) {
    SetPreferred({1, 12});
    Dialog().PreLoadAccounts();
    SelectAll(2);
    // Somewhere inside the refill a list cannot be read.
    for (int failing = 0; failing < 12; ++failing) {
        for (int good = 0; good < failing; ++good) {
            platform.mutexes.state.waitResults.push_back(WaitResult::Acquired);
        }
        platform.mutexes.state.waitResults.push_back(WaitResult::TimedOut);
        EXPECT_NO_THROW(Dialog().lblAddPreferred.HandleClick());
        platform.mutexes.state.waitResults.clear();
        ExpectWhole();
    }
}

}  // namespace korvanta

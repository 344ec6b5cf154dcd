#include "ui/ctlAccountList.h"

#include "fakes/PlainTranslator.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"

namespace korvanta {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Color midGrey = 0x707070;

clsAccount MainAccount(std::int32_t id, const std::u16string& title, bool active = true) {
    clsAccount account;
    account.AccountID = id;
    account.IsMain = true;
    account.MainTitle = title;
    account.IsActive = active;
    return account;
}
clsAccount SubAccount(std::int32_t id, const std::u16string& mainTitle, const std::u16string& subTitle) {
    clsAccount account = MainAccount(id, mainTitle);
    account.IsMain = false;
    account.SubTitle = subTitle;
    return account;
}

// Gives every label that is an account list's header another text.
class HeaderTranslator : public fakes::PlainTranslator {
  public:
    void Translate(Container& form) override {
        if (Control* header = form.Find(u"lblAccount")) {
            header->Caption(u"Konto");
        }
    }
};

class AccountListTest : public testing::Test {
  protected:
    AccountListTest() {
        list.Click.Connect([this] { clicks.push_back(list.SelectedID()); });
        list.DblClick.Connect([this] { ++doubleClicks; });
    }
    std::u16string Title(int row) { return std::u16string(list.flxAccounts.Text(row, 1)); }
    void AddThree() {
        list.AddAccount(MainAccount(10, u"A"));
        list.AddAccount(SubAccount(20, u"A", u"B"));
        list.AddAccount(MainAccount(30, u"C", false));
        clicks.clear();
    }

    fakes::PlainTranslator translator;
    ctlAccountList list{u"list", translator};
    std::vector<std::int32_t> clicks;
    int doubleClicks = 0;
};

}  // namespace

TEST_F(AccountListTest, StartsWithAHeaderAloneNamedByItsLabel) {
    EXPECT_EQ(list.flxAccounts.Rows(), 1);
    EXPECT_EQ(list.flxAccounts.Columns(), 4);
    EXPECT_EQ(Title(0), u"Account");
    EXPECT_EQ(list.flxAccounts.ColWidth(0), 250);
    EXPECT_EQ(list.flxAccounts.ColWidth(2), 0);
    EXPECT_EQ(list.flxAccounts.ColWidth(3), 0);
    EXPECT_EQ(list.flxAccounts.ColAlignment(0), Alignment::Center);
    EXPECT_EQ(list.flxAccounts.ColAlignment(1), Alignment::Left);
    for (const int column : {0, 1, 2}) {
        EXPECT_EQ(list.flxAccounts.HeaderAlignment(column), Alignment::Center);
    }
    EXPECT_FALSE(list.lblAccount.Visible());
    EXPECT_FALSE(list.imgTop.Visible());
    EXPECT_EQ(list.SelectedID(), -1);
}

TEST_F(AccountListTest, TheHeaderIsTranslatedBeforeTheGridTakesIt) {
    HeaderTranslator translated;
    const ctlAccountList other(u"other", translated);
    EXPECT_EQ(other.flxAccounts.Text(0, 1), u"Konto");
}

TEST_F(AccountListTest, AfterClearNothingIsSelectedAndNothingIsActive) {
    AddThree();
    list.SelectedID(20);
    EXPECT_TRUE(list.SelectedActive());
    clicks.clear();
    list.Clear();
    EXPECT_EQ(list.flxAccounts.Rows(), 1);
    EXPECT_EQ(list.SelectedID(), -1);
    EXPECT_FALSE(list.SelectedActive());
    EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(AccountListTest, RowsStandInTheOrderOfTheCallsAndTheLastOneIsCurrent) {
    AddThree();
    EXPECT_EQ(list.flxAccounts.Text(1, 2), u"10");
    EXPECT_EQ(list.flxAccounts.Text(2, 2), u"20");
    EXPECT_EQ(list.flxAccounts.Text(3, 2), u"30");
    EXPECT_EQ(list.SelectedID(), 30);
}

TEST_F(AccountListTest, WritingAnUnknownIdSelectsTheFirstRowAndRaisesClick) {
    AddThree();
    list.SelectedID(99);
    EXPECT_EQ(list.SelectedID(), 10);
    EXPECT_FALSE(clicks.empty());
    EXPECT_EQ(clicks.back(), 10);
}

TEST_F(AccountListTest, WritingAnIdOnAnEmptyListRaisesNothing) {
    list.SelectedID(10);
    EXPECT_THAT(clicks, IsEmpty());
    EXPECT_EQ(list.SelectedID(), -1);
    EXPECT_EQ(list.flxAccounts.Col(), 1);
    EXPECT_EQ(list.flxAccounts.ColSel(), 1);
}

TEST_F(AccountListTest, WritingTheIdThatIsSelectedAlreadyRaisesClickAllTheSame) {
    AddThree();
    list.SelectedID(30);
    EXPECT_THAT(clicks, ElementsAre(30));
}

TEST_F(AccountListTest, OfSeveralRowsWithOneIdTheLastIsSelected) {
    list.AddAccount(MainAccount(7, u"First"));
    list.AddAccount(MainAccount(8, u"Other"));
    list.AddAccount(MainAccount(7, u"Last"));
    list.AddAccount(MainAccount(9, u"Other"));
    list.SelectedID(7);
    EXPECT_EQ(list.flxAccounts.Row(), 3);
}

TEST_F(AccountListTest, TheWholeRowIsSelected) {
    AddThree();
    list.SelectedID(20);
    EXPECT_EQ(list.flxAccounts.Col(), 0);
    EXPECT_EQ(list.flxAccounts.ColSel(), 3);
    list.flxAccounts.HandleRow(1);
    EXPECT_EQ(list.flxAccounts.ColSel(), 3);
    EXPECT_EQ(clicks.back(), 10);
}

TEST_F(AccountListTest, TheHeaderRowRaisesNothing) {
    AddThree();
    list.flxAccounts.HandleRow(0);
    EXPECT_THAT(clicks, IsEmpty());
    EXPECT_EQ(list.SelectedID(), -1);
}

TEST_F(AccountListTest, AnInactiveAccountIsGreyAndSelectableButNotActive) {
    AddThree();
    EXPECT_EQ(list.flxAccounts.CellForeColor(3), midGrey);
    EXPECT_EQ(list.flxAccounts.Text(3, 3), u"");
    list.SelectedID(30);
    EXPECT_FALSE(list.SelectedActive());
    EXPECT_EQ(list.SelectedID(), 30);
    list.SelectedID(20);
    EXPECT_TRUE(list.SelectedActive());
    EXPECT_EQ(list.flxAccounts.CellForeColor(2), 0U);
}

TEST_F(AccountListTest, DisplayModeOneShowsTheParentBeforeASubAccount) {
    list.AccountDisplay(1);
    list.AddAccount(SubAccount(1, u"A", u"B"));
    list.AddAccount(MainAccount(2, u"A"));
    list.AccountDisplay(0);
    list.AddAccount(SubAccount(3, u"A", u"B"));
    list.AddAccount(MainAccount(4, u"A"));
    list.AccountDisplay(2);
    list.AddAccount(SubAccount(5, u"A", u"B"));
    EXPECT_EQ(Title(1), u"A -> B");
    EXPECT_EQ(Title(2), u"A");
    EXPECT_EQ(Title(3), u"B");
    EXPECT_EQ(Title(4), u"A");
    EXPECT_EQ(Title(5), u"B");
    EXPECT_FALSE(list.flxAccounts.CellPicture(1));
    EXPECT_TRUE(list.flxAccounts.CellPicture(2));
    EXPECT_FALSE(list.flxAccounts.CellPicture(3));
    EXPECT_TRUE(list.flxAccounts.CellPicture(4));
}

TEST_F(AccountListTest, ChangingTheDisplayModeLeavesTheRowsThatAreThere) {
    list.AddAccount(SubAccount(1, u"A", u"B"));
    list.AccountDisplay(1);
    EXPECT_EQ(Title(1), u"B");
}

TEST_F(AccountListTest, NarrowerThan400TwipsTheTitleColumnHasNoWidth) {
    list.Move({0, 0, 5000, 3000});
    EXPECT_EQ(list.flxAccounts.Position(), (Place{0, 0, 5000, 3000}));
    EXPECT_EQ(list.flxAccounts.ColWidth(1), 4600);
    list.Move({0, 0, 399, 3000});
    EXPECT_EQ(list.flxAccounts.ColWidth(1), 0);
    EXPECT_EQ(list.flxAccounts.ColWidth(0), 250);
    list.Move({0, 0, 0, 0});
    EXPECT_EQ(list.flxAccounts.ColWidth(1), 0);
    list.Move({0, 0, 5000, 3000});
    EXPECT_EQ(list.flxAccounts.ColWidth(1), 4600);
}

TEST_F(AccountListTest, RedrawIsTheGridsOwn) {
    list.Redraw(false);
    EXPECT_FALSE(list.flxAccounts.Redraw());
    EXPECT_FALSE(list.Redraw());
    list.flxAccounts.Redraw(true);
    EXPECT_TRUE(list.Redraw());
}

TEST_F(AccountListTest, ClicksOfTheGridAreHandedOn) {
    AddThree();
    list.flxAccounts.HandleClick();
    EXPECT_THAT(clicks, ElementsAre(30));
    list.flxAccounts.HandleDblClick();
    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(AccountListTest, ARowOutOfViewBecomesTheTopRowAndOneInViewDoesNotMoveTheList) {
    for (std::int32_t id = 1; id <= 100; ++id) {
        list.AddAccount(MainAccount(id, u"A"));
    }
    list.flxAccounts.HandleViewport(1, 10);
    list.SelectedID(50);
    EXPECT_EQ(list.flxAccounts.TopRow(), 50);
    list.flxAccounts.HandleViewport(45, 10);
    list.SelectedID(54);
    EXPECT_EQ(list.flxAccounts.TopRow(), 45);
    list.SelectedID(55);
    EXPECT_EQ(list.flxAccounts.TopRow(), 55);
}

TEST_F(AccountListTest, ExtremeIdsAndTitlesAreKept) {
    const std::u16string odd{u'A', u'&', u'\0', 0xD800, u'\t', u'Z'};
    list.AddAccount(MainAccount(2147483647, odd));
    list.AddAccount(MainAccount(-2147483647 - 1, std::u16string(100'000, u'x')));
    list.SelectedID(2147483647);
    EXPECT_EQ(list.SelectedID(), 2147483647);
    EXPECT_EQ(Title(1), odd);
    list.SelectedID(-2147483647 - 1);
    EXPECT_EQ(list.SelectedID(), -2147483647 - 1);
    EXPECT_EQ(Title(2).size(), 100'000U);
}

TEST_F(AccountListTest, WalkingStaysWithinTheDataRows) {
    list.MoveBy(1);
    EXPECT_EQ(list.SelectedID(), -1);
    AddThree();
    list.MoveBy(1);
    EXPECT_EQ(list.SelectedID(), 30);
    list.MoveBy(-1);
    EXPECT_EQ(list.SelectedID(), 20);
    list.MoveBy(-1000);
    EXPECT_EQ(list.SelectedID(), 10);
    list.MoveBy(1000);
    EXPECT_EQ(list.SelectedID(), 30);
}

TEST_F(AccountListTest, WalkingOutOfViewScrollsByAsMuch) {
    for (std::int32_t id = 1; id <= 30; ++id) {
        list.AddAccount(MainAccount(id, u"A"));
    }
    list.flxAccounts.HandleViewport(1, 10);
    list.flxAccounts.HandleRow(9);
    list.MoveBy(1);
    EXPECT_EQ(list.flxAccounts.TopRow(), 1);
    list.MoveBy(1);
    EXPECT_EQ(list.flxAccounts.TopRow(), 2);
    list.flxAccounts.HandleRow(2);
    list.MoveBy(-1);
    EXPECT_EQ(list.flxAccounts.TopRow(), 1);
}

TEST_F(AccountListTest, OnlyActiveAccountsMayBeCharged) {
    AddThree();
    EXPECT_THAT(list.ActiveIDs(), ElementsAre(10, 20));
}

// The owner may change the list from inside its Click.
TEST_F(AccountListTest, ClearingTheListInsideItsClickIsHarmless) {
    AddThree();
    list.Click.Connect([this] { list.Clear(); });
    list.flxAccounts.HandleRow(1);
    EXPECT_EQ(list.SelectedID(), -1);
    list.AddAccount(MainAccount(1, u"A"));
    EXPECT_EQ(list.flxAccounts.Rows(), 1);
}

}  // namespace korvanta

#include "PeersTest.h"

#include <commctrl.h>

namespace korvanta {
namespace {

constexpr WPARAM beforeFirst = static_cast<WPARAM>(-1);

class ListPeers : public PeersTest {
  protected:
    ListPeers() {
        grid.Columns(4);
        grid.ColWidth(0, 250);
        grid.ColWidth(1, 4000);
        grid.Text(0, 1, u"Account");
        Place(grid, 150, 150, 4500, 3000);
    }
    ~ListPeers() override { form.Detach(); }

    void Fill(int rows) {
        grid.Redraw(false);
        grid.Rows(1);
        grid.Rows(rows + 1);
        for (int row = 1; row <= rows; ++row) {
            grid.Text(row, 1, Title(row));
        }
        grid.Redraw(true);
    }
    static std::u16string Title(int row) {
        const std::string digits = std::to_string(row);
        return u"Account " + std::u16string(digits.begin(), digits.end());
    }
    HWND List() const { return Find("flxAccounts"); }
    int Selected() const { return static_cast<int>(Send(List(), LVM_GETNEXTITEM, beforeFirst, LVNI_SELECTED)); }
    POINT MiddleOf(int item) const {
        RECT row{};
        row.left = LVIR_BOUNDS;
        Send(List(), LVM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&row));
        return {row.left + 40, (row.top + row.bottom) / 2};
    }

    Grid grid{u"flxAccounts"};
};

TEST_F(ListPeers, RowsAreShownOnceRedrawIsOnAgain) {
    Show();
    Fill(3);
    EXPECT_EQ(Send(List(), LVM_GETITEMCOUNT), 3);
    EXPECT_EQ(ItemText(List(), 2, 0), u"Account 3");
    grid.Redraw(false);
    grid.Rows(2);
    EXPECT_EQ(Send(List(), LVM_GETITEMCOUNT), 3) << "the screen is left as it is";
    grid.Redraw(true);
    EXPECT_EQ(Send(List(), LVM_GETITEMCOUNT), 1);
}

TEST_F(ListPeers, AMillionRowsAreThereAtOnce) {
    Show();
    Fill(1000000);
    EXPECT_EQ(Send(List(), LVM_GETITEMCOUNT), 1000000);
    EXPECT_EQ(ItemText(List(), 999999, 0), u"Account 1000000");
    const DWORD start = ::GetTickCount();
    PressKey(List(), VK_END);
    PressKey(List(), VK_PRIOR);
    PressKey(List(), VK_HOME);
    EXPECT_LT(::GetTickCount() - start, 3000U);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(Selected(), 0);
    PressKey(List(), VK_UP);
    EXPECT_EQ(Selected(), 0) << "a key that leads nowhere leaves the selection";
}

TEST_F(ListPeers, PictureStandsBeforeTheTextOfTheSameColumnAndHiddenColumnsAreNotShown) {
    Show();
    Fill(2);
    grid.CellPicture(1, true);
    const auto header = reinterpret_cast<HWND>(Send(List(), LVM_GETHEADER));
    Send(List(), LVM_GETITEMCOUNT);
    EXPECT_EQ(Send(header, HDM_GETITEMCOUNT), 1);
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    Send(List(), textCalls::Choose(LVM_GETITEMA, LVM_GETITEMW), 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.iImage, 0);
    item.iItem = 1;
    Send(List(), textCalls::Choose(LVM_GETITEMA, LVM_GETITEMW), 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_NE(item.iImage, 0);
}

TEST_F(ListPeers, ProgramsSelectionIsTheLists) {
    Show();
    Fill(50);
    int changes = 0;
    grid.RowColChange.Connect([&] { ++changes; });
    grid.Row(30);
    EXPECT_EQ(Selected(), 29);
    EXPECT_EQ(changes, 1) << "no echo";
    grid.Row(0);
    EXPECT_EQ(Selected(), -1);
}

TEST_F(ListPeers, UsersSelectionIsTheGrids) {
    Show();
    Fill(50);
    std::vector<std::string> events;
    grid.RowColChange.Connect([&] { events.push_back("row " + std::to_string(grid.Row())); });
    grid.Click.Connect([&] { events.push_back("click"); });
    const POINT third = MiddleOf(2);
    Click(List(), third.x, third.y);
    EXPECT_EQ(events, (std::vector<std::string>{"row 3", "click"}));
    events.clear();
    PressKey(List(), VK_DOWN);
    EXPECT_EQ(events, (std::vector<std::string>{"row 4"}));
}

TEST_F(ListPeers, DoubleClickIsTold) {
    Show();
    Fill(5);
    int doubleClicks = 0;
    grid.DblClick.Connect([&] { ++doubleClicks; });
    const POINT second = MiddleOf(1);
    Click(List(), second.x, second.y);
    Send(List(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(second.x, second.y));
    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(ListPeers, HandlerOfASelectionMayFillTheGridAnew) {
    Show();
    Fill(20);
    grid.RowColChange.Connect([&] {
        if (grid.Rows() > 6) {
            Fill(5);
            grid.Row(2);
        }
    });
    const POINT third = MiddleOf(2);
    Click(List(), third.x, third.y);
    EXPECT_EQ(Send(List(), LVM_GETITEMCOUNT), 5);
    EXPECT_EQ(Selected(), 1);
}

TEST_F(ListPeers, RowInViewIsKnownAndTopRowScrolls) {
    Show();
    Fill(200);
    Send(List(), LVM_GETITEMCOUNT);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_GT(grid.VisibleRows(), 2);
    EXPECT_FALSE(grid.RowIsVisible(150));
    grid.TopRow(100);
    EXPECT_EQ(Send(List(), LVM_GETTOPINDEX), 99);
    PressKey(List(), VK_END);
    EXPECT_TRUE(grid.RowIsVisible(200));
    EXPECT_EQ(grid.Row(), 200);
    Fill(200);
    EXPECT_EQ(Send(List(), LVM_GETTOPINDEX), 0) << "a list filled anew begins at its top";
}

TEST_F(ListPeers, ColumnsFillTheListWithAndWithoutAScrollBar) {
    grid.ColWidth(1, 4500 - 400);
    Show();
    for (const int rows : {3, 300}) {
        Fill(rows);
        Send(List(), LVM_GETITEMCOUNT);
        RECT area{};
        ::GetClientRect(List(), &area);
        EXPECT_EQ(Send(List(), LVM_GETCOLUMNWIDTH, 0), area.right) << rows << " rows";
    }
}

TEST_F(ListPeers, ShrinkingToNothingDoesNoHarm) {
    Show();
    Fill(3);
    grid.ColWidth(1, -150);
    grid.Move({150, 150, 200, 100});
    grid.Move({150, 150, 0, 0});
    grid.ColWidth(1, 4000);
    grid.Move({150, 150, 4500, 3000});
    EXPECT_EQ(ItemText(List(), 0, 0), u"Account 1");
}

TEST_F(ListPeers, TypingFindsTheRowThatBeginsSo) {
    Show();
    Fill(3);
    grid.Text(2, 1, u"Zoo");
    Send(List(), WM_CHAR, 'z', 1);
    EXPECT_EQ(grid.Row(), 2);
}

TEST_F(ListPeers, PrinterListTakesTenThousandItems) {
    auto& printers = Make<ListView>(u"lvwPrinters");
    Place(printers, 150, 3300, 4500, 1000);
    Show();
    for (int i = 1; i <= 10000; ++i) {
        printers.AddItem(Title(i), Title(i), i % 2 + 1);
    }
    const HWND list = Find("lvwPrinters");
    EXPECT_EQ(Send(list, LVM_GETITEMCOUNT), 10000);
    EXPECT_EQ(ItemText(list, 9999, 0), u"Account 10000");
    LVITEMW item{};
    item.mask = LVIF_IMAGE;
    Send(list, textCalls::Choose(LVM_GETITEMA, LVM_GETITEMW), 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.iImage, 1);
    printers.Clear();
    EXPECT_EQ(Send(list, LVM_GETITEMCOUNT), 0);
}

}  // namespace
}  // namespace korvanta

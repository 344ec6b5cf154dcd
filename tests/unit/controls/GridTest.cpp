#include "controls/Grid.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/FakePeers.h"

namespace korvanta {
namespace {

using Changes = std::vector<Aspect>;

std::u16string Digits(int number) {
    const std::string text = std::to_string(number);
    return {text.begin(), text.end()};
}

class GridTest : public testing::Test {
  protected:
    GridTest() {
        grid.Columns(4);
        grid.RowColChange.Connect([this] { ++rowColChanges; });
    }
    void Watch() {
        grid.Attach(peers);
        peers.Of(grid).changes.clear();
    }
    const Changes& Told() { return peers.Of(grid).changes; }

    fakes::FakePeers peers;
    Grid grid{u"flx"};
    int rowColChanges = 0;
};

TEST_F(GridTest, ANewGridHasItsHeaderAlone) {
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.Col(), 0);
    EXPECT_EQ(grid.ColSel(), 0);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_TRUE(grid.Redraw());
    EXPECT_EQ(Grid(u"other").Columns(), 1);
    EXPECT_EQ(grid.BackColor(), systemColor::windowBackground);
}

TEST_F(GridTest, TheHeaderAlwaysStays) {
    for (const int rows : {0, -1, INT32_MIN}) {
        grid.Rows(5);
        grid.Rows(rows);
        EXPECT_EQ(grid.Rows(), 1);
    }
}

TEST_F(GridTest, ColumnsStayBetweenOneAndTheMost) {
    grid.Columns(0);
    EXPECT_EQ(grid.Columns(), 1);
    grid.Columns(100);
    EXPECT_EQ(grid.Columns(), Grid::maximumColumns);
}

TEST_F(GridTest, NewRowsAreEmpty) {
    grid.Rows(3);
    EXPECT_EQ(grid.Text(2, 3), u"");
    EXPECT_EQ(grid.CellForeColor(2), 0U);
    EXPECT_FALSE(grid.CellPicture(2));
    grid.Text(2, 0, u"old");
    grid.CellForeColor(2, 7);
    grid.CellPicture(2, true);
    grid.Rows(2);
    grid.Rows(3);
    EXPECT_EQ(grid.Text(2, 0), u"");
    EXPECT_EQ(grid.CellForeColor(2), 0U);
    EXPECT_FALSE(grid.CellPicture(2));
}

TEST_F(GridTest, CellsKeepTheirTexts) {
    grid.Rows(3);
    grid.Text(0, 1, u"Account");
    grid.Text(1, 0, u"");
    grid.Text(1, 1, u"Größe");
    grid.Text(2, 3, std::u16string_view(u"a\0\xD800", 3));
    EXPECT_EQ(grid.Text(0, 1), u"Account");
    EXPECT_EQ(grid.Text(1, 0), u"");
    EXPECT_EQ(grid.Text(1, 1), u"Größe");
    EXPECT_EQ(grid.Text(2, 3), std::u16string_view(u"a\0\xD800", 3));
    grid.Text(1, 1, u"another text");
    EXPECT_EQ(grid.Text(1, 1), u"another text");
    EXPECT_EQ(grid.Text(2, 3).size(), 3U);
}

TEST_F(GridTest, ARowMayComeWithAllItsCells) {
    Watch();
    GridRow row;
    row.picture = true;
    row.color = 0x80000012U;
    row.texts = {u"a", std::u16string_view(u"b\0c", 3), u"", u"d"};
    grid.AddRow(row);
    EXPECT_EQ(Told(), Changes{Aspect::Content});
    grid.AddRow({});
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Row(), 0) << "the current row stays";
    EXPECT_TRUE(grid.CellPicture(1));
    EXPECT_EQ(grid.CellForeColor(1), 0x80000012U);
    EXPECT_EQ(grid.Text(1, 0), u"a");
    EXPECT_EQ(grid.Text(1, 1), std::u16string_view(u"b\0c", 3));
    EXPECT_EQ(grid.Text(1, 2), u"");
    EXPECT_EQ(grid.Text(1, 3), u"d");
    grid.Text(1, 2, u"now");
    EXPECT_EQ(grid.Text(1, 2), u"now");
    EXPECT_EQ(grid.Text(1, 3), u"d");
    EXPECT_TRUE(grid.CellPicture(1));
    EXPECT_FALSE(grid.CellPicture(2));
    EXPECT_EQ(grid.Text(2, 3), u"");
}

TEST_F(GridTest, RowsThatComeAfterOthersHaveGoneAreTheirOwn) {
    const std::u16string huge(100'000, u'h');
    for (int round = 0; round < 3; ++round) {
        grid.Rows(1);
        for (int row = 1; row <= 20'000; ++row) {
            const std::u16string text = row == 777 ? huge : Digits(row + round);
            GridRow cells;
            cells.texts[1] = text;
            grid.AddRow(cells);
        }
        for (const int row : {1, 776, 778, 20'000}) {
            ASSERT_EQ(grid.Text(row, 1), Digits(row + round));
        }
        EXPECT_EQ(grid.Text(777, 1), huge);
    }
}

TEST_F(GridTest, HeaderTextsOutliveTheRows) {
    grid.Text(0, 1, u"Account");
    grid.Rows(10);
    grid.Rows(1);
    EXPECT_EQ(grid.Text(0, 1), u"Account");
}

TEST_F(GridTest, ACellMayBeGivenTheTextOfACell) {
    grid.Rows(3);
    grid.Text(1, 0, u"text");
    grid.Text(2, 0, grid.Text(1, 0));
    grid.Text(1, 0, grid.Text(1, 0).substr(1));
    EXPECT_EQ(grid.Text(1, 0), u"ext");
    EXPECT_EQ(grid.Text(2, 0), u"text");
}

TEST_F(GridTest, TextsLongerThanABlockAreKeptBesideOthers) {
    grid.Rows(5);
    const std::u16string huge(100'000, u'h');
    const std::u16string block(64 * 1024, u'b');
    grid.Text(1, 0, u"before");
    grid.Text(2, 0, huge);
    grid.Text(3, 0, block);
    grid.Text(4, 0, u"after");
    EXPECT_EQ(grid.Text(1, 0), u"before");
    EXPECT_EQ(grid.Text(2, 0), huge);
    EXPECT_EQ(grid.Text(3, 0), block);
    EXPECT_EQ(grid.Text(4, 0), u"after");
}

TEST_F(GridTest, IndexesOutsideTheGridAreIgnored) {
    grid.Rows(2);
    grid.Columns(2);
    for (const int outside : {-1, 2, 4, INT32_MAX, INT32_MIN}) {
        grid.Text(outside, 0, u"x");
        grid.Text(1, outside, u"x");
        grid.CellForeColor(outside, 5);
        grid.CellPicture(outside, true);
        grid.Row(outside);
        grid.Col(outside);
        grid.ColSel(outside);
        grid.HandleRow(outside);
        EXPECT_EQ(grid.Text(outside, 0), u"");
        EXPECT_EQ(grid.Text(1, outside), u"");
        EXPECT_EQ(grid.CellForeColor(outside), 0U);
        EXPECT_FALSE(grid.CellPicture(outside));
    }
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.Col(), 0);
    EXPECT_EQ(grid.ColSel(), 0);
    EXPECT_EQ(rowColChanges, 0);
}

TEST_F(GridTest, AColumnOutsideTheGridHasNoWidthOrAlignmentOfItsOwn) {
    grid.ColWidth(0, 100);
    for (const int outside : {-1, Grid::maximumColumns, INT32_MAX, INT32_MIN}) {
        grid.ColWidth(outside, 7);
        grid.ColAlignment(outside, Alignment::Right);
        grid.HeaderAlignment(outside, Alignment::Right);
        EXPECT_EQ(grid.ColWidth(outside), 0) << outside;
        EXPECT_EQ(grid.ColAlignment(outside), Alignment::Left);
        EXPECT_EQ(grid.HeaderAlignment(outside), Alignment::Left);
    }
    EXPECT_EQ(grid.ColWidth(0), 100);
    EXPECT_EQ(grid.ColAlignment(0), Alignment::Left);
}

TEST_F(GridTest, ColumnWidthsAreNeverNegative) {
    grid.ColWidth(1, -5);
    EXPECT_EQ(grid.ColWidth(1), 0);
    grid.ColWidth(1, 500);
    EXPECT_EQ(grid.ColWidth(1), 500);
}

TEST_F(GridTest, TheCurrentRowTellsItsChangesByWhomever) {
    grid.Rows(4);
    Watch();
    grid.Row(2);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(rowColChanges, 1);
    EXPECT_EQ(Told(), Changes{Aspect::Selection});
    grid.Row(2);
    EXPECT_EQ(rowColChanges, 1);
    grid.HandleRow(3);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(rowColChanges, 2);
    EXPECT_EQ(Told(), Changes{Aspect::Selection});
    grid.HandleRow(3);
    EXPECT_EQ(rowColChanges, 2);
}

TEST_F(GridTest, TheWindowsEchoOfARowIsNoSecondChange) {
    grid.Rows(4);
    grid.Attach(peers);
    peers.onChanged = [this](Control&, Aspect) { grid.HandleRow(grid.Row()); };
    grid.Row(2);
    EXPECT_EQ(rowColChanges, 1);
}

TEST_F(GridTest, AnotherColumnIsTheWholeSelection) {
    grid.Rows(2);
    grid.ColSel(3);
    EXPECT_EQ(grid.ColSel(), 3);
    grid.Col(1);
    EXPECT_EQ(grid.ColSel(), 1);
    EXPECT_EQ(rowColChanges, 1);
    grid.ColSel(2);
    grid.Col(1);
    EXPECT_EQ(grid.ColSel(), 2);
    EXPECT_EQ(rowColChanges, 1);
}

TEST_F(GridTest, WhenRowsGoTheCurrentRowStaysInside) {
    grid.Rows(10);
    grid.Row(9);
    rowColChanges = 0;
    grid.Attach(peers);
    peers.onChanged = [this](Control&, Aspect) { EXPECT_LT(grid.Row(), grid.Rows()); };
    grid.Rows(5);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(rowColChanges, 1);
    grid.Rows(3);
    EXPECT_EQ(grid.Row(), 2);
    grid.Row(1);
    rowColChanges = 0;
    grid.Rows(2);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(rowColChanges, 0);
    grid.Rows(1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, WhenRowsGoTheFirstRowInViewStaysInside) {
    grid.Rows(100);
    grid.TopRow(90);
    grid.Rows(50);
    EXPECT_EQ(grid.TopRow(), 49);
    grid.Rows(1);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(GridTest, WhenColumnsGoTheCurrentOneStaysInside) {
    grid.Col(2);
    grid.ColSel(3);
    rowColChanges = 0;
    grid.Columns(2);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.ColSel(), 1);
    EXPECT_EQ(rowColChanges, 1);
}

TEST_F(GridTest, TheFirstRowInViewIsADataRow) {
    grid.Rows(10);
    grid.TopRow(0);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.TopRow(INT32_MIN);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.TopRow(INT32_MAX);
    EXPECT_EQ(grid.TopRow(), 9);
    grid.Rows(1);
    grid.TopRow(5);
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(GridTest, ARowIsVisibleWithinTheView) {
    grid.Rows(100);
    grid.HandleViewport(20, 10);
    EXPECT_EQ(grid.TopRow(), 20);
    EXPECT_EQ(grid.VisibleRows(), 10);
    EXPECT_FALSE(grid.RowIsVisible(19));
    EXPECT_TRUE(grid.RowIsVisible(20));
    EXPECT_TRUE(grid.RowIsVisible(29));
    EXPECT_FALSE(grid.RowIsVisible(30));
    grid.HandleViewport(-3, 0);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.VisibleRows(), 1);
    grid.HandleViewport(50, INT32_MAX);
    EXPECT_TRUE(grid.RowIsVisible(99));
    EXPECT_FALSE(grid.RowIsVisible(INT32_MIN));
}

TEST_F(GridTest, TheWindowIsToldOfContentWhileRedrawIsOn) {
    Watch();
    grid.Rows(2);
    grid.Text(1, 0, u"x");
    grid.CellForeColor(1, 5);
    grid.CellPicture(1, true);
    EXPECT_EQ(Told(), (Changes{Aspect::Content, Aspect::Content, Aspect::Content, Aspect::Content}));
}

TEST_F(GridTest, SettingACellToWhatItHoldsTellsNothing) {
    grid.Rows(2);
    grid.Text(1, 0, u"x");
    grid.CellForeColor(1, 5);
    grid.CellPicture(1, true);
    grid.ColWidth(1, 100);
    Watch();
    grid.Rows(2);
    grid.Columns(4);
    grid.Text(1, 0, u"x");
    grid.Text(0, 0, u"");
    grid.CellForeColor(1, 5);
    grid.CellPicture(1, true);
    grid.ColWidth(1, 100);
    EXPECT_EQ(Told(), Changes());
}

TEST_F(GridTest, WithRedrawOffTheWindowIsToldOnceAtTheEnd) {
    Watch();
    grid.Redraw(false);
    grid.Rows(10);
    for (int row = 1; row < 10; ++row) {
        grid.Row(row);
        grid.Text(row, 0, Digits(row));
    }
    grid.TopRow(5);
    EXPECT_EQ(Told(), Changes());
    grid.Redraw(true);
    EXPECT_EQ(Told(), (Changes{Aspect::Content, Aspect::Selection}));
    grid.Redraw(true);
    EXPECT_EQ(Told().size(), 2U);
    EXPECT_EQ(rowColChanges, 9);
}

TEST_F(GridTest, AHandlerMayEmptyTheGridWhileItsRowChanges) {
    grid.Rows(10);
    grid.RowColChange.Connect([this] { grid.Rows(1); });
    grid.Row(5);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, ClicksAreRaisedAsTheyCome) {
    int clicks = 0;
    int doubleClicks = 0;
    grid.Click.Connect([&clicks] { ++clicks; });
    grid.DblClick.Connect([&doubleClicks] { ++doubleClicks; });
    grid.HandleClick();
    grid.HandleDblClick();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(GridTest, AMillionRowsAreKept) {
    constexpr int rows = 1'000'001;
    grid.Redraw(false);
    for (int row = 1; row < rows; ++row) {
        grid.Rows(row + 1);
        grid.Text(row, 2, Digits(row));
    }
    EXPECT_EQ(grid.Rows(), rows);
    for (const int row : {1, 2, 500'000, 999'999, 1'000'000}) {
        EXPECT_EQ(grid.Text(row, 2), Digits(row));
    }
    grid.Row(rows - 1);
    grid.Rows(1);
    EXPECT_EQ(grid.Row(), 0);
    grid.Rows(2);
    EXPECT_EQ(grid.Text(1, 2), u"");
}

}  // namespace
}  // namespace korvanta

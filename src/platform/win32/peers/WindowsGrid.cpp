#include "platform/win32/peers/WindowsGrid.h"

#include <algorithm>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"
#include "platform/win32/resources/Resources.h"

namespace korvanta {

namespace {

constexpr int noRow = -1;
constexpr int manyRows = 10000;

// Indexes of the images. A row without the picture has a blank image, so that all texts begin at the same place.
constexpr int mainAccount = 0;
constexpr int noPicture = 1;

// Columns and header items have the same numbers for it.
static_assert(HDF_LEFT == LVCFMT_LEFT && HDF_CENTER == LVCFMT_CENTER && HDF_RIGHT == LVCFMT_RIGHT);
int Format(Alignment alignment) {
    switch (alignment) {
        case Alignment::Center:
            return LVCFMT_CENTER;
        case Alignment::Right:
            return LVCFMT_RIGHT;
        case Alignment::Left:
            break;
    }
    return LVCFMT_LEFT;
}

}  // namespace

WindowsGrid::WindowsGrid(Grid& grid, HostWindow& host) : VirtualList(grid, host), grid_(grid) {
    CreateList(LVS_REPORT | LVS_SINGLESEL | LVS_NOSORTHEADER);
    ShowImages({KORVANTA_MAIN_ACCOUNT_ICON});
    MarkStale();
}

void WindowsGrid::Changed(Aspect aspect) {
    VirtualList::Changed(aspect);
    if (aspect == Aspect::Place) {
        MarkStale();
    }
}

void WindowsGrid::ShowPlace() {
    // Changes of column widths come here too, and need not move the window.
    const RECT wanted = PixelPlace(UsedFonts(), grid_.Position());
    RECT now{};
    ::GetWindowRect(Window(), &now);
    ::MapWindowPoints(nullptr, ::GetParent(Window()), reinterpret_cast<POINT*>(&now), 2);
    if (!::EqualRect(&wanted, &now)) {
        VirtualList::ShowPlace();
    }
}

void WindowsGrid::TakeOver() {
    SetRowCount(RowCount());
    ShowColumns();
    ShowRow();
    ShowTopRow();
    Invalidate();
    ReportViewport();
}

bool WindowsGrid::PictureSharesColumn() const {
    const int picture = UsedFonts().Pixels(grid_.ColWidth(0));
    return grid_.Columns() > 1 && picture > 0 && picture <= 2 * ImageWidth() && grid_.ColWidth(1) > 0;
}

std::vector<WindowsGrid::ShownColumn> WindowsGrid::ShownColumns() const {
    std::vector<ShownColumn> shown;
    const bool shares = PictureSharesColumn();
    int sum = 0;
    for (int column = shares ? 1 : 0; column < grid_.Columns(); ++column) {
        const int twips = grid_.ColWidth(column) + (shares && column == 1 ? grid_.ColWidth(0) : 0);
        if (twips > 0) {
            shown.push_back({column, UsedFonts().Pixels(twips)});
            sum += shown.back().width;
        }
    }
    // Columns that leave at most the width of a scroll bar free are meant to fill the list: the last one is fitted.
    RECT area{};
    ::GetClientRect(Window(), &area);
    RECT window{};
    ::GetWindowRect(Window(), &window);
    const int bar = ::GetSystemMetrics(SM_CXVSCROLL);
    if (!shown.empty() && sum <= window.right - window.left && sum + bar >= area.right) {
        shown.back().width = std::max(shown.back().width + static_cast<int>(area.right) - sum, 0);
    }
    return shown;
}

void WindowsGrid::ShowColumns() {
    const std::vector<ShownColumn> wanted = ShownColumns();
    const auto count = static_cast<int>(wanted.size());
    for (auto have = static_cast<int>(columns_.size()); have > count; --have) {
        Send(LVM_DELETECOLUMN, static_cast<WPARAM>(have - 1));
    }
    for (int i = 0; i < count; ++i) {
        const ShownColumn& column = wanted[static_cast<std::size_t>(i)];
        const bool isNew = i >= static_cast<int>(columns_.size());
        if (isNew) {
            LVCOLUMNW record{};
            record.mask = LVCF_WIDTH | LVCF_FMT;
            record.fmt = Format(grid_.ColAlignment(column.gridColumn));
            record.cx = column.width;
            Send(textCalls::Choose(LVM_INSERTCOLUMNA, LVM_INSERTCOLUMNW), static_cast<WPARAM>(i),
                 reinterpret_cast<LPARAM>(&record));
        } else if (columns_[static_cast<std::size_t>(i)].width != column.width) {
            Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), MAKELPARAM(column.width, 0));
        }
        ShowHeader(i, column.gridColumn);
    }
    columns_ = wanted;
}

// Set in the header itself, since a list view aligns its first column to the left in any case.
void WindowsGrid::ShowHeader(int index, int gridColumn) {
    const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    textCalls::NativeText text(grid_.Text(0, gridColumn));
    HDITEMW item{};
    item.mask = HDI_TEXT | HDI_FORMAT;
    item.pszText = text.Pointer();
    item.fmt = HDF_STRING | Format(grid_.HeaderAlignment(gridColumn));
    textCalls::Send(header, textCalls::Choose(HDM_SETITEMA, HDM_SETITEMW), static_cast<WPARAM>(index),
                    reinterpret_cast<LPARAM>(&item));
}

void WindowsGrid::ShowRow() {
    const int wanted = grid_.Row() - 1;
    const int selected = SelectedItem();
    if (selected != wanted && selected != noRow) {
        SelectRow(selected, false);
    }
    if (selected != wanted && wanted >= 0) {
        SelectRow(wanted, true);
    }
}

// LVM_GETNEXTITEM would look through all rows; asking about one row is fast.
int WindowsGrid::SelectedItem() const {
    const bool isSelected =
        selectedItem_ != noRow && Ask(LVM_GETITEMSTATE, static_cast<WPARAM>(selectedItem_), LVIS_SELECTED) != 0;
    return isSelected ? selectedItem_ : noRow;
}

void WindowsGrid::ShowTopRow() {
    // Only when the program has chosen another top row; otherwise the list stays where the user has scrolled it.
    if (grid_.TopRow() == reportedTopRow_) {
        return;
    }
    RECT row{};
    row.left = LVIR_BOUNDS;
    if (Send(LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row)) != 0) {
        const int rows = grid_.TopRow() - 1 - Ask(LVM_GETTOPINDEX);
        Send(LVM_SCROLL, 0, static_cast<LPARAM>(rows * (row.bottom - row.top)));
    }
}

void WindowsGrid::ReportViewport() {
    reportedTopRow_ = Ask(LVM_GETTOPINDEX) + 1;
    grid_.HandleViewport(reportedTopRow_, std::max(Ask(LVM_GETCOUNTPERPAGE), 1));
}

LRESULT WindowsGrid::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool mayMoveSelection = message == WM_KEYDOWN || message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN;
    if (mayMoveSelection && !Frozen() && RowCount() >= manyRows) {
        TakeOverNow();
        // To deselect a row that it does not know, a list view goes through all its rows, which takes seconds. So the
        // row is deselected before; if no other row gets selected, AfterUse selects it again.
        if (const int selected = SelectedItem(); selected != noRow) {
            SelectRow(selected, false);
        }
    }
    return VirtualList::Procedure(message, wParam, lParam);
}

void WindowsGrid::AfterUse() {
    if (grid_.Row() > 0 && SelectedItem() == noRow) {
        // After a click beside the rows the current row is selected again.
        MarkStale();
    }
    if (IsStale()) {
        TakeOverNow();
    } else {
        ReportViewport();
        if (ShownColumns() != columns_) {
            MarkStale();
        }
    }
}

bool WindowsGrid::Notified(NMHDR& notice, LRESULT& result) {
    result = 0;
    switch (notice.code) {
        case LVN_ITEMCHANGED: {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
            const bool selected = (change.uNewState & LVIS_SELECTED) != 0 && (change.uOldState & LVIS_SELECTED) == 0;
            if (selected && change.iItem >= 0) {
                selectedItem_ = change.iItem;
                if (!TakingOver()) {
                    grid_.HandleRow(change.iItem + 1);
                }
            }
            return true;
        }
        case NM_CLICK:
            if (reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem >= 0) {
                grid_.HandleClick();
            }
            return true;
        case NM_DBLCLK:
            if (reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem >= 0) {
                grid_.HandleDblClick();
            }
            return true;
        case NM_CUSTOMDRAW:
            result = CustomDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(notice));
            return true;
        default:
            return VirtualList::Notified(notice, result);
    }
}

LRESULT WindowsGrid::CustomDraw(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYITEMDRAW;
    }
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
        const int row = static_cast<int>(draw.nmcd.dwItemSpec) + 1;
        if (const Color color = grid_.CellForeColor(row); color != 0) {
            draw.clrText = ScreenColor(color);
        }
        if (row == grid_.Row() && ::GetFocus() != Window()) {
            draw.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
            const COLORREF highlight = ::GetSysColor(COLOR_HIGHLIGHT);
            draw.clrTextBk = PaleHighlight(highlight, ScreenColor(grid_.BackColor()));
            if (draw.clrTextBk == highlight) {
                draw.clrText = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
            }
        }
    }
    return CDRF_DODEFAULT;
}

// For a column that is not shown, it is the text of the grid's column of that number.
std::u16string_view WindowsGrid::RowText(int row, int column) const {
    int gridColumn = column;
    if (PictureSharesColumn()) {
        gridColumn = std::max(column, 1);
    } else if (column >= 0 && column < static_cast<int>(columns_.size())) {
        gridColumn = columns_[static_cast<std::size_t>(column)].gridColumn;
    }
    return grid_.Text(row + 1, gridColumn);
}

int WindowsGrid::RowImage(int row) const {
    return grid_.CellPicture(row + 1) ? mainAccount : noPicture;
}

}  // namespace korvanta

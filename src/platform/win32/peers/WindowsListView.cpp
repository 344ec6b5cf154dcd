#include "platform/win32/peers/WindowsListView.h"

#include <algorithm>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"
#include "platform/win32/resources/Resources.h"

namespace korvanta {

WindowsListView::WindowsListView(ListView& listView, HostWindow& host)
    : VirtualList(listView, host), listView_(listView) {
    CreateList(LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL);
    ShowImages({KORVANTA_PRINTER_WATCHED_ICON, KORVANTA_PRINTER_FAILED_ICON});
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH | LVCF_FMT;
    column.fmt = LVCFMT_LEFT;
    Send(textCalls::Choose(LVM_INSERTCOLUMNA, LVM_INSERTCOLUMNW), 0, reinterpret_cast<LPARAM>(&column));
    MarkStale();
}

void WindowsListView::Changed(Aspect aspect) {
    if (aspect == Aspect::Content && listView_.Items().size() < measured_) {
        measured_ = 0;
        widest_ = 0;
    }
    VirtualList::Changed(aspect);
}

void WindowsListView::FontsChanged() {
    measured_ = 0;
    widest_ = 0;
    VirtualList::FontsChanged();
}

void WindowsListView::ShowPlace() {
    VirtualList::ShowPlace();
    MarkStale();
}

void WindowsListView::TakeOver() {
    SetRowCount(RowCount());
    FitColumn();
}

// Makes the column as wide as the list or as the widest text, whichever is more.
void WindowsListView::FitColumn() {
    const ScreenContext screen(::GetDC(nullptr));
    const Selection font(screen.Get(), UsedFonts().Normal());
    const std::vector<ListView::Item>& items = listView_.Items();
    for (; measured_ < items.size(); ++measured_) {
        widest_ = std::max(widest_, static_cast<int>(textCalls::TextExtent(screen.Get(), items[measured_].text).cx));
    }
    RECT area{};
    ::GetClientRect(Window(), &area);
    const int margin = ImageWidth() + 6 * ::GetSystemMetrics(SM_CXEDGE);
    const int width = std::max(static_cast<int>(area.right), widest_ + margin);
    if (Ask(LVM_GETCOLUMNWIDTH, 0) != width) {
        Send(LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(width, 0));
    }
}

std::u16string_view WindowsListView::RowText(int row, int column) const {
    return row >= 0 && row < RowCount() && column == 0 ? listView_.Items()[static_cast<std::size_t>(row)].text
                                                       : std::u16string_view();
}

int WindowsListView::RowImage(int row) const {
    return row >= 0 && row < RowCount() ? listView_.Items()[static_cast<std::size_t>(row)].icon - 1 : ImageList::none;
}

}  // namespace korvanta

#include "platform/win32/peers/VirtualList.h"

#include <utility>
#include <vector>

#include "platform/win32/calls/PlainWindows.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"
#include "platform/win32/peers/Icons.h"

namespace korvanta {

namespace {

constexpr UINT lastListMessage = LVM_FIRST + 0xFF;

// Messages that show, use or ask for rows.
bool NeedsRows(UINT message) {
    return message == WM_PAINT || message == WM_PRINT || message == WM_SHOWWINDOW || message == WM_SIZE ||
           message == WM_SETFOCUS || message == WM_VSCROLL || message == WM_HSCROLL || message == WM_GETOBJECT ||
           IsKeyMessage(message) || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
           (message >= LVM_FIRST && message <= lastListMessage);
}

bool IsUse(UINT message) {
    return message == WM_SIZE || message == WM_VSCROLL || message == WM_HSCROLL || IsKeyMessage(message) ||
           (message > WM_MOUSEMOVE && message <= WM_MOUSELAST) || message == LVM_SCROLL ||
           message == LVM_ENSUREVISIBLE || message == LVM_SETITEMSTATE;
}

}  // namespace

void VirtualList::CreateList(DWORD style) {
    Create(WC_LISTVIEWW, style | LVS_OWNERDATA | LVS_SHAREIMAGELISTS | LVS_SHOWSELALWAYS | WS_TABSTOP,
           WS_EX_CLIENTEDGE);
    constexpr DWORD wanted = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, wanted, wanted);
    ShowColors();
}

void VirtualList::ShowImages(std::initializer_list<int> iconResources) {
    iconResources_ = iconResources;
    MakeImages();
}

void VirtualList::MakeImages() {
    auto images = std::make_unique<ImageList>(UsedFonts().Metric(SM_CXSMICON), UsedFonts().Metric(SM_CYSMICON));
    for (const int resource : iconResources_) {
        images->Add(resource);
    }
    images->AddBlank();
    Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(images->Get()));
    images_ = std::move(images);
}

void VirtualList::FontsChanged() {
    MakeImages();
    ControlWindow::FontsChanged();
    MarkStale();
}

void VirtualList::Changed(Aspect aspect) {
    if (aspect == Aspect::Content || aspect == Aspect::Selection) {
        MarkStale();
        return;
    }
    if (aspect == Aspect::Colors) {
        ShowColors();
    }
    ControlWindow::Changed(aspect);
}

// A list view stores its colors; it does not ask for them with WM_CTLCOLOR...
void VirtualList::ShowColors() const {
    const auto background = static_cast<LPARAM>(ScreenColor(Owner().BackColor()));
    Send(LVM_SETBKCOLOR, 0, background);
    Send(LVM_SETTEXTBKCOLOR, 0, background);
    Send(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(TextColor(Owner())));
}

void VirtualList::MarkStale() {
    stale_ = true;
    Invalidate();
}

void VirtualList::TakeOverNow() {
    if (!stale_ || Frozen()) {
        return;
    }
    const ReentryFlag::Scope takingOver(takingOver_);
    if (takingOver.Entered()) {
        stale_ = false;
        TakeOver();
    }
}

void VirtualList::SetRowCount(int count) {
    const int old = Ask(LVM_GETITEMCOUNT);
    if (count != old) {
        // Rows are added only at the end, so the rows in view stay as they are.
        const LPARAM flags = count > old ? LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL : 0;
        Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), flags);
    }
}

void VirtualList::SelectRow(int row, bool select) {
    LVITEMW item{};
    // A row that is deselected keeps the focus mark, since the keyboard goes on from there.
    item.stateMask = select ? LVIS_SELECTED | LVIS_FOCUSED : LVIS_SELECTED;
    item.state = select ? item.stateMask : 0;
    const ReentryFlag::Scope takingOver(takingOver_);
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

LRESULT VirtualList::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    if (TakingOver()) {
        return ControlWindow::Procedure(message, wParam, lParam);
    }
    if (NeedsRows(message)) {
        TakeOverNow();
    }
    if (Frozen() && message == WM_PAINT) {
        // The rows are only half filled. What should be painted now is painted when the list is complete.
        ::ValidateRect(Window(), nullptr);
        stale_ = true;
        return 0;
    }
    if (Frozen() && message == WM_ERASEBKGND) {
        return 1;
    }
    if (message == WM_NCDESTROY) {
        return ControlWindow::Procedure(message, wParam, lParam);
    }
    if (message == WM_SYSCOLORCHANGE) {
        ShowColors();
    }
    LRESULT result = 0;
    if (PassToClass(message, wParam, lParam, result) && IsUse(message) && !Frozen()) {
        AfterUse();
    }
    return result;
}

bool VirtualList::Notified(NMHDR& notice, LRESULT& result) {
    result = 0;
    switch (notice.code) {
        case LVN_GETDISPINFOA:
        case LVN_GETDISPINFOW: {
            LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(notice).item;
            if ((item.mask & LVIF_TEXT) != 0 && item.pszText && item.cchTextMax > 0) {
                textCalls::CopyNative(RowText(item.iItem, item.iSubItem), item.pszText,
                                      static_cast<std::size_t>(item.cchTextMax));
            }
            if ((item.mask & LVIF_IMAGE) != 0) {
                item.iImage = item.iSubItem == 0 ? RowImage(item.iItem) : ImageList::none;
            }
            if ((item.mask & LVIF_INDENT) != 0) {
                item.iIndent = 0;
            }
            return true;
        }
        case LVN_ODFINDITEMA:
        case LVN_ODFINDITEMW:
            result = FindRow(reinterpret_cast<const NMLVFINDITEMW&>(notice));
            return true;
        default:
            return false;
    }
}

// The next row that begins with what the user has typed.
int VirtualList::FindRow(const NMLVFINDITEMW& wanted) const {
    constexpr int nothing = -1;
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || !wanted.lvfi.psz) {
        return nothing;
    }
    const std::u16string beginning = textCalls::FromNative(wanted.lvfi.psz);
    const int count = RowCount();
    const int start = wanted.iStart > 0 && wanted.iStart < count ? wanted.iStart : 0;
    for (int i = 0; i < count; ++i) {
        const int row = (start + i) % count;
        if (textCalls::SameIgnoringCase(RowText(row, 0).substr(0, beginning.size()), beginning)) {
            return row;
        }
    }
    return nothing;
}

ImageList::ImageList(int width, int height)
    : width_(width),
      height_(height),
      // On Windows 9x images in the display's own format look best.
      list_(::ImageList_Create(width_, height_, ILC_MASK | textCalls::Choose<UINT>(ILC_COLORDDB, ILC_COLOR32), 2, 2)) {}

void ImageList::Add(int iconResource) {
    const IconHandle icon = LoadProgramIcon(iconResource, width_, height_);
    ::ImageList_ReplaceIcon(list_, -1, icon.Get());
}

void ImageList::AddBlank() {
    const std::size_t rowBytes = (static_cast<std::size_t>(width_) + 15) / 16 * 2;
    const std::vector<BYTE> transparent(rowBytes * static_cast<std::size_t>(height_), 0xFF);
    const std::vector<BYTE> black(transparent.size(), 0);
    const IconHandle icon(
        ::CreateIcon(::GetModuleHandleA(nullptr), width_, height_, 1, 1, transparent.data(), black.data()));
    ::ImageList_ReplaceIcon(list_, -1, icon.Get());
}

}  // namespace korvanta

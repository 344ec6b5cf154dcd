#include "platform/win32/peers/WindowsTabStrip.h"

#include "controls/AccessKey.h"
#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

using RegionHandle = Handle<GraphicsTraits<HRGN>>;

constexpr int captionMargin = 90;  // twips

bool IsDown(int virtualKey) {
    return ::GetKeyState(virtualKey) < 0;
}

bool Covers(const RECT& outer, const RECT& inner) {
    RECT common{};
    return ::IntersectRect(&common, &outer, &inner) != 0;
}

}  // namespace

WindowsTabStrip::WindowsTabStrip(TabStrip& tabStrip, HostWindow& host)
    : ControlWindow(tabStrip, host), tabStrip_(tabStrip) {
    Create(WC_TABCONTROLW, TCS_TABS | WS_TABSTOP);
    theme_ = std::make_unique<TabTheme>(Window());
    ShowPadding();
    ShowTabs();
    LeaveOut(host.Content());
}

void WindowsTabStrip::Changed(Aspect aspect) {
    if (aspect == Aspect::Content) {
        ShowTabs();
    } else if (aspect == Aspect::Selection) {
        ShowSelected();
    } else {
        ControlWindow::Changed(aspect);
    }
}

void WindowsTabStrip::FontsChanged() {
    ShowPadding();
    ControlWindow::FontsChanged();
    ShowTabs();
}

// Windows does not scale the space around the captions with the resolution.
void WindowsTabStrip::ShowPadding() const {
    Send(TCM_SETPADDING, 0, MAKELPARAM(UsedFonts().Pixels(captionMargin), UsedFonts().Pixels(captionMargin / 2)));
}

void WindowsTabStrip::ShowTabs() {
    const std::vector<std::u16string>& tabs = tabStrip_.Tabs();
    const bool sameCount = static_cast<std::size_t>(Send(TCM_GETITEMCOUNT)) == tabs.size();
    if (!sameCount) {
        Send(TCM_DELETEALLITEMS);
    }
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        textCalls::NativeText text(tabs[i]);
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = text.Pointer();
        const UINT message = sameCount ? textCalls::Choose(TCM_SETITEMA, TCM_SETITEMW)
                                       : textCalls::Choose(TCM_INSERTITEMA, TCM_INSERTITEMW);
        Send(message, i, reinterpret_cast<LPARAM>(&item));
    }
    ShowSelected();
    RECT page{0, 0, 1000, 1000};
    Send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&page));
    tabStrip_.HandleHeaderHeight(UsedFonts().Twips(page.top));
}

void WindowsTabStrip::ShowSelected() const {
    Send(TCM_SETCURSEL, static_cast<WPARAM>(tabStrip_.Selected() - 1));
}

bool WindowsTabStrip::Notified(NMHDR& notice, LRESULT& result) {
    if (notice.code != TCN_SELCHANGE) {
        return false;
    }
    result = 0;
    tabStrip_.HandleSelected(static_cast<int>(Send(TCM_GETCURSEL)) + 1);
    return true;
}

bool WindowsTabStrip::TakeKey(const MSG& key) {
    if (!tabStrip_.Visible() || !tabStrip_.Enabled()) {
        return false;
    }
    if (key.message == WM_SYSCHAR) {
        return TakeAccessKey(textCalls::TypedCharacter(key.wParam));
    }
    if (key.message != WM_KEYDOWN || !IsDown(VK_CONTROL)) {
        return false;
    }
    switch (key.wParam) {
        case VK_TAB:
            tabStrip_.HandleStepByKey(IsDown(VK_SHIFT) ? -1 : 1);
            return true;
        case VK_NEXT:
            tabStrip_.HandleStepByKey(1);
            return true;
        case VK_PRIOR:
            tabStrip_.HandleStepByKey(-1);
            return true;
        default:
            return false;
    }
}

bool WindowsTabStrip::TakeAccessKey(char16_t typed) {
    const std::vector<std::u16string>& tabs = tabStrip_.Tabs();
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        const std::size_t key = AccessKeyPlace(tabs[i]);
        if (key != std::u16string::npos && textCalls::SameIgnoringCase(tabs[i].substr(key, 1), {&typed, 1})) {
            tabStrip_.HandleChosenByKey(static_cast<int>(i) + 1);
            return true;
        }
    }
    return false;
}

void WindowsTabStrip::PaintPage(HDC context) const {
    RECT page = PixelPlace(UsedFonts(), tabStrip_.Position());
    page.top += UsedFonts().Pixels(tabStrip_.HeaderHeight());
    // TCM_ADJUSTRECT gives the area inside the page's border; the page begins above it.
    const int border = 2 * ::GetSystemMetrics(SM_CYEDGE);
    page.top -= border;
    theme_->DrawPage(context, page);
}

void WindowsTabStrip::LeaveOut(const Container& neighbours) {
    const RECT own = PixelPlace(UsedFonts(), tabStrip_.Position());
    const RegionHandle current(::CreateRectRgn(0, 0, 0, 0));
    RegionHandle region(::CreateRectRgn(0, 0, own.right - own.left, own.bottom - own.top));
    for (const Control* neighbour : neighbours.Children()) {
        RECT place = PixelPlace(UsedFonts(), neighbour->Position());
        if (neighbour != &tabStrip_ && neighbour->Visible() && Covers(own, place)) {
            ::OffsetRect(&place, -own.left, -own.top);
            const RegionHandle hole(::CreateRectRgnIndirect(&place));
            ::CombineRgn(region.Get(), region.Get(), hole.Get(), RGN_DIFF);
        }
    }
    ::GetWindowRgn(Window(), current.Get());
    if (!::EqualRgn(current.Get(), region.Get())) {
        ::SetWindowRgn(Window(), region.Release(), TRUE);  // Windows owns the region now
    }
}

LRESULT WindowsTabStrip::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_THEMECHANGED) {
        theme_ = std::make_unique<TabTheme>(Window());
    }
    return ControlWindow::Procedure(message, wParam, lParam);
}

}  // namespace korvanta

#include "platform/win32/peers/WindowsLabel.h"

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"

namespace korvanta {

namespace {

constexpr int handCursor = 32649;  // IDC_HAND, which Windows 95 and NT 4 lack

// With this answer IsDialogMessage looks for no access key in the window, so an "&" in a document's name is none.
constexpr LRESULT noAccessKey = DLGC_WANTCHARS;

DWORD StaticStyle(const Label& label) {
    DWORD style = label.AccessKey() ? 0 : SS_NOPREFIX;
    switch (label.Align()) {
        case Alignment::Left:
            style |= label.Wrap() ? SS_LEFT : SS_LEFTNOWORDWRAP;
            break;
        case Alignment::Center:
            style |= SS_CENTER;
            break;
        case Alignment::Right:
            style |= SS_RIGHT;
            break;
    }
    // A line that does not fit ends with "..."; Windows 9x cuts it off.
    return label.Wrap() ? style : style | SS_ENDELLIPSIS;
}

UINT DrawFlags(const Label& label, UINT itemState) {
    UINT flags = label.Wrap() ? DT_WORDBREAK : DT_SINGLELINE | DT_END_ELLIPSIS;
    if (label.Align() == Alignment::Center) {
        flags |= DT_CENTER;
    } else if (label.Align() == Alignment::Right) {
        flags |= DT_RIGHT;
    }
    if (!label.AccessKey()) {
        flags |= DT_NOPREFIX;
    } else if ((itemState & ODS_NOACCEL) != 0) {
        flags |= DT_HIDEPREFIX;
    }
    return flags;
}

FontHandle Underlined(HFONT font) {
    if (textCalls::IsWindows9x()) {
        LOGFONTA record{};
        ::GetObjectA(font, sizeof(record), &record);
        record.lfUnderline = TRUE;
        return FontHandle(::CreateFontIndirectA(&record));
    }
    LOGFONTW record{};
    ::GetObjectW(font, sizeof(record), &record);
    record.lfUnderline = TRUE;
    return FontHandle(::CreateFontIndirectW(&record));
}

}  // namespace

WindowsLabel::WindowsLabel(Label& label, HostWindow& host) : ControlWindow(label, host), label_(label) {
    Create(L"STATIC", StaticStyle(label));
}

HBRUSH WindowsLabel::Colors(HDC context) {
    return label_.Transparent() ? TransparentColors(context) : OwnColors(context);
}

LRESULT WindowsLabel::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETDLGCODE && !label_.AccessKey()) {
        return noAccessKey;
    }
    return ControlWindow::Procedure(message, wParam, lParam);
}

WindowsLinkLabel::WindowsLinkLabel(Label& label, HostWindow& host)
    : ControlWindow(label, host), label_(label), underlined_(Underlined(UsedFonts().Get(label.Bold()))) {
    Create(L"BUTTON", BS_OWNERDRAW | WS_TABSTOP);
}

void WindowsLinkLabel::Changed(Aspect aspect) {
    ControlWindow::Changed(aspect);
    if (aspect == Aspect::Enabled || aspect == Aspect::Caption) {
        Invalidate();
    }
}

void WindowsLinkLabel::FontsChanged() {
    underlined_ = Underlined(UsedFonts().Get(label_.Bold()));
    ControlWindow::FontsChanged();
}

void WindowsLinkLabel::Commanded(int code) {
    if (code == BN_CLICKED && label_.Enabled()) {
        label_.HandleClick();
    }
}

COLORREF WindowsLinkLabel::TextColor() const {
    if (!label_.Enabled()) {
        return ::GetSysColor(COLOR_GRAYTEXT);
    }
    const Color background = label_.Transparent() ? Host().Content().BackColor() : label_.BackColor();
    const bool plain = label_.ForeColor() == systemColor::buttonText || label_.ForeColor() == systemColor::hotLight;
    return plain ? LinkColor(ScreenColor(background)) : ScreenColor(label_.ForeColor());
}

void WindowsLinkLabel::Draw(const DRAWITEMSTRUCT& item) {
    const HBRUSH background = label_.Transparent() ? Host().BrushBehind(label_, Window(), item.hDC, background_)
                                                   : ColorBrush(label_.BackColor(), background_);
    ::FillRect(item.hDC, &item.rcItem, background);
    DrawText(item);
}

void WindowsLinkLabel::DrawText(const DRAWITEMSTRUCT& item) {
    const bool underline = pointedAt_ && label_.Enabled();
    const Selection font(item.hDC, underline ? underlined_.Get() : UsedFonts().Get(label_.Bold()));
    ::SetBkMode(item.hDC, TRANSPARENT);
    ::SetTextColor(item.hDC, TextColor());
    // One pixel on each side keeps the focus rectangle off the text.
    RECT place = item.rcItem;
    ::InflateRect(&place, -1, 0);
    const UINT flags = DrawFlags(label_, item.itemState);
    RECT text = place;
    textCalls::Draw(item.hDC, label_.Caption(), text, flags | DT_CALCRECT);
    textCalls::Draw(item.hDC, label_.Caption(), place, flags);
    if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
        RECT focus = item.rcItem;
        focus.bottom = focus.bottom < text.bottom + 1 ? focus.bottom : text.bottom + 1;
        if (label_.Align() == Alignment::Left && text.right + 1 < focus.right) {
            focus.right = text.right + 1;
        }
        ::SetTextColor(item.hDC, ::GetSysColor(COLOR_WINDOWTEXT));
        ::SetBkColor(item.hDC, ::GetSysColor(COLOR_WINDOW));
        ::DrawFocusRect(item.hDC, &focus);
    }
}

void WindowsLinkLabel::PointAt(bool pointedAt) {
    if (pointedAt_ == pointedAt) {
        return;
    }
    pointedAt_ = pointedAt;
    Invalidate();
    if (pointedAt) {
        TRACKMOUSEEVENT leave{};
        leave.cbSize = sizeof(leave);
        leave.dwFlags = TME_LEAVE;
        leave.hwndTrack = Window();
        ::_TrackMouseEvent(&leave);
    }
}

bool WindowsLinkLabel::ShowHand() const {
    const HCURSOR hand = Form()->hourglass ? nullptr : ::LoadCursorA(nullptr, MAKEINTRESOURCEA(handCursor));
    if (hand) {
        ::SetCursor(hand);
    }
    return hand != nullptr;
}

LRESULT WindowsLinkLabel::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE: {
            const auto* asked = reinterpret_cast<const MSG*>(lParam);
            const bool isReturn = asked && asked->message == WM_KEYDOWN && asked->wParam == VK_RETURN;
            return (label_.AccessKey() ? DLGC_BUTTON : noAccessKey) | (isReturn ? DLGC_WANTMESSAGE : 0);
        }
        case WM_KEYDOWN:
            if (wParam == VK_RETURN) {
                Commanded(BN_CLICKED);
                return 0;
            }
            break;
        case WM_LBUTTONDBLCLK:
            // A double click presses twice.
            message = WM_LBUTTONDOWN;
            break;
        case WM_MOUSEMOVE:
            PointAt(true);
            break;
        case WM_MOUSELEAVE:
            PointAt(false);
            break;
        case WM_SETCURSOR:
            if (ShowHand()) {
                return TRUE;
            }
            break;
        case WM_ERASEBKGND:
            return 1;  // Draw fills the background
        default:
            break;
    }
    return ControlWindow::Procedure(message, wParam, lParam);
}

}  // namespace korvanta

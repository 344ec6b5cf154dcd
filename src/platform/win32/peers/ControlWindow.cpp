#include "platform/win32/peers/ControlWindow.h"

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"

namespace korvanta {

namespace {

// The property of a child window that holds its peer.
constexpr const char* peerProperty = "KorvantaPeer";

}  // namespace

ControlWindow::ControlWindow(Control& control, HostWindow& host)
    : control_(control), host_(host), form_(host.Windows()) {}

ControlWindow::~ControlWindow() {
    if (window_) {
        const HWND window = window_;
        Unlink();
        EndWindow(window, *form_);
    }
}

void ControlWindow::Unlink() {
    ::RemovePropA(window_, peerProperty);
    UnnameWindow(window_, control_.Name());
    textCalls::SetWindowData(window_, GWL_WNDPROC, reinterpret_cast<LONG>(native_));
    if (form_->defaultButton == window_) {
        form_->defaultButton = nullptr;
    }
    window_ = nullptr;
}

ControlWindow* ControlWindow::Of(HWND window) {
    return window ? static_cast<ControlWindow*>(::GetPropA(window, peerProperty)) : nullptr;
}

void ControlWindow::Create(const wchar_t* className, DWORD style, DWORD extendedStyle) {
    const RECT place = PixelPlace(UsedFonts(), control_.Position());
    const DWORD state =
        (control_.Visible() ? WS_VISIBLE : 0U) | (control_.Enabled() ? 0U : static_cast<DWORD>(WS_DISABLED));
    const int identifier = form_->nextIdentifier++;
    window_ =
        textCalls::MakeWindow(extendedStyle, className, control_.Caption(), style | state | WS_CHILD | WS_CLIPSIBLINGS,
                              place.left, place.top, place.right - place.left, place.bottom - place.top, host_.Window(),
                              reinterpret_cast<HMENU>(identifier), nullptr);
    if (!window_) {
        return;
    }
    NameWindow(window_, control_.Name());
    ::SetPropA(window_, peerProperty, this);
    native_ = reinterpret_cast<WNDPROC>(
        textCalls::SetWindowData(window_, GWL_WNDPROC, reinterpret_cast<LONG>(&ControlWindow::EveryMessage)));
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(UsedFonts().Get(Bold())), FALSE);
    host_.ChildrenMoved();
}

LRESULT CALLBACK ControlWindow::EveryMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ControlWindow* self = Of(window);
    if (!self) {
        return textCalls::DefaultProcedure(window, message, wParam, lParam);
    }
    const RunningProcedure running(self->form_);
    return Contained([&] { return self->Procedure(message, wParam, lParam); });
}

LRESULT ControlWindow::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) {
        const HWND window = window_;
        const WNDPROC native = native_;
        Unlink();
        return textCalls::CallProcedure(native, window, message, wParam, lParam);
    }
    LRESULT result = 0;
    PassToClass(message, wParam, lParam, result);
    return result;
}

bool ControlWindow::PassToClass(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const std::weak_ptr<void> alive = alive_;
    result = textCalls::CallProcedure(native_, window_, message, wParam, lParam);
    return !alive.expired();
}

LRESULT ControlWindow::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return textCalls::Send(window_, message, wParam, lParam);
}

void ControlWindow::Changed(Aspect aspect) {
    switch (aspect) {
        case Aspect::Caption:
            ShowCaption();
            break;
        case Aspect::Enabled: {
            const bool hadFocus = HasFocusInside();
            ::EnableWindow(window_, control_.Enabled());
            if (hadFocus && !control_.Enabled()) {
                PassFocusOn();
            }
            break;
        }
        case Aspect::Visible: {
            const bool hadFocus = HasFocusInside();
            ::ShowWindow(window_, control_.Visible() ? SW_SHOWNA : SW_HIDE);
            if (hadFocus && !control_.Visible()) {
                PassFocusOn();
            }
            host_.ChildrenMoved();
            break;
        }
        case Aspect::Place:
            ShowPlace();
            host_.ChildrenMoved();
            break;
        case Aspect::Colors:
            Invalidate();
            break;
        default:
            break;
    }
}

void ControlWindow::FontsChanged() {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(UsedFonts().Get(Bold())), FALSE);
    ShowPlace();
    Invalidate();
}

void ControlWindow::ShowCaption() {
    if (textCalls::WindowText(window_) != control_.Caption()) {
        textCalls::SetText(window_, control_.Caption());
    }
}

void ControlWindow::ShowPlace() {
    const RECT place = PixelPlace(UsedFonts(), control_.Position());
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    RECT now{};
    ::GetWindowRect(window_, &now);
    // In another size text that is centered, right-aligned or cut off has to be drawn again; Windows would copy it.
    const bool resized = now.right - now.left != width || now.bottom - now.top != height;
    ::SetWindowPos(window_, nullptr, place.left, place.top, width, height,
                   SWP_NOZORDER | SWP_NOACTIVATE | (resized ? SWP_NOCOPYBITS : 0U));
}

void ControlWindow::TakeFocus() {
    textCalls::Send(form_->window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window_), TRUE);
}

// A null window would mean every window on the screen, here and in Invalidate.
void ControlWindow::Repaint() {
    if (window_) {
        ::RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
}

void ControlWindow::Invalidate() const {
    if (window_) {
        ::InvalidateRect(window_, nullptr, TRUE);
    }
}

bool ControlWindow::HasFocusInside() const {
    const HWND focus = ::GetFocus();
    return focus && (focus == window_ || ::IsChild(window_, focus));
}

// A disabled or hidden window takes no keys, so it must not keep the focus.
void ControlWindow::PassFocusOn() const {
    const HWND next = ::GetNextDlgTabItem(form_->window, window_, FALSE);
    if (next && next != window_) {
        ::SetFocus(next);
    }
}

HBRUSH ControlWindow::TransparentColors(HDC context) {
    ::SetTextColor(context, ScreenColor(control_.ForeColor()));
    ::SetBkMode(context, TRANSPARENT);
    return host_.BrushBehind(control_, window_, context, brush_);
}

HBRUSH ControlWindow::OwnColors(HDC context) {
    ::SetTextColor(context, TextColor(control_));
    ::SetBkColor(context, ScreenColor(control_.BackColor()));
    return ColorBrush(control_.BackColor(), brush_);
}

}  // namespace korvanta

#include "platform/win32/peers/HostWindow.h"

#include <commctrl.h>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"
#include "platform/win32/peers/ControlWindow.h"
#include "platform/win32/peers/WindowsTabStrip.h"
#include "platform/win32/services/Fonts.h"

namespace korvanta {

namespace {

// The names are ASCII, so the single-byte calls will do on every Windows.
std::string PropertyName(const std::u16string& name) {
    return textCalls::ToCodePage(u"Korvanta." + name);
}

bool Holds(const Place& outer, const Place& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.Right() <= outer.Right() &&
           inner.Bottom() <= outer.Bottom();
}

// Moves a context's origin; moves it back when destroyed.
class ShiftedOrigin {
  public:
    ShiftedOrigin(HDC context, int right, int down) : context_(context) {
        ::OffsetWindowOrgEx(context, right, down, &old_);
    }
    ShiftedOrigin(const ShiftedOrigin&) = delete;
    ShiftedOrigin& operator=(const ShiftedOrigin&) = delete;
    ~ShiftedOrigin() { ::SetWindowOrgEx(context_, old_.x, old_.y, nullptr); }

  private:
    HDC context_;
    POINT old_{};
};

}  // namespace

void EndWindow(HWND window, const FormWindows& form) {
    if (form.runningProcedures == 0) {
        ::DestroyWindow(window);
        return;
    }
    ::ShowWindow(window, SW_HIDE);
    // The peer is gone, so the message gets to the default procedure, which destroys the window.
    textCalls::Post(window, WM_CLOSE);
}

void NameWindow(HWND window, const std::u16string& name) {
    ::SetPropA(window, PropertyName(name).c_str(), reinterpret_cast<HANDLE>(1));
}

void UnnameWindow(HWND window, const std::u16string& name) {
    ::RemovePropA(window, PropertyName(name).c_str());
}

RECT PixelPlace(const Fonts& fonts, const Place& place) {
    return {fonts.Pixels(place.left), fonts.Pixels(place.top), fonts.Pixels(place.Right()),
            fonts.Pixels(place.Bottom())};
}

HostWindow* HostWindow::Of(const Control& control) {
    const Container* parent = control.Parent();
    return parent ? dynamic_cast<HostWindow*>(parent->Peer()) : nullptr;
}

const WindowsTabStrip* HostWindow::PageBehind(const Control& child) const {
    for (const Control* sibling : Content().Children()) {
        if (sibling != &child && sibling->Visible() && Holds(sibling->Position(), child.Position())) {
            const auto* tabs = dynamic_cast<const WindowsTabStrip*>(sibling->Peer());
            if (tabs && tabs->Themed()) {
                return tabs;
            }
        }
    }
    return nullptr;
}

bool HostWindow::TexturedBehind(const Control& child) const {
    return PageBehind(child) || Textured();
}

void HostWindow::PaintBehind(const Control& child, HDC context) const {
    const RECT place = PixelPlace(Windows()->program->fonts, child.Position());
    const ShiftedOrigin origin(context, place.left, place.top);
    if (const WindowsTabStrip* tabs = PageBehind(child)) {
        tabs->PaintPage(context);
    } else {
        PaintBackground(context);
    }
}

HBRUSH HostWindow::BrushBehind(const Control& child, HWND childWindow, HDC context, BrushHandle& keeper) const {
    if (!TexturedBehind(child)) {
        return ColorBrush(Content().BackColor(), keeper);
    }
    RECT area{};
    ::GetClientRect(childWindow, &area);
    const MemoryContext memory(::CreateCompatibleDC(context));
    const BitmapHandle picture(::CreateCompatibleBitmap(context, area.right, area.bottom));
    if (!memory || !picture) {
        return ColorBrush(Content().BackColor(), keeper);
    }
    {
        const Selection selection(memory.Get(), picture.Get());
        PaintBehind(child, memory.Get());
    }
    keeper.Reset(::CreatePatternBrush(picture.Get()));
    ::SetBrushOrgEx(context, 0, 0, nullptr);
    return keeper.Get();
}

void HostWindow::ChildrenMoved() const {
    for (const Control* child : Content().Children()) {
        if (auto* tabs = dynamic_cast<WindowsTabStrip*>(child->Peer())) {
            tabs->LeaveOut(Content());
        }
    }
}

bool HostWindow::PassToChild(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_COMMAND:
            if (ControlWindow* child = ControlWindow::Of(reinterpret_cast<HWND>(lParam))) {
                result = 0;
                child->Commanded(HIWORD(wParam));
                return true;
            }
            return false;
        case WM_NOTIFY: {
            auto& notice = *reinterpret_cast<NMHDR*>(lParam);
            ControlWindow* child = ControlWindow::Of(notice.hwndFrom);
            return child && child->Notified(notice, result);
        }
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            ControlWindow* child = item.CtlType == ODT_BUTTON ? ControlWindow::Of(item.hwndItem) : nullptr;
            if (child) {
                child->Draw(item);
                result = TRUE;
            }
            return child != nullptr;
        }
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSTATIC: {
            ControlWindow* child = ControlWindow::Of(reinterpret_cast<HWND>(lParam));
            const HBRUSH brush = child ? child->Colors(reinterpret_cast<HDC>(wParam)) : nullptr;
            result = reinterpret_cast<LRESULT>(brush);
            return brush != nullptr;
        }
        default:
            return false;
    }
}

}  // namespace korvanta

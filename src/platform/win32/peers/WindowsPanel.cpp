#include "platform/win32/peers/WindowsPanel.h"

#include "platform/win32/calls/PlainWindows.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/Colors.h"

namespace korvanta {

WindowsPanel::WindowsPanel(Container& panel, HostWindow& host) : ControlWindow(panel, host), panel_(panel) {
    const std::u16string className = u"Korvanta.Panel";
    RegisterPlainClass(className);
    Create(textCalls::Wide(className), WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
}

bool WindowsPanel::Textured() const {
    return panel_.BackColor() == systemColor::buttonFace && Host().TexturedBehind(panel_);
}

void WindowsPanel::PaintBackground(HDC context) const {
    RECT area{};
    ::GetClientRect(Window(), &area);
    if (Textured()) {
        Host().PaintBehind(panel_, context);
    } else {
        BrushHandle keeper;
        ::FillRect(context, &area, ColorBrush(panel_.BackColor(), keeper));
    }
    if (panel_.Framed()) {
        ::FrameRect(context, &area, ::GetSysColorBrush(COLOR_WINDOWFRAME));
    }
}

LRESULT WindowsPanel::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ERASEBKGND || message == WM_PRINTCLIENT) {
        PaintBackground(reinterpret_cast<HDC>(wParam));
        return 1;
    }
    LRESULT result = 0;
    return PassToChild(message, wParam, lParam, result) ? result : ControlWindow::Procedure(message, wParam, lParam);
}

}  // namespace korvanta

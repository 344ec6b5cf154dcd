#include "platform/win32/WindowsPanel.h"

#include "platform/win32/Colors.h"
#include "platform/win32/TextCalls.h"

namespace korvanta {

namespace {

constexpr const wchar_t* panelClass = L"Korvanta.Panel";

LRESULT CALLBACK PanelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return textCalls::DefaultProcedure(window, message, wParam, lParam);
}

// Again for each panel: Windows refuses a class that it knows already, which does no harm.
void RegisterPanelClass() {
    WNDCLASSEXW panel{};
    panel.cbSize = sizeof(panel);
    panel.lpfnWndProc = &PanelProcedure;
    panel.hInstance = ::GetModuleHandleA(nullptr);
    panel.hCursor = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));  // IDC_ARROW
    panel.lpszClassName = panelClass;
    textCalls::RegisterWindowClass(panel);
}

}  // namespace

WindowsPanel::WindowsPanel(Container& panel, HostWindow& host) : ControlWindow(panel, host), panel_(panel) {
    RegisterPanelClass();
    Create(panelClass, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
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
    return HandOn(message, wParam, lParam, result) ? result : ControlWindow::Procedure(message, wParam, lParam);
}

}  // namespace korvanta

#include "platform/win32/calls/PlainWindows.h"

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr int arrowCursor = 32512;  // IDC_ARROW

LRESULT CALLBACK PlainProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return textCalls::DefaultProcedure(window, message, wParam, lParam);
}

}  // namespace

void RegisterPlainClass(const std::u16string& name, WNDPROC procedure) {
    WNDCLASSEXW plain{};
    plain.cbSize = sizeof(plain);
    plain.lpfnWndProc = procedure;
    plain.hInstance = ::GetModuleHandleA(nullptr);
    plain.hCursor = ::LoadCursorA(nullptr, MAKEINTRESOURCEA(arrowCursor));
    plain.lpszClassName = textCalls::Wide(name);
    textCalls::RegisterWindowClass(plain);
}

void RegisterPlainClass(const std::u16string& name) {
    RegisterPlainClass(name, &PlainProcedure);
}

HWND MessageBoxOf(HWND window) {
    while (window && (textCalls::WindowData(window, GWL_STYLE) & WS_CHILD) != 0) {
        window = ::GetParent(window);
    }
    constexpr ATOM dialogClass = 0x8002;  // the class of Windows' own dialogs
    return window && ::GetClassLongA(window, GCW_ATOM) == dialogClass ? window : nullptr;
}

}  // namespace korvanta

#include "TestWindow.h"

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr wchar_t className[] = L"KorvantaServicesTests";

}  // namespace

TestWindow::TestWindow(const std::u16string& title) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.lpszClassName = className;
    textCalls::RegisterWindowClass(windowClass);
    window_ = WindowHandle(
        textCalls::MakeWindow(0, className, title, WS_OVERLAPPEDWINDOW, 100, 100, 300, 200, nullptr, nullptr, this));
    EXPECT_TRUE(window_);
    textCalls::SetWindowData(Get(), GWL_USERDATA, static_cast<LONG>(reinterpret_cast<LONG_PTR>(this)));
}

HWND TestWindow::Child(const wchar_t* childClass, int identifier) const {
    return textCalls::MakeWindow(0, childClass, u"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, identifier * 60, 0, 50, 20,
                                 Get(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), nullptr);
}

LRESULT CALLBACK TestWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<TestWindow*>(static_cast<LONG_PTR>(textCalls::WindowData(window, GWL_USERDATA)));
    if (self && self->onMessage && self->onMessage(message, wParam, lParam)) {
        return 0;
    }
    return textCalls::DefaultProcedure(window, message, wParam, lParam);
}

MessageLoopTests::~MessageLoopTests() {
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    }
}

}  // namespace korvanta

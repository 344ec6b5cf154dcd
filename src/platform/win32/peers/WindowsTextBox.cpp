#include "platform/win32/peers/WindowsTextBox.h"

#include <utility>

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

Key KeyOf(WPARAM virtualKey) {
    const bool control = ::GetKeyState(VK_CONTROL) < 0;
    switch (virtualKey) {
        case VK_RETURN:
            return Key::Enter;
        case VK_ESCAPE:
            return Key::Escape;
        case VK_UP:
            return Key::Up;
        case VK_DOWN:
            return Key::Down;
        case VK_PRIOR:
            return Key::PageUp;
        case VK_NEXT:
            return Key::PageDown;
        case VK_HOME:
            return control ? Key::ControlHome : Key::Home;
        case VK_END:
            return control ? Key::ControlEnd : Key::End;
        default:
            return Key::Other;
    }
}

// Keys that IsDialogMessage would use before the box sees them.
bool IsDialogKey(WPARAM virtualKey) {
    return virtualKey == VK_RETURN || virtualKey == VK_ESCAPE;
}

bool MakesCharacter(WPARAM virtualKey) {
    constexpr UINT keyToCharacter = 2;  // MAPVK_VK_TO_CHAR
    return ::MapVirtualKeyA(static_cast<UINT>(virtualKey), keyToCharacter) != 0;
}

}  // namespace

WindowsTextBox::WindowsTextBox(TextBox& textBox, HostWindow& host) : ControlWindow(textBox, host), textBox_(textBox) {
    Create(L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE);
}

void WindowsTextBox::ShowCaption() {
    const ReentryFlag::Scope showing(showing_);
    ControlWindow::ShowCaption();
}

void WindowsTextBox::Commanded(int code) {
    if (code == EN_CHANGE && !showing_.IsSet()) {
        textBox_.HandleChange(textCalls::WindowText(Window()));
    }
}

LRESULT WindowsTextBox::KeyDown(WPARAM wParam, LPARAM lParam) {
    const std::weak_ptr<void> alive = Alive();
    const HWND form = Form()->window;
    const bool swallowed = textBox_.HandleKeyDown(KeyOf(wParam));
    if (alive.expired()) {
        return 0;
    }
    // In a text box the characters of Enter and Escape would only beep.
    swallowCharacter_ = (swallowed || IsDialogKey(wParam)) && MakesCharacter(wParam);
    if (swallowed) {
        return 0;
    }
    if (wParam == VK_RETURN) {
        const auto defaultButton = textCalls::Send(form, DM_GETDEFID);
        if (HIWORD(defaultButton) == DC_HASDEFID) {
            textCalls::Send(form, WM_COMMAND, MAKEWPARAM(LOWORD(defaultButton), BN_CLICKED));
        }
        return 0;
    }
    return ControlWindow::Procedure(WM_KEYDOWN, wParam, lParam);
}

LRESULT WindowsTextBox::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE: {
            const auto* asked = reinterpret_cast<const MSG*>(lParam);
            const bool wanted = asked && asked->message == WM_KEYDOWN && IsDialogKey(asked->wParam);
            LRESULT code = 0;
            PassToClass(message, wParam, lParam, code);
            return wanted ? code | DLGC_WANTMESSAGE : code;
        }
        case WM_KEYDOWN:
            return KeyDown(wParam, lParam);
        case WM_CHAR:
            if (std::exchange(swallowCharacter_, false)) {
                return 0;
            }
            break;
        default:
            break;
    }
    return ControlWindow::Procedure(message, wParam, lParam);
}

}  // namespace korvanta

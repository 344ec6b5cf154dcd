#include "platform/win32/peers/WindowsButtons.h"

#include <windowsx.h>

namespace korvanta {

namespace {

constexpr LPARAM fromKeyboard = -1;  // the position in a WM_CONTEXTMENU that comes from the keyboard

}  // namespace

WindowsCommandButton::WindowsCommandButton(CommandButton& button, HostWindow& host)
    : ControlWindow(button, host), button_(button) {
    Create(L"BUTTON", (button.Default() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | WS_TABSTOP);
    if (button.Default()) {
        Form()->defaultButton = Window();
    }
}

void WindowsCommandButton::Commanded(int code) {
    if (code == BN_CLICKED) {
        button_.HandleClick();
    }
}

bool WindowsCommandButton::IsInside(LPARAM position) const {
    RECT area{};
    ::GetClientRect(Window(), &area);
    return ::PtInRect(&area, {GET_X_LPARAM(position), GET_Y_LPARAM(position)}) != 0;
}

void WindowsCommandButton::ShowDefault(bool isDefault) {
    const ReentryFlag::Scope changingStyle(changingStyle_);
    Send(BM_SETSTYLE, isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

void WindowsCommandButton::FocusCameOrWent(bool came) {
    if (button_.Default()) {
        return;
    }
    ShowDefault(came);
    if (auto* defaultButton = dynamic_cast<WindowsCommandButton*>(ControlWindow::Of(Form()->defaultButton))) {
        defaultButton->ShowDefault(!came);
    }
}

LRESULT WindowsCommandButton::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == BM_SETSTYLE && !changingStyle_.IsSet()) {
        return 0;  // from IsDialogMessage, which does not look for the default button inside panels
    }
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
        FocusCameOrWent(message == WM_SETFOCUS);
    }
    const bool rightClick = message == WM_RBUTTONUP && IsInside(lParam);
    if (rightClick || (message == WM_CONTEXTMENU && lParam == fromKeyboard)) {
        button_.HandleRightClick();
        return 0;
    }
    return ControlWindow::Procedure(message, wParam, lParam);
}

WindowsCheckBox::WindowsCheckBox(CheckBox& checkBox, HostWindow& host)
    : ControlWindow(checkBox, host), checkBox_(checkBox) {
    Create(L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP);
    ShowValue();
}

void WindowsCheckBox::ShowValue() const {
    Send(BM_SETCHECK, checkBox_.Value() ? BST_CHECKED : BST_UNCHECKED);
}

void WindowsCheckBox::Changed(Aspect aspect) {
    if (aspect == Aspect::Selection) {
        ShowValue();
    } else {
        ControlWindow::Changed(aspect);
    }
}

void WindowsCheckBox::Commanded(int code) {
    if (code == BN_CLICKED) {
        checkBox_.HandleClick(Send(BM_GETCHECK) == BST_CHECKED);
    }
}

}  // namespace korvanta

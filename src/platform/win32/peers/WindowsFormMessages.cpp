// How a form's window handles its messages.

#include <algorithm>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/ControlWindow.h"
#include "platform/win32/peers/FormSupport.h"
#include "platform/win32/peers/WindowsForm.h"
#include "platform/win32/peers/WindowsTabStrip.h"
#include "platform/win32/services/Fonts.h"
#include "platform/win32/services/MessageBoxGuard.h"
#include "platform/win32/services/WindowsScreen.h"

namespace korvanta {

namespace {

constexpr int hourglassCursor = 32514;  // IDC_WAIT
constexpr int systemCommandMask = 0xFFF0;
constexpr UINT dpiChanged = 0x02E0;  // WM_DPICHANGED, from Windows 8.1 on

}  // namespace

LRESULT CALLBACK WindowsForm::EveryMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<WindowsForm*>(textCalls::WindowData(window, GWL_USERDATA));
    if (!self) {
        return textCalls::DefaultProcedure(window, message, wParam, lParam);
    }
    const RunningProcedure running(self->windows_);
    return Contained([&] { return self->Procedure(message, wParam, lParam); });
}

LRESULT WindowsForm::Procedure(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND handle = windows_->window;
    LRESULT result = 0;
    if (PassToChild(message, wParam, lParam, result) || HandleEnding(message, wParam, result) ||
        HandleDialog(message, wParam, lParam, result) || HandleLooks(message, wParam, lParam, result) ||
        HandleWindow(message, wParam, lParam, result)) {
        return result;
    }
    return textCalls::DefaultProcedure(handle, message, wParam, lParam);
}

bool WindowsForm::HandleWindow(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_GETMINMAXINFO:
            LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return true;
        case WM_WINDOWPOSCHANGED:
            ReportPlace();
            return true;
        case WM_MOUSEMOVE:
            // Also the callback message of the notification icon, with the mouse message as its lParam.
            if (lParam == WM_LBUTTONDBLCLK) {
                form_.HandleTrayIconDoubleClick();
            }
            return true;
        case WM_TIMER: {
            const auto timer = windows_->timers.find(wParam);
            if (timer != windows_->timers.end()) {
                const std::function<void()> tick = timer->second;  // a copy: the tick may destroy its timer
                tick();
                return true;
            }
            return false;
        }
        default:
            if (message == taskbarCreated_) {
                result = 0;
                form_.HandleTaskbarCreated();
                return true;
            }
            return false;
    }
}

void WindowsForm::LimitSize(MINMAXINFO& limits) const {
    if (placing_.IsSet()) {
        return;  // the program may make the form smaller than the user may
    }
    RECT window{};
    ::GetWindowRect(windows_->window, &window);
    const RECT area = MonitorWorkArea(window);
    const Fonts& fonts = windows_->program->fonts;
    const LONG width = std::min<LONG>(fonts.Pixels(form_.MinimumWidth()), area.right - area.left);
    const LONG height = std::min<LONG>(fonts.Pixels(form_.MinimumHeight()), area.bottom - area.top);
    limits.ptMinTrackSize.x = std::max(limits.ptMinTrackSize.x, width);
    limits.ptMinTrackSize.y = std::max(limits.ptMinTrackSize.y, height);
}

bool WindowsForm::HandleEnding(UINT message, WPARAM wParam, LRESULT& result) {
    switch (message) {
        case WM_SYSCOMMAND:
            if ((wParam & systemCommandMask) == SC_CLOSE) {
                form_.Unload(CloseReason::ControlMenu);
                return true;
            }
            return false;
        case WM_CLOSE:
            // WM_SYSCOMMAND above has dealt with the user's closing, so this comes from the Task Manager.
            form_.Unload(CloseReason::TaskManager);
            return true;
        case WM_QUERYENDSESSION:
            result = TRUE;
            return true;
        case WM_ENDSESSION:
            if (wParam != 0) {
                form_.Unload(CloseReason::WindowsSession);
            }
            return true;
        default:
            return false;
    }
}

bool WindowsForm::HandleDialog(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case DM_GETDEFID:
            result = windows_->defaultButton ? MAKELRESULT(::GetDlgCtrlID(windows_->defaultButton), DC_HASDEFID) : 0;
            return true;
        case WM_COMMAND:
            Command(LOWORD(wParam), HIWORD(wParam));
            return true;
        case WM_NEXTDLGCTL:
            MoveFocus(LOWORD(lParam) != 0 ? reinterpret_cast<HWND>(wParam)
                                          : ::GetNextDlgTabItem(windows_->window, ::GetFocus(), wParam != 0));
            return true;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) {
                SaveFocus();
            } else {
                NoteActivation(LOWORD(wParam) == WA_CLICKACTIVE, reinterpret_cast<HWND>(lParam));
                if (HIWORD(wParam) == 0) {
                    RestoreFocus();
                }
            }
            return true;
        case WM_SETFOCUS:
            RestoreFocus();
            return true;
        default:
            return false;
    }
}

// When a message box of the form closes, the user is busy with the form already.
void WindowsForm::NoteActivation(bool byClick, HWND before) {
    const bool ownMessage = before && ::GetWindow(before, GW_OWNER) == windows_->window;
    guard_.Activated(::GetTickCount(), !byClick && !ownMessage);
}

bool WindowsForm::KeepsOut(const MSG& input) {
    if (form_.GuardsKeys() && korvanta::KeepsOut(guard_, input)) {
        return true;
    }
    windows_->program->messageBoxGuard.UserActed(input.time);
    return false;
}

bool WindowsForm::SwitchesTab(const MSG& input) const {
    for (const Control* child : form_.Children()) {
        auto* tabs = dynamic_cast<WindowsTabStrip*>(child->Peer());
        if (tabs && tabs->TakeKey(input)) {
            return true;
        }
    }
    return false;
}

void WindowsForm::Command(int identifier, int code) {
    if (code != 0) {
        return;
    }
    if (windows_->defaultButton && identifier == ::GetDlgCtrlID(windows_->defaultButton)) {
        // Enter, with the default button inside a panel: the command comes without the button's window, so PassToChild
        // has found no peer for it.
        if (ControlWindow* button = ControlWindow::Of(windows_->defaultButton)) {
            button->Commanded(BN_CLICKED);
        }
    } else if (identifier >= firstMenuIdentifier) {
        const int entry = identifier - firstMenuIdentifier;
        if (menuIsUp_.IsSet()) {
            chosenEntry_ = entry;
            textCalls::Send(windows_->window, WM_CANCELMODE);
        } else {
            ChooseEntry(entry);
        }
    }
}

bool WindowsForm::HandleLooks(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT:
            PaintBackground(reinterpret_cast<HDC>(wParam));
            result = 1;
            return true;
        case WM_SETCURSOR:
            if (windows_->hourglass && LOWORD(lParam) == HTCLIENT) {
                ::SetCursor(::LoadCursorA(nullptr, MAKEINTRESOURCEA(hourglassCursor)));
                result = TRUE;
                return true;
            }
            return false;
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            TellDescendants(windows_->window, message, wParam, lParam);
            Repaint();
            if (message == WM_SETTINGCHANGE && wParam == SPI_SETWORKAREA) {
                form_.HandleDisplayChanged();
            }
            return false;
        case dpiChanged: {
            ChangeResolution(LOWORD(wParam));
            const RECT& wanted = *reinterpret_cast<const RECT*>(lParam);
            ::SetWindowPos(windows_->window, nullptr, wanted.left, wanted.top, wanted.right - wanted.left,
                           wanted.bottom - wanted.top, SWP_NOZORDER | SWP_NOACTIVATE);
            result = 0;
            return true;
        }
        case WM_DISPLAYCHANGE:
            form_.HandleDisplayChanged();
            return false;
        case WM_THEMECHANGED:
            Repaint();
            return false;
        default:
            return false;
    }
}

}  // namespace korvanta

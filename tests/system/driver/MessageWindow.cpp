#include "driver/MessageWindow.h"

#include <algorithm>

#include "driver/Keyboard.h"
#include "driver/Wait.h"

namespace driver {
namespace {

constexpr int textControl = 0xFFFF;

bool ShowsIcon(const Window& window) {
    return window.ClassName() == L"Static" && (GetWindowLongW(window.Handle(), GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
}

}  // namespace

std::wstring MessageWindow::Text() const {
    return Window(GetDlgItem(window_.Handle(), textControl)).Text();
}

std::vector<int> MessageWindow::Buttons() const {
    std::vector<int> buttons;
    for (const Window& window : window_.Descendants()) {
        if (window.ClassName() == L"Button" && window.Visible()) {
            buttons.push_back(GetDlgCtrlID(window.Handle()));
        }
    }
    std::sort(buttons.begin(), buttons.end());
    return buttons;
}

bool MessageWindow::HasIcon() const {
    const std::vector<Window> windows = window_.Descendants();
    return std::any_of(windows.begin(), windows.end(),
                       [](const Window& window) { return ShowsIcon(window) && window.Visible(); });
}

bool MessageWindow::HasKeyboard() const {
    return GetForegroundWindow() == window_.Handle() &&
           IsChild(window_.Handle(), Keyboard::Focus(window_).Handle()) != FALSE;
}

bool MessageWindow::Press(int button) const {
    // A box that has only just appeared may not take the click yet.
    return WaitFor([&] {
        Window(GetDlgItem(window_.Handle(), button)).Post(BM_CLICK);
        return WaitFor([&] { return !window_.Visible(); }, std::chrono::milliseconds(500));
    });
}

std::vector<MessageWindow> MessageWindowsOf(DWORD processId) {
    std::vector<MessageWindow> boxes;
    for (const Window& window : TopLevelWindows(processId, L"#32770")) {
        if (window.Visible() && GetDlgItem(window.Handle(), textControl) != nullptr) {
            boxes.emplace_back(window);
        }
    }
    return boxes;
}

}  // namespace driver

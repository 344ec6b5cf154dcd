#include "driver/Keyboard.h"

#include <vector>

#include "driver/Wait.h"

namespace driver {
namespace {

INPUT KeyInput(WORD virtualKey, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    return input;
}

void PressWith(WORD modifier, WORD virtualKey) {
    std::vector<INPUT> inputs{KeyInput(modifier, false), KeyInput(virtualKey, false), KeyInput(virtualKey, true),
                              KeyInput(modifier, true)};
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

void Keyboard::Press(WORD virtualKey) {
    INPUT inputs[] = {KeyInput(virtualKey, false), KeyInput(virtualKey, true)};
    SendInput(2, inputs, sizeof(INPUT));
}

void Keyboard::PressWithAlt(WORD virtualKey) {
    PressWith(VK_MENU, virtualKey);
}

void Keyboard::PressWithControl(WORD virtualKey) {
    PressWith(VK_CONTROL, virtualKey);
}

void Keyboard::PressWithShift(WORD virtualKey) {
    PressWith(VK_SHIFT, virtualKey);
}

void Keyboard::Type(const std::wstring& text) {
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        if (HIBYTE(key) == 1) {
            PressWithShift(LOBYTE(key));
        } else {
            Press(LOBYTE(key));
        }
    }
}

bool Keyboard::BringToForeground(const Window& window) {
    return WaitFor([&] {
        if (GetForegroundWindow() == window.Handle()) {
            return true;
        }
        SetForegroundWindow(window.Handle());
        return false;
    });
}

Window Keyboard::Focus(const Window& window) {
    GUITHREADINFO information{};
    information.cbSize = sizeof information;
    GetGUIThreadInfo(GetWindowThreadProcessId(window.Handle(), nullptr), &information);
    return Window(information.hwndFocus);
}

}  // namespace driver

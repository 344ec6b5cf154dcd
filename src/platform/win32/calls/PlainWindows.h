#pragma once

#include <windows.h>

#include <string>

namespace korvanta {

// Whether it is a message of the keyboard.
inline bool IsKeyMessage(UINT message) {
    return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}
// Registers a window class that draws nothing of its own. A second registration of the same class fails, harmlessly.
void RegisterPlainClass(const std::u16string& name, WNDPROC procedure);
// The same with the default window procedure.
void RegisterPlainClass(const std::u16string& name);
// The message box that the window is or belongs to; null for any other window.
HWND MessageBoxOf(HWND window);

}  // namespace korvanta

#pragma once

#include <windows.h>

#include <string>

namespace korvanta {

// A class of windows without a look of its own. Windows refuses one that it knows already, which does no harm.
void RegisterPlainClass(const std::u16string& name, WNDPROC procedure);
// The same with no behaviour of its own either.
void RegisterPlainClass(const std::u16string& name);
// The message box that the window is or belongs to; none for windows of other kinds.
HWND MessageBoxOf(HWND window);

}  // namespace korvanta

#pragma once

#include <windows.h>

#include <string>

#include "controls/Controls.h"

namespace korvanta {

struct ProgramWindows;

// Identifiers of the entries of a popup menu, in their order.
inline constexpr int firstMenuIdentifier = 0x9000;

// A class of windows without a look of its own. Windows refuses one that it knows already, which does no harm.
void RegisterPlainClass(const std::u16string& name, WNDPROC procedure);
// The same with no behaviour of its own either.
void RegisterPlainClass(const std::u16string& name);
// The hidden window that owns forms which show no button in the taskbar; made when it is first asked for.
HWND OwnerOfHiddenButtons(ProgramWindows& program);
void FillMenu(HMENU handle, const PopupMenu& menu);
// Where a text box takes the focus, as dialogs do.
void SelectWholeText(HWND control);
// Tells all windows below of a message that Windows sends top-level windows only.
void TellDescendants(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace korvanta

#pragma once

#include <windows.h>

#include "controls/Controls.h"

namespace korvanta {

struct ProgramWindows;

// The identifier of a popup menu's first entry; the others follow in order.
inline constexpr int firstMenuIdentifier = 0x9000;

// The hidden window that owns the forms without a taskbar button: Windows gives no button to a window that is owned.
// Made when it is first asked for.
HWND OwnerOfFormsWithoutButton(ProgramWindows& program);
void FillMenu(HMENU handle, const PopupMenu& menu);
// Selects the text when the control is a text box, as dialogs do with the one that gets the focus.
void SelectWholeText(HWND control);
// Sends all windows below a message that Windows sends to top-level windows only.
void TellDescendants(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace korvanta

#pragma once

#include <windows.h>

#include "controls/Controls.h"

namespace korvanta {

struct ProgramWindows;

// Identifiers of the entries of a popup menu, in their order.
inline constexpr int firstMenuIdentifier = 0x9000;

// The hidden window that owns forms which show no button in the taskbar; made when it is first asked for.
HWND OwnerOfHiddenButtons(ProgramWindows& program);
void FillMenu(HMENU handle, const PopupMenu& menu);
// Where a text box takes the focus, as dialogs do.
void SelectWholeText(HWND control);
// Tells all windows below of a message that Windows sends top-level windows only.
void TellDescendants(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace korvanta

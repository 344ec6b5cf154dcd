#pragma once

#include <windows.h>

#include "controls/Control.h"
#include "platform/win32/calls/Handles.h"

namespace korvanta {

// The present color on the screen: a system color is looked up in the user's scheme.
COLORREF ScreenColor(Color color);

// The text color of a control that fills itself with its BackColor. On the background of windows it is the color of
// window text where the control has that of button text, which some color schemes make unreadable there.
COLORREF TextColor(const Control& control);

// The color of a link on that background: the user's, if it can be read there.
COLORREF LinkColor(COLORREF background);

// The color of the current row in a list without the focus, since the system's own color for it can hardly be seen. It
// is a pale shade of the highlight color, or the highlight color itself where the shade would be too near to the
// background.
COLORREF PaleHighlight(COLORREF highlight, COLORREF background);

// A brush of that color. It belongs to Windows or to `keeper`, and is valid as long as that holds it.
HBRUSH ColorBrush(Color color, BrushHandle& keeper);

}  // namespace korvanta

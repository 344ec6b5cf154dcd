#pragma once

#include <windows.h>

#include "controls/Control.h"
#include "platform/win32/calls/Handles.h"

namespace korvanta {

// What a color is on the screen now: system colors follow the user's scheme.
COLORREF ScreenColor(Color color);

// The text color of a control that fills itself with its BackColor. The text of buttons need not be readable on the
// background of windows in every scheme; the text of windows is.
COLORREF TextColor(const Control& control);

// The color of a link on that background: the user's, unless it can hardly be read there.
COLORREF LinkColor(COLORREF background);

// What marks the current row of a list that has not the focus; the system's own color for that can hardly be seen: a
// pale form of the highlight color, or that itself where the pale one can hardly be told from the background.
COLORREF PaleHighlight(COLORREF highlight, COLORREF background);

// A brush of that color. One that the system does not keep is put into `keeper`, with which it goes.
HBRUSH ColorBrush(Color color, BrushHandle& keeper);

}  // namespace korvanta

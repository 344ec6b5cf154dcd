#pragma once

#include "controls/Form.h"
#include "platform/Screen.h"

namespace korvanta {

// Keeps the form above all other windows, or no longer.
void SetFormTopMost(Form& form, bool topMost);
// Moves the form to the middle of the screen.
void CenterForm(Form& form, Screen& screen);

}  // namespace korvanta

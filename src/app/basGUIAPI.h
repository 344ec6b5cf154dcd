#pragma once

#include "controls/Form.h"
#include "platform/Screen.h"

namespace korvanta {

// Puts the form above all other windows for good (true), or back among them (false).
void SetFormTopMost(Form& form, bool topMost);
// Moves the form to the middle of the screen.
void CenterForm(Form& form, Screen& screen);

}  // namespace korvanta

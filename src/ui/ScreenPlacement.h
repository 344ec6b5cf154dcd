#pragma once

#include "controls/Form.h"
#include "platform/Screen.h"

namespace korvanta {

// Where a form stands on the screen: first in the middle of the monitor with the mouse pointer, from then on where the
// user leaves it, and always where it can be seen in full.
class ScreenPlacement {
  public:
    // Both outlive it.
    ScreenPlacement(Form& form, Screen& screen) : form_(form), screen_(screen) {}

    // For a form that is about to be shown, or whose monitors have changed.
    void PutOnScreen();
    // For captions that may have become longer than the window has room for.
    void GrowToFit();

  private:
    Place LargeEnough() const;
    void MoveInside(const Place& area, Place place);

    Form& form_;
    Screen& screen_;
    bool placed_ = false;
};

}  // namespace korvanta

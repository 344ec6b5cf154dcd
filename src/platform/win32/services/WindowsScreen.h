#pragma once

#include <windows.h>

#include "platform/Screen.h"

namespace korvanta {

class Fonts;

// What taskbars leave free, in pixels, of the monitor that has the most of a rectangle or is nearest to it.
RECT MonitorWorkArea(const RECT& rectangle);

class WindowsScreen : public Screen {
  public:
    explicit WindowsScreen(const Fonts& fonts) : fonts_(fonts) {}

    Place WholeScreen() override;
    Place WorkArea() override;
    Place WorkAreaAt(const Place& place) override;
    double TwipsPerPixel() override;

  private:
    Place InTwips(const RECT& area) const;

    const Fonts& fonts_;
};

}  // namespace korvanta

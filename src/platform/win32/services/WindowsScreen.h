#pragma once

#include <windows.h>

#include "platform/Screen.h"

namespace korvanta {

class Fonts;

// The monitor that shows most of a rectangle, or else is nearest to it, less its taskbars. In pixels.
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

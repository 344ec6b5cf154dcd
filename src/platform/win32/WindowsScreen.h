#pragma once

#include "platform/Screen.h"

namespace korvanta {

class Fonts;

class WindowsScreen : public Screen {
  public:
    explicit WindowsScreen(const Fonts& fonts) : fonts_(fonts) {}

    Place WholeScreen() override;
    Place WorkArea() override;
    double TwipsPerPixel() override;

  private:
    const Fonts& fonts_;
};

}  // namespace korvanta

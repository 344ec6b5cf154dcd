#pragma once

#include "platform/Screen.h"

namespace korvanta::fakes {

// 1024 by 768 pixels at 96 DPI with a taskbar of 30 pixels at the bottom.
class FakeScreen : public Screen {
  public:
    Place wholeScreen{0, 0, 15360, 11520};
    Place workArea{0, 0, 15360, 11070};
    double twipsPerPixel = 15.0;

    Place WholeScreen() override { return wholeScreen; }
    Place WorkArea() override { return workArea; }
    double TwipsPerPixel() override { return twipsPerPixel; }
};

}  // namespace korvanta::fakes

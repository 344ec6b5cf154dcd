#pragma once

#include <optional>

#include "fakes/FaultPlan.h"
#include "platform/Screen.h"

namespace korvanta::fakes {

// 1024 by 768 pixels at 96 DPI with a taskbar of 30 pixels at the bottom.
class FakeScreen : public Screen {
  public:
    Place wholeScreen{0, 0, 15360, 11520};
    Place workArea{0, 0, 15360, 11070};
    // What WorkAreaAt returns; `workArea` if it is not set.
    std::optional<Place> workAreaAt;
    double twipsPerPixel = 15.0;

    FaultPlan faults;  // "WholeScreen", "WorkArea", "WorkAreaAt": return an empty place

    Place WholeScreen() override { return faults.Check("WholeScreen") != 0 ? Place() : wholeScreen; }
    Place WorkArea() override { return faults.Check("WorkArea") != 0 ? Place() : workArea; }
    Place WorkAreaAt(const Place&) override {
        return faults.Check("WorkAreaAt") != 0 ? Place() : workAreaAt.value_or(workArea);
    }
    double TwipsPerPixel() override { return twipsPerPixel; }
};

}  // namespace korvanta::fakes

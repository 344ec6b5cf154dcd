#include "ui/ScreenPlacement.h"

#include <algorithm>

namespace korvanta {

void ScreenPlacement::PutOnScreen() {
    if (placed_) {
        MoveInside(screen_.WorkAreaAt(form_.Position()), form_.Position());
        return;
    }
    placed_ = true;
    const Place area = screen_.WorkArea();
    Place place = LargeEnough();
    place.left = area.left + (area.width - place.width) / 2;
    place.top = area.top + (area.height - place.height) / 2;
    MoveInside(area, place);
}

void ScreenPlacement::GrowToFit() {
    MoveInside(screen_.WorkAreaAt(form_.Position()), LargeEnough());
}

Place ScreenPlacement::LargeEnough() const {
    Place place = form_.Position();
    place.width = std::max(place.width, form_.MinimumWidth());
    place.height = std::max(place.height, form_.MinimumHeight());
    return place;
}

void ScreenPlacement::MoveInside(const Place& area, Place place) {
    place.width = std::min(place.width, area.width);
    place.height = std::min(place.height, area.height);
    place.left = std::clamp(place.left, area.left, area.Right() - place.width);
    place.top = std::clamp(place.top, area.top, area.Bottom() - place.height);
    form_.Move(place);
}

}  // namespace korvanta

#include "app/basGUIAPI.h"

namespace korvanta {

void SetFormTopMost(Form& form, bool topMost) {
    form.TopMost(topMost);
}

void CenterForm(Form& form, Screen& screen) {
    const Place whole = screen.WholeScreen();
    Place place = form.Position();
    place.left = (whole.width - place.width) / 2;
    place.top = (whole.height - place.height) / 2;
    form.Move(place);
}

}  // namespace korvanta

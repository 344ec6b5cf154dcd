#include "ui/HLine.h"

namespace korvanta {

namespace {
constexpr int height = 30;
constexpr int lineHeight = 15;
}  // namespace

HLine::HLine(std::u16string name) : Container(std::move(name)) {
    Line1.ForeColor(systemColor::buttonShadow);
    Line2.ForeColor(systemColor::buttonHighlight);
    Add(Line1);
    Add(Line2);
    HLine::Resized();
}

void HLine::Resized() {
    const Place place = Position();
    Line1.Move({0, 0, place.width, lineHeight});
    Line2.Move({0, lineHeight, place.width, lineHeight});
    Move({place.left, place.top, place.width, height});
}

}  // namespace korvanta

#pragma once

namespace korvanta {

// A rectangle on the screen or in a container, in twips.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Place&) const = default;
    int Right() const { return left + width; }
    int Bottom() const { return top + height; }
};

class Screen {
  public:
    virtual ~Screen() = default;
    // The whole primary screen, at 0/0.
    virtual Place WholeScreen() = 0;
    // The monitor with the mouse pointer, less its taskbars.
    virtual Place WorkArea() = 0;
    // The same for the monitor that shows most of the place, or else is nearest to it.
    virtual Place WorkAreaAt(const Place& place) = 0;
    // 15 at 96 DPI, 7.5 at 192.
    virtual double TwipsPerPixel() = 0;
};

}  // namespace korvanta

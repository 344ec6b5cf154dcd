#pragma once

#include "platform/win32/calls/Handles.h"

namespace korvanta {

// The font of the program's windows, which is the user's message font, and the resolution of the screen that they are
// on. At first that is the system's resolution, which Windows fixes when the user logs on.
class Fonts {
  public:
    Fonts();

    // Makes the user's present font in that resolution. The fonts from before stay valid until the next call, so that
    // there is time to hand the new ones to the windows. When the fonts cannot be made, nothing changes.
    void ChangeResolution(int dotsPerInch);

    HFONT Normal() const { return normal_.Get(); }
    HFONT Bold() const { return bold_.Get(); }
    HFONT Get(bool bold) const { return bold ? Bold() : Normal(); }

    int DotsPerInch() const { return dotsPerInch_; }
    // Rounded to the nearest; 1440 twips are an inch.
    int Pixels(int twips) const { return ::MulDiv(twips, dotsPerInch_, twipsPerInch); }
    int Twips(int pixels) const { return ::MulDiv(pixels, twipsPerInch, dotsPerInch_); }
    // GetSystemMetrics, which is for the system's resolution, scaled to this one.
    int Metric(int index) const { return ::MulDiv(::GetSystemMetrics(index), dotsPerInch_, systemDotsPerInch_); }

    static constexpr int twipsPerInch = 1440;

  private:
    FontHandle normal_;
    FontHandle bold_;
    FontHandle normalBefore_;
    FontHandle boldBefore_;
    int systemDotsPerInch_ = 96;
    int dotsPerInch_ = 96;
};

}  // namespace korvanta

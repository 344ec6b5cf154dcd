#pragma once

#include "platform/win32/Handles.h"

namespace korvanta {

// The font of the program's windows (the user's message font), and the screen's resolution. Both are taken once, when
// the object is made.
class Fonts {
  public:
    Fonts();

    HFONT Normal() const { return normal_.Get(); }
    HFONT Bold() const { return bold_.Get(); }
    HFONT Get(bool bold) const { return bold ? Bold() : Normal(); }

    int DotsPerInch() const { return dotsPerInch_; }
    // Rounded to the nearest; 1440 twips are an inch.
    int Pixels(int twips) const { return ::MulDiv(twips, dotsPerInch_, twipsPerInch); }
    int Twips(int pixels) const { return ::MulDiv(pixels, twipsPerInch, dotsPerInch_); }

    static constexpr int twipsPerInch = 1440;

  private:
    FontHandle normal_;
    FontHandle bold_;
    int dotsPerInch_ = 96;
};

}  // namespace korvanta

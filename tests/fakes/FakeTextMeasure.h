#pragma once

#include <cstdint>

#include "platform/TextMeasure.h"

namespace korvanta::fakes {

// Gives every character the same generous width or, if a resolution is set, its width at that resolution in the usual
// font of Windows (8 points). A single "&" has no width; "&&" has the width of one.
class FakeTextMeasure : public TextMeasure {
  public:
    int characterWidth = 110;
    int boldCharacterWidth = 120;
    int lineHeight = 195;
    int boldLineHeight = 210;
    int dotsPerInch = 0;

    int Width(const std::u16string& caption, bool bold) override;
    int LineHeight(bool bold) override;
};

}  // namespace korvanta::fakes

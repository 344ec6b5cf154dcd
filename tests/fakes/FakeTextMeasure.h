#pragma once

#include <cstdint>

#include "platform/TextMeasure.h"

namespace korvanta::fakes {

// Every character has the same, generous width; or, where a resolution is given, the width that it has in the usual
// font of Windows (8 points) there. An "&" takes no room but where two stand together, which show one.
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

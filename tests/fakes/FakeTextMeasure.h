#pragma once

#include "platform/TextMeasure.h"

namespace korvanta::fakes {

// Every character has the same, generous width. An "&" takes no room but where two stand together, which show one.
class FakeTextMeasure : public TextMeasure {
  public:
    int characterWidth = 110;
    int boldCharacterWidth = 120;
    int lineHeight = 195;
    int boldLineHeight = 210;

    int Width(const std::u16string& caption, bool bold) override {
        int characters = 0;
        for (std::size_t i = 0; i < caption.size(); ++i) {
            if (caption[i] == u'&' && i + 1 < caption.size()) {
                ++i;
            }
            ++characters;
        }
        return characters * (bold ? boldCharacterWidth : characterWidth);
    }
    int LineHeight(bool bold) override { return bold ? boldLineHeight : lineHeight; }
};

}  // namespace korvanta::fakes

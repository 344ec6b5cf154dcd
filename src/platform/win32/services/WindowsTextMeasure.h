#pragma once

#include "platform/TextMeasure.h"

namespace korvanta {

class Fonts;

class WindowsTextMeasure : public TextMeasure {
  public:
    explicit WindowsTextMeasure(const Fonts& fonts) : fonts_(fonts) {}

    int Width(const std::u16string& caption, bool bold) override;
    int LineHeight(bool bold) override;

  private:
    const Fonts& fonts_;
};

}  // namespace korvanta

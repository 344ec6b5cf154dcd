#pragma once

#include "controls/Controls.h"

namespace korvanta {

// A horizontal etched rule: a dark line above a light one. Its height is always 30 twips.
class HLine : public Container {
  public:
    explicit HLine(std::u16string name);

  private:
    void Resized() override;

    Line Line1{u"Line1"};
    Line Line2{u"Line2"};
};

}  // namespace korvanta

#pragma once

#include "platform/CodePage.h"

namespace korvanta {

class WindowsCodePage : public CodePage {
  public:
    std::u16string Decode(std::string_view bytes) const override;
    std::string Encode(std::u16string_view text) const override;
    std::u16string BestFit(std::u16string_view text) const override;
};

}  // namespace korvanta

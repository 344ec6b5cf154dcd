#pragma once

#include "app/frmMessages.h"
#include "fakes/PlainTranslator.h"

namespace korvanta::fakes {

// The texts of the message boxes in English.
class FakeMessageTexts : public MessageTexts {
  public:
    std::u16string Text(std::u16string_view labelName) override { return messages_.Text(labelName); }

  private:
    PlainTranslator translator_;
    frmMessages messages_{translator_};
};

}  // namespace korvanta::fakes

#pragma once

#include <string>
#include <string_view>

namespace korvanta {

// The texts of the message boxes, each the (translated) caption of a label that is known by its name.
class MessageTexts {
  public:
    virtual ~MessageTexts() = default;
    // Empty for a name that no label has.
    virtual std::u16string Text(std::u16string_view labelName) = 0;
};

}  // namespace korvanta

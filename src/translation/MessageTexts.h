#pragma once

#include <string>
#include <string_view>

namespace korvanta {

// The texts of the message boxes: the translated captions of labels, by the labels' names.
class MessageTexts {
  public:
    virtual ~MessageTexts() = default;
    // Empty when there is no such label.
    virtual std::u16string Text(std::u16string_view labelName) = 0;
};

}  // namespace korvanta

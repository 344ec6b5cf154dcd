#pragma once

#include <string>

namespace korvanta {

enum class MessageButtons { OK, OKCancel, YesNo };
enum class MessageIcon { None, Critical, Exclamation, Question, Information };
enum class MessageAnswer { OK, Cancel, Yes, No };

class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    // Shows the box in front of the program's active window and returns when the user has answered. Messages run
    // meanwhile, timers too. While the program is ending the answer is Cancel (No for YesNo).
    virtual MessageAnswer Show(const std::u16string& text, const std::u16string& title, MessageButtons buttons,
                               MessageIcon icon) = 0;
};

}  // namespace korvanta

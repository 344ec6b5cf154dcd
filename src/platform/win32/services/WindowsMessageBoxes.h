#pragma once

#include "platform/MessageBoxes.h"

namespace korvanta {

class MessageBoxGuard;
class WindowsMessageLoop;

class WindowsMessageBoxes : public MessageBoxes {
  public:
    WindowsMessageBoxes(const WindowsMessageLoop& messageLoop, MessageBoxGuard& guard)
        : messageLoop_(messageLoop), guard_(guard) {}

    MessageAnswer Show(const std::u16string& text, const std::u16string& title, MessageButtons buttons,
                       MessageIcon icon) override;

  private:
    const WindowsMessageLoop& messageLoop_;
    MessageBoxGuard& guard_;
};

}  // namespace korvanta

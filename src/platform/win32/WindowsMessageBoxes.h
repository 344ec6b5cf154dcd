#pragma once

#include "platform/MessageBoxes.h"

namespace korvanta {

class WindowsMessageLoop;

class WindowsMessageBoxes : public MessageBoxes {
  public:
    explicit WindowsMessageBoxes(const WindowsMessageLoop& messageLoop) : messageLoop_(messageLoop) {}

    MessageAnswer Show(const std::u16string& text, const std::u16string& title, MessageButtons buttons,
                       MessageIcon icon) override;

  private:
    const WindowsMessageLoop& messageLoop_;
};

}  // namespace korvanta

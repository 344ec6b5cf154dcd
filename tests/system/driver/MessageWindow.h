#pragma once

#include <string>
#include <vector>

#include "driver/Window.h"

namespace driver {

// A message box that another process shows. Its answers are the system's button numbers.
class MessageWindow {
  public:
    static constexpr int ok = 1;
    static constexpr int cancel = 2;
    static constexpr int yes = 6;
    static constexpr int no = 7;

    explicit MessageWindow(const Window& window) : window_(window) {}

    std::wstring Title() const { return window_.Text(); }
    std::wstring Text() const;
    // The numbers of its buttons, in ascending order.
    std::vector<int> Buttons() const;
    // Whether it shows an icon.
    bool HasIcon() const;
    // Whether what is typed goes to one of its buttons.
    bool HasKeyboard() const;
    // Presses the button and waits until the box is gone. False when it stays.
    bool Press(int button) const;

  private:
    Window window_;
};

// The message boxes of the process that are on the screen, topmost first.
std::vector<MessageWindow> MessageWindowsOf(DWORD processId);

}  // namespace driver

#pragma once

#include <windows.h>

#include <string>

#include "driver/Window.h"

namespace driver {

// The keyboard itself: what is pressed here goes to the window in the foreground, as from the user's hand.
class Keyboard {
  public:
    static void Press(WORD virtualKey);
    // Alt (the menu key) held while the key goes down and up.
    static void PressWithAlt(WORD virtualKey);
    static void PressWithControl(WORD virtualKey);
    static void PressWithShift(WORD virtualKey);
    // Letters, digits and blanks.
    static void Type(const std::wstring& text);

    // Puts the window in the foreground and waits until it is. False when it does not get there.
    static bool BringToForeground(const Window& window);
    // The control of the window's thread that has the focus; none when none has.
    static Window Focus(const Window& window);
};

}  // namespace driver

#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace korvanta {

// The program's top-level windows that want dialog keys: Tab, access keys, Enter and Escape. Every message loop of the
// program passes its messages through Translate before it dispatches them. Message boxes count without being added:
// while one is up, timers let messages run in the program's own loops, and these must not lose a key for the box.
class DialogWindows {
  public:
    // Gets each keyboard message and each press of a mouse button before the window does; true uses the message up.
    using InputFilter = std::function<bool(const MSG& message)>;

    void Add(HWND window, InputFilter filter = {});
    void Remove(HWND window);
    // True when the message has been dealt with here and must not be dispatched.
    bool Translate(MSG& message);

  private:
    struct Entry {
        HWND window;
        InputFilter filter;
    };
    std::vector<Entry>::iterator Find(HWND window);
    HWND Owner(HWND target) const;

    std::vector<Entry> entries_;
};

}  // namespace korvanta

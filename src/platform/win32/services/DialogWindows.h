#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace korvanta {

// The program's top-level windows that want dialog keys (Tab, access keys, default and cancel button). Every message
// loop of the program shows its messages here first. Message boxes need not be added: while one is up, what the program
// does at intervals lets messages run too, and a key for the box must not be lost there.
class DialogWindows {
  public:
    // Sees a keyboard message, or the press of a mouse button, before anybody else does; true uses it up.
    using InputFilter = std::function<bool(const MSG& message)>;

    void Add(HWND window, InputFilter filter = {});
    void Remove(HWND window);
    // True when the message, one for such a window, a message box or a child of one, has been dealt with and must not
    // be dispatched.
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

#pragma once

#include <windows.h>

#include <functional>

#include "controls/KeyGuard.h"
#include "platform/win32/calls/Handles.h"

namespace korvanta {

struct HookTraits : NullIsNone<HHOOK> {
    static bool Close(HHOOK hook) { return ::UnhookWindowsHookEx(hook) != 0; }
};

// Keeps keys from a message box that were meant for another window; see KeyGuard. A box that comes up right after the
// user has done something in a window of the program is the answer to that and takes keys at once.
class MessageBoxGuard {
  public:
    MessageBoxGuard() = default;
    MessageBoxGuard(const MessageBoxGuard&) = delete;
    MessageBoxGuard& operator=(const MessageBoxGuard&) = delete;

    // The user has pressed a key or a mouse button in a window of the program; `time` is that of the message.
    void UserActed(DWORD time);
    // Calls `showBox`, which shows a box until it is answered, and returns its result.
    int Show(const std::function<int()>& showBox);

  private:
    class Watch;

    static LRESULT CALLBACK Filter(int code, WPARAM wParam, LPARAM lParam);
    bool JustActed(DWORD now) const;
    bool KeepsOut(const MSG& input);

    KeyGuard guard_;
    Watch* watch_ = nullptr;  // while a guarded box is up
    DWORD lastAct_ = 0;
    bool acted_ = false;
};

// Whether the input, a key or the press of a mouse button, does not count in the window that the guard is for.
bool KeepsOut(KeyGuard& guard, const MSG& input);

}  // namespace korvanta

#pragma once

#include <windows.h>

#include <functional>

#include "controls/KeyGuard.h"
#include "platform/win32/calls/Handles.h"

namespace korvanta {

struct HookTraits : NullIsNone<HHOOK> {
    static bool Close(HHOOK hook) { return ::UnhookWindowsHookEx(hook) != 0; }
};

// Keeps keys that were meant for another window from the message boxes that come up while their user is busy there;
// see KeyGuard. A box that follows on what he has just done in a window of the program takes his keys at once.
class MessageBoxGuard {
  public:
    MessageBoxGuard() = default;
    MessageBoxGuard(const MessageBoxGuard&) = delete;
    MessageBoxGuard& operator=(const MessageBoxGuard&) = delete;

    // The user has pressed a key or a mouse button in a window of the program; `time` is that of the message.
    void UserActed(DWORD time);
    // Runs what shows a box and returns when the box has been answered; its answer is the result.
    int Show(const std::function<int()>& showBox);

  private:
    class Watch;

    static LRESULT CALLBACK Filter(int code, WPARAM wParam, LPARAM lParam);
    bool JustActed(DWORD now) const;
    bool KeepsOut(const MSG& input);

    KeyGuard guard_;
    Watch* watch_ = nullptr;  // while boxes are up
    DWORD lastAct_ = 0;
    bool acted_ = false;
};

// Whether the input, a key or the press of a mouse button, is not for the window that the guard stands before.
bool KeepsOut(KeyGuard& guard, const MSG& input);

}  // namespace korvanta

#include "platform/win32/services/WindowsMessageLoop.h"

#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/DialogWindows.h"

namespace korvanta {

namespace {

constexpr DWORD leastPause = 10;  // milliseconds

}  // namespace

void WindowsMessageLoop::RunPending() {
    using TimerName = std::pair<HWND, WPARAM>;
    std::vector<TimerName> ticked;
    MSG message;
    while (textCalls::PeekNextMessage(message, PM_REMOVE)) {
        bool last = message.message == WM_QUIT;
        if (message.message == WM_TIMER) {
            // A timer that ticks a second time came due meanwhile. Going on would never end when its handler takes as
            // long as its interval.
            const TimerName timer(message.hwnd, message.wParam);
            last = std::find(ticked.begin(), ticked.end(), timer) != ticked.end();
            ticked.push_back(timer);
        }
        Take(message);
        if (last) {
            break;
        }
    }
    lastLook_ = ::GetTickCount();
    looked_ = true;
}

void WindowsMessageLoop::RunPendingOften() {
    if (!looked_ || ::GetTickCount() - lastLook_ >= leastPause) {
        RunPending();
    }
}

void WindowsMessageLoop::Run() {
    RunWhile([] { return true; });
}

void WindowsMessageLoop::Quit() {
    quitting_ = true;
    ::PostQuitMessage(0);
}

void WindowsMessageLoop::RunWhile(const std::function<bool()>& goOn) {
    MSG message;
    while (!quitting_ && goOn()) {
        if (textCalls::PeekNextMessage(message, PM_REMOVE)) {
            Take(message);
        } else if (goOn()) {
            // Peeking delivers what other threads have sent, which can change the answer: so it is asked for once more.
            ::WaitMessage();
        }
    }
}

void WindowsMessageLoop::Take(tagMSG& message) {
    if (message.message == WM_QUIT) {
        // The loops around this one must see it too.
        quitting_ = true;
        ::PostQuitMessage(static_cast<int>(message.wParam));
    } else if (!dialogs_.Translate(message)) {
        textCalls::Dispatch(message);
    }
}

}  // namespace korvanta

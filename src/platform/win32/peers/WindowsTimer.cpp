#include "platform/win32/peers/WindowsTimer.h"

namespace korvanta {

WindowsTimer::WindowsTimer(Timer& timer, HostWindow& host)
    : timer_(timer), form_(host.Windows()), identifier_(static_cast<UINT_PTR>(form_->nextIdentifier++)) {
    form_->timers[identifier_] = [&timer] { timer.HandleTick(); };
    Set();
}

WindowsTimer::~WindowsTimer() {
    ::KillTimer(form_->window, identifier_);
    form_->timers.erase(identifier_);
}

void WindowsTimer::Changed(Aspect aspect) {
    if (aspect == Aspect::Enabled || aspect == Aspect::Content) {
        Set();
    }
}

void WindowsTimer::Set() {
    if (timer_.Enabled() && timer_.Interval() > 0) {
        ::SetTimer(form_->window, identifier_, static_cast<UINT>(timer_.Interval()), nullptr);
    } else {
        ::KillTimer(form_->window, identifier_);
    }
}

}  // namespace korvanta

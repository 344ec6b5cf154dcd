#pragma once

#include <windows.h>

#include <memory>

#include "controls/Controls.h"
#include "platform/win32/peers/HostWindow.h"

namespace korvanta {

// A timer of the form's window.
class WindowsTimer : public ControlPeer {
  public:
    WindowsTimer(Timer& timer, HostWindow& host);
    WindowsTimer(const WindowsTimer&) = delete;
    WindowsTimer& operator=(const WindowsTimer&) = delete;
    ~WindowsTimer() override;
    void Changed(Aspect aspect) override;

  private:
    void Set();

    Timer& timer_;
    std::shared_ptr<FormWindows> form_;
    UINT_PTR identifier_;
};

}  // namespace korvanta

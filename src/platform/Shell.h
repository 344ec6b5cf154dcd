#pragma once

#include <cstdint>
#include <string>

namespace korvanta {

// A window of the platform, opaque to everybody else; 0 is none.
using WindowId = std::uintptr_t;

// An icon in the notification area. When the mouse is used over it, its window gets the message `callbackMessage`; a
// form makes an event of its own of the double click (Form::HandleTrayIconDoubleClick).
struct TrayIcon {
    WindowId window = 0;
    std::uint32_t identifier = 0;
    std::uint32_t flags = 0;            // 7: message, icon and tip
    std::uint32_t callbackMessage = 0;  // 512: mouse move
    std::u16string tip;                 // at most 63 characters are shown
};

class Shell {
  public:
    virtual ~Shell() = default;
    // The shell's "open" verb, no parent window, no parameters, no working folder, shown normally. False on failure.
    virtual bool OpenDocument(const std::u16string& path) = 0;
    // The icon shown is the program's own. False: there is no notification area now.
    virtual bool AddTrayIcon(const TrayIcon& icon) = 0;
    virtual bool DeleteTrayIcon(const TrayIcon& icon) = 0;
};

}  // namespace korvanta

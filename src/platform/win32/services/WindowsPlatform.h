#pragma once

#include <memory>

#include "platform/Platform.h"

namespace korvanta {

class DialogWindows;
class Fonts;
class MessageBoxGuard;
class WindowsMessageLoop;
class WindowsWorkers;

// The real services, one of each. All that these functions return lives as long as this object.
class WindowsPlatform {
  public:
    WindowsPlatform();
    ~WindowsPlatform();
    WindowsPlatform(const WindowsPlatform&) = delete;
    WindowsPlatform& operator=(const WindowsPlatform&) = delete;

    Platform& Services();
    WindowsWorkers& Workers();

    // What the peers share with the services.
    Fonts& DialogFonts();
    DialogWindows& Dialogs();
    WindowsMessageLoop& Loop();
    MessageBoxGuard& BoxGuard();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace korvanta

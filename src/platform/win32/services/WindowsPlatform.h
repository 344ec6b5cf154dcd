#pragma once

#include <memory>

#include "platform/Platform.h"

namespace korvanta {

class DialogWindows;
class Fonts;
class MessageBoxGuard;
class WindowsMessageLoop;
class WindowsWorkers;

// The real services: one of each, made once and living as long as this object. What it gives lives as long.
class WindowsPlatform {
  public:
    WindowsPlatform();
    ~WindowsPlatform();
    WindowsPlatform(const WindowsPlatform&) = delete;
    WindowsPlatform& operator=(const WindowsPlatform&) = delete;

    Platform& Services();
    WindowsWorkers& Workers();

    // What the windows on the screen share with the services.
    Fonts& DialogFonts();
    DialogWindows& Dialogs();
    WindowsMessageLoop& Loop();
    MessageBoxGuard& BoxGuard();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace korvanta

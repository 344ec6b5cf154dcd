#include "platform/win32/WindowsPlatform.h"

#include "platform/win32/DialogWindows.h"
#include "platform/win32/Fonts.h"
#include "platform/win32/MessageGuard.h"
#include "platform/win32/WindowsClock.h"
#include "platform/win32/WindowsCodePage.h"
#include "platform/win32/WindowsFileSystem.h"
#include "platform/win32/WindowsInternet.h"
#include "platform/win32/WindowsMessageBoxes.h"
#include "platform/win32/WindowsMessageLoop.h"
#include "platform/win32/WindowsMutex.h"
#include "platform/win32/WindowsRegistry.h"
#include "platform/win32/WindowsScreen.h"
#include "platform/win32/WindowsShell.h"
#include "platform/win32/WindowsSockets.h"
#include "platform/win32/WindowsSpooler.h"
#include "platform/win32/WindowsSystem.h"
#include "platform/win32/WindowsTextMeasure.h"
#include "platform/win32/WindowsWaitableHandles.h"

namespace korvanta {

// In the order in which they build on each other.
struct WindowsPlatform::Parts {
    Fonts fonts;
    DialogWindows dialogs;
    MessageGuard messageGuard;
    WindowsFileSystem files;
    WindowsCodePage codePage;
    WindowsRegistry registry;
    WindowsSpooler spooler;
    WindowsWaitableHandles waitableHandles;
    WindowsMutexFactory mutexes;
    WindowsSockets sockets;
    WindowsShell shell;
    WindowsSystem system;
    WindowsClock clock;
    WindowsMessageLoop messageLoop{dialogs};
    WindowsInternet internet{messageLoop};
    WindowsMessageBoxes messageBoxes{messageLoop, messageGuard};
    WindowsScreen screen{fonts};
    WindowsTextMeasure textMeasure{fonts};
    Platform services{files, codePage, registry, spooler,      waitableHandles, mutexes, internet,   sockets,
                      shell, system,   clock,    messageBoxes, messageLoop,     screen,  textMeasure};
};

WindowsPlatform::WindowsPlatform() : parts_(std::make_unique<Parts>()) {}

WindowsPlatform::~WindowsPlatform() = default;

Platform& WindowsPlatform::Services() {
    return parts_->services;
}

Fonts& WindowsPlatform::DialogFonts() {
    return parts_->fonts;
}

DialogWindows& WindowsPlatform::Dialogs() {
    return parts_->dialogs;
}

MessageGuard& WindowsPlatform::GuardOfMessages() {
    return parts_->messageGuard;
}

WindowsMessageLoop& WindowsPlatform::Loop() {
    return parts_->messageLoop;
}

}  // namespace korvanta

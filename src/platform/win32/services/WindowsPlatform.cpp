#include "platform/win32/services/WindowsPlatform.h"

#include "platform/win32/services/DialogWindows.h"
#include "platform/win32/services/Fonts.h"
#include "platform/win32/services/MessageBoxGuard.h"
#include "platform/win32/services/WindowsClock.h"
#include "platform/win32/services/WindowsCodePage.h"
#include "platform/win32/services/WindowsFileSystem.h"
#include "platform/win32/services/WindowsInternet.h"
#include "platform/win32/services/WindowsMessageBoxes.h"
#include "platform/win32/services/WindowsMessageLoop.h"
#include "platform/win32/services/WindowsMutex.h"
#include "platform/win32/services/WindowsRegistry.h"
#include "platform/win32/services/WindowsScreen.h"
#include "platform/win32/services/WindowsShell.h"
#include "platform/win32/services/WindowsSockets.h"
#include "platform/win32/services/WindowsSpooler.h"
#include "platform/win32/services/WindowsSystem.h"
#include "platform/win32/services/WindowsTextMeasure.h"
#include "platform/win32/services/WindowsWaitableHandles.h"
#include "platform/win32/services/WindowsWorkers.h"

namespace korvanta {

// A part is declared after those that it refers to.
struct WindowsPlatform::Parts {
    Fonts fonts;
    DialogWindows dialogs;
    MessageBoxGuard messageBoxGuard;
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
    WindowsWorkers workers{messageLoop};
    WindowsInternet internet{messageLoop};
    WindowsMessageBoxes messageBoxes{messageLoop, messageBoxGuard};
    WindowsScreen screen{fonts};
    WindowsTextMeasure textMeasure{fonts};
    Platform services{.files = files,
                      .codePage = codePage,
                      .registry = registry,
                      .spooler = spooler,
                      .waitableHandles = waitableHandles,
                      .mutexes = mutexes,
                      .internet = internet,
                      .sockets = sockets,
                      .shell = shell,
                      .system = system,
                      .clock = clock,
                      .messageBoxes = messageBoxes,
                      .messageLoop = messageLoop,
                      .screen = screen,
                      .textMeasure = textMeasure};
};

WindowsPlatform::WindowsPlatform() : parts_(std::make_unique<Parts>()) {}

WindowsPlatform::~WindowsPlatform() = default;

Platform& WindowsPlatform::Services() {
    return parts_->services;
}

WindowsWorkers& WindowsPlatform::Workers() {
    return parts_->workers;
}

Fonts& WindowsPlatform::DialogFonts() {
    return parts_->fonts;
}

DialogWindows& WindowsPlatform::Dialogs() {
    return parts_->dialogs;
}

MessageBoxGuard& WindowsPlatform::BoxGuard() {
    return parts_->messageBoxGuard;
}

WindowsMessageLoop& WindowsPlatform::Loop() {
    return parts_->messageLoop;
}

}  // namespace korvanta

#pragma once

#include "fakes/FakeClock.h"
#include "fakes/FakeCodePage.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeInternet.h"
#include "fakes/FakeMessageBoxes.h"
#include "fakes/FakeMessageLoop.h"
#include "fakes/FakeMutexFactory.h"
#include "fakes/FakeRegistry.h"
#include "fakes/FakeScreen.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSockets.h"
#include "fakes/FakeSpooler.h"
#include "fakes/FakeSystem.h"
#include "fakes/FakeTextMeasure.h"
#include "fakes/FakeWaitableHandles.h"
#include "platform/Platform.h"

namespace korvanta::fakes {

// One fake of each kind, connected with each other, and the Platform over them.
struct FakePlatform {
    FakePlatform() = default;
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    FakeClock clock;
    FakeCodePage codePage;
    FakeFileSystem files{clock};
    FakeRegistry registry;
    FakeWaitableHandles waitableHandles;
    FakeSpooler spooler{waitableHandles};
    FakeMutexFactory mutexes;
    FakeInternet internet;
    FakeSockets sockets;
    FakeShell shell;
    FakeSystem system{clock};
    FakeMessageBoxes messageBoxes;
    FakeMessageLoop messageLoop;
    FakeScreen screen;
    FakeTextMeasure textMeasure;

    Platform platform{files, codePage, registry, spooler,      waitableHandles, mutexes, internet,   sockets,
                      shell, system,   clock,    messageBoxes, messageLoop,     screen,  textMeasure};

    Platform Make() { return platform; }
};

}  // namespace korvanta::fakes

#pragma once

#include "platform/Clock.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "platform/Internet.h"
#include "platform/MessageBoxes.h"
#include "platform/MessageLoop.h"
#include "platform/Mutex.h"
#include "platform/Registry.h"
#include "platform/Screen.h"
#include "platform/Shell.h"
#include "platform/Sockets.h"
#include "platform/Spooler.h"
#include "platform/System.h"
#include "platform/TextMeasure.h"
#include "platform/WaitableHandles.h"

namespace korvanta {

// Everything the program asks of the system it runs on. The services live longer than whoever holds this.
struct Platform {
    FileSystem& files;
    CodePage& codePage;
    Registry& registry;
    Spooler& spooler;
    WaitableHandles& waitableHandles;
    MutexFactory& mutexes;
    Internet& internet;
    Sockets& sockets;
    Shell& shell;
    System& system;
    Clock& clock;
    MessageBoxes& messageBoxes;
    MessageLoop& messageLoop;
    Screen& screen;
    TextMeasure& textMeasure;
};

}  // namespace korvanta

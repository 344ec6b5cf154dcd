#pragma once

#include <windows.h>

#include <cstdint>

#include "driver/Client.h"

namespace driver {

// What a client holds of the system at one moment. Wine's GetGuiResources, GetProcessHandleCount and (for
// another process) PrivateUsage are 0, so each figure comes from where it is true there; -1 when it cannot be had.
struct ProcessCounts {
    // Top-level windows, their descendants, and windows that only take messages.
    std::int64_t windows = -1;
    // Windows, menus, icons and cursors of all processes of the session: the system keeps one table of them.
    std::int64_t userObjects = -1;
    std::int64_t gdiObjects = -1;
    std::int64_t kernelHandles = -1;
    std::int64_t threads = -1;
    // Memory that no other process shares, resident or swapped out.
    std::int64_t privateBytes = -1;

    static ProcessCounts Of(const RunningClient& client);
};

}  // namespace driver

#include "StartCase.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "driver/Client.h"

namespace korvanta::bench {

namespace {

PROCESS_INFORMATION Start(const std::string& program) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    std::string line = '"' + program + '"';
    if (!CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        std::fprintf(stderr, "%s cannot be started.\n", program.c_str());
        std::exit(1);
    }
    CloseHandle(process.hThread);
    return process;
}

void WaitForIcon(bool icon) {
    const DWORD start = GetTickCount();
    while (driver::NotificationAreaHasIcon() != icon) {
        if (GetTickCount() - start > 30'000) {
            std::fprintf(stderr, "The client's icon did not %s.\n", icon ? "come" : "go");
            std::exit(1);
        }
        Sleep(1);
    }
}

}  // namespace

Case StartCase(const std::string& client, const std::string& empty, int rounds) {
    Case row;
    row.name = "start";
    row.count = 1;
    row.repeats = false;
    row.rounds = rounds;
    row.ours = [client] {
        CloseHandle(Start(client).hProcess);
        WaitForIcon(true);
    };
    row.bare = [empty] {
        const HANDLE process = Start(empty).hProcess;
        WaitForSingleObject(process, INFINITE);
        CloseHandle(process);
    };
    row.between = [] {
        driver::RunningClient running;
        if (running.Find()) {
            running.EndSession();
            running.WaitForEnd();
        }
        WaitForIcon(false);
    };
    return row;
}

}  // namespace korvanta::bench

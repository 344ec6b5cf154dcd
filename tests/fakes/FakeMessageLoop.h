#pragma once

#include <functional>

#include "platform/MessageLoop.h"

namespace korvanta::fakes {

// Calls the test's hooks. A hook may let messages run again; the test decides how deep.
class FakeMessageLoop : public MessageLoop {
  public:
    int pendingRuns = 0;  // calls of RunPending
    int oftenRuns = 0;    // calls of RunPendingOften
    int depth = 0;        // number of hooks that are running
    bool quit = false;
    // Called by RunPending, and by RunPendingOften if that has no hook of its own.
    std::function<void()> onRunPending;
    std::function<void()> onRunPendingOften;
    // Called by Run in a loop until Quit. Without it Run returns at once.
    std::function<void()> onRun;

    void RunPending() override {
        ++pendingRuns;
        Call(onRunPending);
    }
    void RunPendingOften() override {
        ++oftenRuns;
        Call(onRunPendingOften ? onRunPendingOften : onRunPending);
    }
    void Run() override {
        while (!quit && onRun) {
            Call(onRun);
        }
    }
    void Quit() override { quit = true; }

  private:
    void Call(std::function<void()> hook) {  // a copy, since a hook may replace itself
        if (hook) {
            ++depth;
            hook();
            --depth;
        }
    }
};

}  // namespace korvanta::fakes

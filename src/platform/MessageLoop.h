#pragma once

namespace korvanta {

// The message queue of the program's thread. Every call but Quit lets handlers run, which can re-enter the caller.
class MessageLoop {
  public:
    virtual ~MessageLoop() = default;
    // Handles the messages that are waiting, then returns.
    virtual void RunPending() = 0;
    // The same for tight loops: returns at once when messages ran within the last few milliseconds.
    virtual void RunPendingOften() = 0;
    // Runs until Quit; returns at once when Quit was called before.
    virtual void Run() = 0;
    virtual void Quit() = 0;
};

}  // namespace korvanta

#pragma once

namespace korvanta {

// The user-interface thread's message queue. Everything here lets handlers run: hold nothing half-made across it.
class MessageLoop {
  public:
    virtual ~MessageLoop() = default;
    // Handles what is waiting, then returns.
    virtual void RunPending() = 0;
    // The same for tight loops: free to return at once when it looked within the last few milliseconds.
    virtual void RunPendingOften() = 0;
    // Runs until Quit; returns at once when Quit was called before.
    virtual void Run() = 0;
    virtual void Quit() = 0;
};

}  // namespace korvanta

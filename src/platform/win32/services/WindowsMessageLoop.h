#pragma once

#include <cstdint>
#include <functional>

#include "platform/MessageLoop.h"

struct tagMSG;  // a message of the system

namespace korvanta {

class DialogWindows;

class WindowsMessageLoop : public MessageLoop {
  public:
    explicit WindowsMessageLoop(DialogWindows& dialogs) : dialogs_(dialogs) {}

    void RunPending() override;
    void RunPendingOften() override;
    void Run() override;
    void Quit() override;

    // A modal window's loop: waits for messages and handles them while `goOn` returns true and nobody has quit. It
    // calls `goOn` before each message and before each wait.
    void RunWhile(const std::function<bool()>& goOn);
    // Whether Quit has been called or Windows has ended the loop.
    bool Quitting() const { return quitting_; }

  private:
    // Handles one message that has been taken from the queue.
    void Take(tagMSG& message);

    DialogWindows& dialogs_;
    std::uint32_t lastLook_ = 0;
    bool looked_ = false;
    bool quitting_ = false;
};

}  // namespace korvanta

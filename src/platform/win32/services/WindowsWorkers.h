#pragma once

#include <memory>
#include <vector>

#include "platform/Workers.h"

namespace korvanta {

class WindowsMessageLoop;

// Threads of Windows. One that has done its work waits a while for the next. One that is stuck in a call of Windows
// ends with the process.
class WindowsWorkers : public Workers {
  public:
    explicit WindowsWorkers(WindowsMessageLoop& messages);
    WindowsWorkers(const WindowsWorkers&) = delete;
    WindowsWorkers& operator=(const WindowsWorkers&) = delete;
    // Those that wait for work end.
    ~WindowsWorkers() override;

    std::shared_ptr<Errand> Start(std::function<void()> work) override;
    std::uint32_t Milliseconds() override;
    bool Ending() override;

    // Whether a thread is at work. What it uses must stay until the process ends.
    bool Busy() const;

  private:
    class Thread;
    class WindowsErrand;

    WindowsMessageLoop& messages_;
    std::vector<std::shared_ptr<Thread>> threads_;
};

}  // namespace korvanta

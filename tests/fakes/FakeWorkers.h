#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <memory>

#include "fakes/FakeClock.h"
#include "fakes/FakeMessageLoop.h"
#include "platform/Workers.h"

namespace korvanta::fakes {

// Another thread that isn't one: work is done within Start, or, when `hangs` says so, not before the test (or time)
// lets it. Waiting for it lets the clock run in steps and calls the message loop's hook at each.
class FakeWorkers : public Workers {
  public:
    FakeWorkers(FakeClock& clock, FakeMessageLoop& messages) : clock_(clock), messages_(messages) {}

    // How long the work that is started now keeps the thread, in milliseconds; 0 is at once, forever never ends.
    static constexpr std::uint32_t forever = 0xFFFFFFFF;
    std::function<std::uint32_t()> hangs;
    bool noThreads = false;
    bool ending = false;
    // Milliseconds that pass between two looks at the messages.
    std::uint32_t step = 100;
    int started = 0;

    // Work that has not been done yet.
    std::size_t Waiting() const { return waiting_.size(); }
    // Does what is waiting, whatever time it wanted.
    void LetGo();

    std::shared_ptr<Errand> Start(std::function<void()> work) override;
    std::uint32_t Milliseconds() override { return static_cast<std::uint32_t>(clock_.now.milliseconds); }
    bool Ending() override { return ending; }

  private:
    class Work;

    void DoWhatIsDue();

    FakeClock& clock_;
    FakeMessageLoop& messages_;
    std::list<std::shared_ptr<Work>> waiting_;
};

}  // namespace korvanta::fakes

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/Workers.h"

namespace korvanta {

// What becomes of a call that its server keeps waiting.
enum class Patience {
    Limited,  // given up after a while: reading and testing
    Endless,  // waited for as long as Windows waits: what is written must not count as failed and come all the same
};

// The calls to one server, one at a time. While the program's thread waits for an answer its messages run, so a lane
// may be asked again before it has answered: `Run` is re-entrant.
//
// A call with limited patience is given up after 5 s. As long as it is stuck in Windows, further ones are not even
// begun. After that the next one is given 1 s, until an answer has taken less than 5 s again: a server that hangs
// for good then costs a poll of all servers little.
class Lane {
  public:
    static constexpr std::uint32_t patience = 5'000;         // milliseconds
    static constexpr std::uint32_t patienceInDoubt = 1'000;  // milliseconds

    explicit Lane(Workers& workers) : workers_(workers) {}
    Lane(const Lane&) = delete;
    Lane& operator=(const Lane&) = delete;

    // True when the work is done. False when it was given up, and goes on without us, or was never begun. Work with
    // endless patience is given up at the end of the program alone, and does not wait for calls that are stuck. Where
    // there is no thread for it the work is done by the caller's.
    bool Run(std::function<void()> work, Patience howLong);
    // Has the work done, and waits for nothing.
    void Leave(std::function<void()> work);

    // Whether a call with limited patience would be given up at once.
    bool Stuck();
    // Whether calls are under way.
    bool Busy();
    // Whether nothing is lost when the lane is forgotten.
    bool AtRest() { return !Busy() && !inDoubt_; }

  private:
    struct Call {
        std::shared_ptr<Errand> errand;
        std::uint32_t begun = 0;  // milliseconds, as Workers count them
        // Likewise; for reading when the errand is done.
        std::shared_ptr<std::uint32_t> ended = std::make_shared<std::uint32_t>(0);
    };

    // None where there was no thread: the work is done.
    std::shared_ptr<Errand> Begin(std::function<void()> work);
    // Waits for what was begun before, unless it is stuck.
    void WaitForOthers();
    void DropEnded();
    std::uint32_t Limit() const { return inDoubt_ ? patienceInDoubt : patience; }

    Workers& workers_;
    std::vector<Call> calls_;  // that may still run, oldest first
    bool inDoubt_ = false;     // since a call was given up no answer has come in time
};

}  // namespace korvanta

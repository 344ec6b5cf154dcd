#pragma once

#include <deque>
#include <functional>
#include <set>

#include "fakes/FaultPlan.h"
#include "platform/WaitableHandles.h"

namespace korvanta::fakes {

// As the system: more than 64 handles, none at all, or one that is 0, -1 or invalid is a failure; of several signalled
// handles the first in the list is told.
class FakeWaitableHandles : public WaitableHandles {
  public:
    static constexpr std::uint32_t timedOut = 258;
    static constexpr std::uint32_t failed = 0xFFFFFFFF;

    void Signal(ChangeHandle handle) { signalled.insert(handle); }
    void Reset(ChangeHandle handle) { signalled.erase(handle); }

    FaultPlan faults;  // "PollAny"
    std::set<ChangeHandle> signalled;
    std::set<ChangeHandle> invalid;
    // Results of the next polls, in this order, whatever is signalled.
    std::deque<std::uint32_t> scriptedResults;
    // Called at the start of each poll.
    std::function<void()> onPoll;
    std::vector<std::vector<ChangeHandle>> polls;

    std::uint32_t PollAny(const std::vector<ChangeHandle>& handles) override {
        polls.push_back(handles);
        if (onPoll) {
            onPoll();
        }
        if (!scriptedResults.empty()) {
            const std::uint32_t result = scriptedResults.front();
            scriptedResults.pop_front();
            return result;
        }
        if (faults.Check("PollAny") != 0 || handles.empty() || handles.size() > 64) {
            return failed;
        }
        for (const ChangeHandle handle : handles) {
            if (handle == 0 || handle == -1 || invalid.contains(handle)) {
                return failed;
            }
        }
        for (std::size_t i = 0; i < handles.size(); ++i) {
            if (signalled.contains(handles[i])) {
                return static_cast<std::uint32_t>(i);
            }
        }
        return timedOut;
    }
};

}  // namespace korvanta::fakes

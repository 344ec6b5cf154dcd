#include "fakes/FakeWorkers.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace korvanta::fakes {

class FakeWorkers::Work : public Errand {
  public:
    Work(FakeWorkers& workers, std::function<void()> work) : workers_(workers), work_(std::move(work)) {}

    bool Done() const override { return !work_; }
    bool Wait(std::uint32_t milliseconds) override {
        const std::uint32_t began = workers_.Milliseconds();
        for (;;) {
            const std::uint32_t waited = workers_.Milliseconds() - began;
            if (Done() || waited >= milliseconds || workers_.ending) {
                break;
            }
            workers_.clock_.AdvanceMilliseconds(std::min(workers_.step, milliseconds - waited));
            workers_.DoWhatIsDue();
            workers_.messages_.RunPending();
        }
        return Done();
    }
    void Do() {
        // As with a thread, the work is gone before anybody learns that it is done.
        std::exchange(work_, {})();
    }

    std::uint32_t due = 0;
    bool never = false;

  private:
    FakeWorkers& workers_;
    std::function<void()> work_;
};

std::shared_ptr<Errand> FakeWorkers::Start(std::function<void()> work) {
    if (noThreads) {
        return nullptr;
    }
    ++started;
    auto begun = std::make_shared<Work>(*this, std::move(work));
    const std::uint32_t time = hangs ? hangs() : 0;
    if (time == 0) {
        begun->Do();
    } else {
        begun->never = time == forever;
        begun->due = Milliseconds() + time;
        waiting_.push_back(begun);
    }
    return begun;
}

void FakeWorkers::DoWhatIsDue() {
    std::vector<std::shared_ptr<Work>> due;
    for (const std::shared_ptr<Work>& work : waiting_) {
        if (!work->never && static_cast<std::int32_t>(Milliseconds() - work->due) >= 0) {
            due.push_back(work);
        }
    }
    for (const std::shared_ptr<Work>& work : due) {
        waiting_.remove(work);
        work->Do();
    }
}

void FakeWorkers::LetGo() {
    while (!waiting_.empty()) {
        const std::shared_ptr<Work> work = waiting_.front();
        waiting_.pop_front();
        work->Do();
    }
}

}  // namespace korvanta::fakes

#include "platform/win32/services/WindowsWorkers.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <utility>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/services/WindowsMessageLoop.h"

namespace korvanta {

namespace {

// An answer that comes so soon is waited for without letting messages run; nobody notices.
constexpr DWORD moment = 30;  // milliseconds
// While messages are let run, at most so long until the next look at them, whatever Windows says of new ones.
constexpr DWORD longestPause = 50;  // milliseconds
// A thread that has had no work for so long ends.
constexpr DWORD idleTime = 20'000;  // milliseconds

}  // namespace

// A thread with the work that it was given. Both sides hold it: what is stuck in Windows outlives whoever asked.
class WindowsWorkers::Thread {
  public:
    enum State : int { idle, busy, ended };

    static std::shared_ptr<Thread> Make() {
        auto made = std::make_shared<Thread>();
        auto own = std::make_unique<std::shared_ptr<Thread>>(made);
        DWORD identifier = 0;  // Windows 9x wants to tell it
        const KernelHandle thread(made->asked_ && made->answered_
                                      ? ::CreateThread(nullptr, 0, &Thread::Procedure, own.get(), 0, &identifier)
                                      : nullptr);
        if (!thread) {
            return nullptr;
        }
        static_cast<void>(own.release());  // the thread's own now
        return made;
    }

    // False for a thread that is busy or has ended; `work` is then as it was.
    bool Take(std::function<void()>& work) {
        int expected = idle;
        if (!state_.compare_exchange_strong(expected, busy)) {
            return false;
        }
        work_ = std::move(work);
        ++begun_;
        ::ResetEvent(answered_.Get());
        ::SetEvent(asked_.Get());
        return true;
    }
    // Ends the thread when it has nothing to do.
    void Dismiss() {
        int expected = idle;
        if (state_.compare_exchange_strong(expected, ended)) {
            ::SetEvent(asked_.Get());
        }
    }

    bool Busy() const { return state_ == busy; }
    // The number of the work that was taken last.
    unsigned Begun() const { return begun_; }
    bool Done(unsigned work) const { return static_cast<int>(done_.load() - work) >= 0; }
    // Signalled when the last work is done; perhaps also when only the one before is.
    HANDLE Answered() const { return answered_.Get(); }
    bool Ended() const { return state_ == ended; }

  private:
    static DWORD WINAPI Procedure(void* parameter) {
        const std::unique_ptr<std::shared_ptr<Thread>> own(static_cast<std::shared_ptr<Thread>*>(parameter));
        (*own)->Serve();
        return 0;
    }
    void Serve() {
        for (;;) {
            const DWORD woken = ::WaitForSingleObject(asked_.Get(), idleTime);
            int expected = idle;
            if (woken != WAIT_OBJECT_0 && state_.compare_exchange_strong(expected, ended)) {
                return;
            }
            if (state_ == ended) {
                return;
            }
            if (woken != WAIT_OBJECT_0) {
                continue;  // work is on its way
            }
            std::exchange(work_, nullptr)();
            ++done_;
            state_ = idle;
            ::SetEvent(answered_.Get());
        }
    }

    KernelHandle asked_{::CreateEventA(nullptr, FALSE, FALSE, nullptr)};
    KernelHandle answered_{::CreateEventA(nullptr, TRUE, FALSE, nullptr)};
    std::function<void()> work_;
    unsigned begun_ = 0;
    std::atomic<unsigned> done_ = 0;
    std::atomic<int> state_ = idle;
};

class WindowsWorkers::WindowsErrand : public Errand {
  public:
    WindowsErrand(WindowsMessageLoop& messages, std::shared_ptr<Thread> thread)
        : messages_(messages), thread_(std::move(thread)), work_(thread_->Begun()) {}

    bool Done() const override { return thread_->Done(work_); }
    bool Wait(std::uint32_t milliseconds) override {
        const DWORD began = ::GetTickCount();
        const HANDLE answered = thread_->Answered();
        if (!Done() && !messages_.Quitting()) {
            ::WaitForSingleObject(answered, std::min<DWORD>(moment, milliseconds));
        }
        while (!Done() && !messages_.Quitting()) {
            const DWORD waited = ::GetTickCount() - began;
            if (waited >= milliseconds) {
                break;
            }
            messages_.RunPending();
            if (!Done() && !messages_.Quitting()) {
                const DWORD pause = std::min<DWORD>(longestPause, milliseconds - waited);
                if (::MsgWaitForMultipleObjects(1, &answered, FALSE, pause, QS_ALLINPUT) == WAIT_OBJECT_0) {
                    // The signal may be that of the work before: its thread is free before it tells.
                    ::ResetEvent(answered);
                }
            }
        }
        return Done();
    }

  private:
    WindowsMessageLoop& messages_;
    const std::shared_ptr<Thread> thread_;
    const unsigned work_;
};

WindowsWorkers::WindowsWorkers(WindowsMessageLoop& messages) : messages_(messages) {}

WindowsWorkers::~WindowsWorkers() {
    for (const std::shared_ptr<Thread>& thread : threads_) {
        thread->Dismiss();
    }
}

std::shared_ptr<Errand> WindowsWorkers::Start(std::function<void()> work) {
    std::erase_if(threads_, [](const std::shared_ptr<Thread>& thread) { return thread->Ended(); });
    for (const std::shared_ptr<Thread>& thread : threads_) {
        if (thread->Take(work)) {
            return std::make_shared<WindowsErrand>(messages_, thread);
        }
    }
    threads_.reserve(threads_.size() + 1);
    const std::shared_ptr<Thread> fresh = Thread::Make();
    if (fresh == nullptr) {
        return nullptr;
    }
    threads_.push_back(fresh);
    static_cast<void>(fresh->Take(work));
    return std::make_shared<WindowsErrand>(messages_, fresh);
}

bool WindowsWorkers::Busy() const {
    return std::any_of(threads_.begin(), threads_.end(),
                       [](const std::shared_ptr<Thread>& thread) { return thread->Busy(); });
}

std::uint32_t WindowsWorkers::Milliseconds() {
    return ::GetTickCount();
}

bool WindowsWorkers::Ending() {
    return messages_.Quitting();
}

}  // namespace korvanta

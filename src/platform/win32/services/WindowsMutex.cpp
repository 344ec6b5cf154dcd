#include "platform/win32/services/WindowsMutex.h"

#include <windows.h>

#include <atomic>

#include "platform/win32/calls/Handles.h"

namespace korvanta {

namespace {

// The thread that makes the mutex never releases its first acquisition, so no other thread can ever acquire it. Another
// thread can only wait until its time is over. For that an event which is never signalled is enough, and it is made
// when such a thread comes: a million mutexes need neither a million handles nor the time to make them.
class OwnedMutex : public Mutex {
  public:
    ~OwnedMutex() override { const KernelHandle closed(neverSignalled_.load()); }

    WaitResult Wait(std::uint32_t milliseconds) override {
        if (::GetCurrentThreadId() == owner_) {
            ++acquisitions_;
            return WaitResult::Acquired;
        }
        const HANDLE object = NeverSignalled();
        return object && ::WaitForSingleObject(object, milliseconds) == WAIT_TIMEOUT ? WaitResult::TimedOut
                                                                                     : WaitResult::Failed;
    }

    bool Release(std::uint32_t& errorCode) override {
        if (::GetCurrentThreadId() != owner_ || acquisitions_ == 0) {
            errorCode = ERROR_NOT_OWNER;
            return false;
        }
        --acquisitions_;
        return true;
    }

  private:
    HANDLE NeverSignalled() {
        HANDLE current = neverSignalled_;
        if (!current) {
            KernelHandle made(::CreateEventA(nullptr, TRUE, FALSE, nullptr));
            // When another thread has been faster, its event is `current` now, and this one is closed again.
            if (made && neverSignalled_.compare_exchange_strong(current, made.Get())) {
                current = made.Release();
            }
        }
        return current;
    }

    const DWORD owner_ = ::GetCurrentThreadId();
    std::uint32_t acquisitions_ = 0;  // beyond the first one
    std::atomic<HANDLE> neverSignalled_ = nullptr;
};

}  // namespace

std::unique_ptr<Mutex> WindowsMutexFactory::CreateOwned(std::uint32_t& errorCode) {
    errorCode = ERROR_SUCCESS;
    return std::make_unique<OwnedMutex>();
}

}  // namespace korvanta

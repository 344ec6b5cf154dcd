#pragma once

#include <deque>
#include <memory>
#include <vector>

#include "fakes/FaultPlan.h"
#include "platform/Mutex.h"

namespace korvanta::fakes {

// Every wait succeeds unless its result is scripted. Faults: "CreateOwned" and "Release", which return the error code,
// and "Wait".
class FakeMutexFactory : public MutexFactory {
  public:
    struct State {
        FaultPlan faults;
        std::deque<WaitResult> waitResults;  // used first, in this order
        std::uint32_t lastTimeout = 0;
        int created = 0;
        int alive = 0;
        int waits = 0;
        int releases = 0;  // including failed ones
        int held = 0;      // acquisitions not released yet, except the first one by the owner
    };

    FakeMutexFactory() : FakeMutexFactory(std::make_shared<State>()) {}

    State& state;
    FaultPlan& faults;

    std::unique_ptr<Mutex> CreateOwned(std::uint32_t& errorCode) override {
        errorCode = state_->faults.Check("CreateOwned");
        return errorCode != 0 ? nullptr : std::make_unique<FakeMutex>(state_);
    }

  private:
    class FakeMutex : public Mutex {
      public:
        explicit FakeMutex(std::shared_ptr<State> state) : mutexState_(std::move(state)) {
            ++mutexState_->created;
            ++mutexState_->alive;
        }
        ~FakeMutex() override { --mutexState_->alive; }
        WaitResult Wait(std::uint32_t milliseconds) override {
            ++mutexState_->waits;
            mutexState_->lastTimeout = milliseconds;
            WaitResult result = WaitResult::Acquired;
            if (mutexState_->faults.Check("Wait") != 0) {
                result = WaitResult::Failed;
            } else if (!mutexState_->waitResults.empty()) {
                result = mutexState_->waitResults.front();
                mutexState_->waitResults.pop_front();
            }
            mutexState_->held += result == WaitResult::Acquired ? 1 : 0;
            return result;
        }
        bool Release(std::uint32_t& errorCode) override {
            ++mutexState_->releases;
            --mutexState_->held;
            errorCode = mutexState_->faults.Check("Release");
            return errorCode == 0;
        }

      private:
        std::shared_ptr<State> mutexState_;
    };

    explicit FakeMutexFactory(const std::shared_ptr<State>& shared)
        : state(*shared), faults(shared->faults), state_(shared) {}

    std::shared_ptr<State> state_;  // shared, because mutexes may outlive the factory
};

}  // namespace korvanta::fakes

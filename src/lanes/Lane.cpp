#include "lanes/Lane.h"

#include <utility>

namespace korvanta {

namespace {

constexpr std::uint32_t longWait = 60'000;  // milliseconds

}  // namespace

bool Lane::Run(std::function<void()> work, Patience howLong) {
    WaitForOthers();
    if (workers_.Ending() || (howLong == Patience::Limited && Stuck())) {
        return false;
    }
    const std::shared_ptr<Errand> errand = Begin(std::move(work));
    if (errand == nullptr) {
        return true;
    }
    if (howLong == Patience::Endless) {
        while (!errand->Wait(longWait) && !workers_.Ending()) {
        }
    } else if (!errand->Wait(Limit()) && !workers_.Ending()) {
        inDoubt_ = true;
    }
    DropEnded();
    return errand->Done();
}

void Lane::Leave(std::function<void()> work) {
    static_cast<void>(Begin(std::move(work)));
}

std::shared_ptr<Errand> Lane::Begin(std::function<void()> work) {
    Call call;
    call.begun = workers_.Milliseconds();
    // Before the work begins: what needs memory may fail only while nothing is under way.
    calls_.reserve(calls_.size() + 1);
    // Shared, so that what the work holds ends on the thread that does it, before anybody is told that it is done.
    const auto held = std::make_shared<std::function<void()>>(std::move(work));
    call.errand = workers_.Start([&workers = workers_, ended = call.ended, held] {
        (*held)();
        *held = nullptr;
        *ended = workers.Milliseconds();
    });
    if (call.errand == nullptr) {
        (*held)();
        return nullptr;
    }
    calls_.push_back(call);
    return calls_.back().errand;
}

void Lane::WaitForOthers() {
    DropEnded();
    while (!calls_.empty() && !Stuck() && !workers_.Ending()) {
        // A copy: while messages run the list may change.
        const std::shared_ptr<Errand> oldest = calls_.front().errand;
        const std::uint32_t waited = workers_.Milliseconds() - calls_.front().begun;
        static_cast<void>(oldest->Wait(waited < Limit() ? Limit() - waited : 0));
        DropEnded();
    }
}

bool Lane::Stuck() {
    DropEnded();
    return !calls_.empty() && workers_.Milliseconds() - calls_.front().begun >= Limit();
}

bool Lane::Busy() {
    DropEnded();
    return !calls_.empty();
}

void Lane::DropEnded() {
    std::erase_if(calls_, [this](const Call& call) {
        if (!call.errand->Done()) {
            return false;
        }
        if (*call.ended - call.begun < patience) {
            inDoubt_ = false;
        }
        return true;
    });
}

}  // namespace korvanta

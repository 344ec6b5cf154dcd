#include "detection/OneAtATime.h"

#include <utility>

namespace korvanta {

OneAtATime::OneAtATime(std::function<void()> rebuild) : rebuild_(std::move(rebuild)) {}

void OneAtATime::Run(const std::function<void()>& operation) {
    const ReentryFlag::Scope running(running_);
    if (!running.Entered()) {
        return;
    }
    operation();
    while (rebuildWaits_) {
        rebuildWaits_ = false;
        rebuild_();
    }
}

void OneAtATime::Rebuild() {
    if (running_.IsSet()) {
        rebuildWaits_ = true;
        return;
    }
    Run(rebuild_);
}

}  // namespace korvanta

#pragma once

#include <functional>

#include "controls/ReentryFlag.h"

namespace korvanta {

// Keeps a detector's operations apart, although one that lets messages run is re-entrant. Inside an operation a further
// search is ignored, since the one that is running finds the same jobs; a rebuild is deferred until it ends.
class OneAtATime {
  public:
    explicit OneAtATime(std::function<void()> rebuild);
    OneAtATime(const OneAtATime&) = delete;
    OneAtATime& operator=(const OneAtATime&) = delete;

    // True while a deferred rebuild waits: the running operation works on stale data and should stop.
    bool RebuildWaits() const { return rebuildWaits_; }

    // Runs the operation and then the rebuild that was asked for inside it; does nothing inside another operation.
    // What the operation raises leaves here, and the rebuild then follows the next operation.
    void Run(const std::function<void()>& operation);
    // Runs the rebuild, or defers it inside an operation.
    void Rebuild();

  private:
    const std::function<void()> rebuild_;
    ReentryFlag running_;
    bool rebuildWaits_ = false;
};

}  // namespace korvanta

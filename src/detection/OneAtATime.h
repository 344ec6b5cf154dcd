#pragma once

#include <functional>

namespace korvanta {

// Keeps a detector's operations apart, although messages that run during one may call for the next. What arrives
// meanwhile is not nested into the operation under way: a search is left to it, a rebuild waits for its end.
class OneAtATime {
  public:
    explicit OneAtATime(std::function<void()> rebuild);
    OneAtATime(const OneAtATime&) = delete;
    OneAtATime& operator=(const OneAtATime&) = delete;

    // Whether the operation under way has better end soon, what it works with being out of date.
    bool RebuildWaits() const { return rebuildWaits_; }

    // Runs the operation and then the rebuild that was asked for meanwhile; does nothing while one is under way. What
    // the operation raises leaves here, and the rebuild then waits for the next operation's end.
    void Run(const std::function<void()>& operation);
    // Runs the rebuild, now or at the end of the operation under way.
    void Rebuild();

  private:
    const std::function<void()> rebuild_;
    bool busy_ = false;
    bool rebuildWaits_ = false;
};

}  // namespace korvanta

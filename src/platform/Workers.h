#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace korvanta {

// Work that was given to another thread.
class Errand {
  public:
    virtual ~Errand() = default;
    virtual bool Done() const = 0;
    // Waits until the work is done, so many milliseconds are over, or the program ends; true when it is done. Lets
    // messages run unless the work is done within a moment.
    virtual bool Wait(std::uint32_t milliseconds) = 0;
};

// Threads for calls that may take long. Called by the program's thread alone.
class Workers {
  public:
    virtual ~Workers() = default;
    // Has another thread run the work, which must not raise; it is destroyed there too. None where no thread is to be
    // had, and the work was not begun. An errand may be let go of before its work is done.
    virtual std::shared_ptr<Errand> Start(std::function<void()> work) = 0;
    // Milliseconds since some point in the past. Starts again at 0 after 49.7 days, never jumps otherwise. Any thread
    // may ask.
    virtual std::uint32_t Milliseconds() = 0;
    // Whether the program has been told to end.
    virtual bool Ending() = 0;
};

}  // namespace korvanta

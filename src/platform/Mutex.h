#pragma once

#include <cstdint>
#include <memory>

namespace korvanta {

enum class WaitResult { Acquired, TimedOut, Failed };

class Mutex {
  public:
    virtual ~Mutex() = default;
    // Waits at most so many milliseconds. The owning thread acquires at once, without asking the system.
    virtual WaitResult Wait(std::uint32_t milliseconds) = 0;
    // Gives back one acquisition. False: the system refused; `errorCode` has its number.
    virtual bool Release(std::uint32_t& errorCode) = 0;
};

class MutexFactory {
  public:
    virtual ~MutexFactory() = default;
    // An unnamed mutex that the calling thread owns from the start. None on failure, with the system's error number.
    virtual std::unique_ptr<Mutex> CreateOwned(std::uint32_t& errorCode) = 0;
};

}  // namespace korvanta

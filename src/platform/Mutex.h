#pragma once

#include <cstdint>
#include <memory>

namespace korvanta {

enum class WaitResult { Acquired, TimedOut, Failed };

class Mutex {
  public:
    virtual ~Mutex() = default;
    // Waits at most so many milliseconds. The thread that owns the mutex acquires it at once.
    virtual WaitResult Wait(std::uint32_t milliseconds) = 0;
    // Gives back one acquisition. False on failure, with the system's number in `errorCode`.
    virtual bool Release(std::uint32_t& errorCode) = 0;
};

class MutexFactory {
  public:
    virtual ~MutexFactory() = default;
    // An unnamed mutex that the calling thread owns from the start. Null on failure, with the system's number in
    // `errorCode`.
    virtual std::unique_ptr<Mutex> CreateOwned(std::uint32_t& errorCode) = 0;
};

}  // namespace korvanta

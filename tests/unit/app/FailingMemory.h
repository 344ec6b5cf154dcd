#pragma once

namespace korvanta::fakes {

// While it lives, the nth allocation of this program from now on fails, and all others succeed.
class FailingMemory {
  public:
    explicit FailingMemory(int nth);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    // Whether so many allocations were asked for.
    static bool Failed();
};

}  // namespace korvanta::fakes

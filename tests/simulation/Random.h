#pragma once

#include <cstddef>
#include <cstdint>

namespace korvanta::simulation {

// The same numbers for the same seed, whatever the compiler and its library.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U + 0x1234567U) {}

    std::uint64_t Next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }
    // From low to high, both included.
    int Between(int low, int high) {
        return low + static_cast<int>(Next() % static_cast<std::uint64_t>(high - low + 1));
    }
    // True so many times in 10,000.
    bool Chance(int ofTenThousand) { return Between(1, 10'000) <= ofTenThousand; }

  private:
    std::uint64_t state_;
};

}  // namespace korvanta::simulation

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "server/search/Marks.h"

namespace korvanta {

// A sequence of bytes to search for, sixteen bytes at once where the processor can compare so many.
class BytePattern {
  public:
    // An empty sequence is found nowhere.
    explicit BytePattern(std::vector<std::uint8_t> bytes, bool sixteenAtOnce = CanCompareSixteen());

    // Marks exactly the places where the sequence begins between `from` and `end`, counted from `from`.
    void Mark(const std::uint8_t* from, const std::uint8_t* end, Marks& marks) const;

    static bool CanCompareSixteen();

  private:
    std::size_t MarkBySixteens(const std::uint8_t* text, std::size_t places, Marks& marks) const;
    void MarkBySkips(const std::uint8_t* text, std::size_t place, std::size_t places, Marks& marks) const;

    std::vector<std::uint8_t> bytes_;
    bool sixteenAtOnce_;
    // A Horspool skip table: by the byte found where the sequence would end, how many places the search may move on. 0
    // for the sequence's last byte: that place is compared, and then the search moves on by skipAfterLast_.
    std::array<std::uint8_t, 256> skips_{};
    std::size_t skipAfterLast_ = 1;
};

}  // namespace korvanta

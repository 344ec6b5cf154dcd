#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "server/search/Marks.h"

namespace korvanta {

// Bytes to be found among many others. Processors that compare sixteen bytes at once do so.
class BytePattern {
  public:
    // No bytes at all are found nowhere.
    explicit BytePattern(std::vector<std::uint8_t> bytes, bool sixteenAtOnce = CanCompareSixteen());

    // Marks each place between `from` and `end` where the bytes begin, counted from `from`, and no other.
    void Mark(const std::uint8_t* from, const std::uint8_t* end, Marks& marks) const;

    static bool CanCompareSixteen();

  private:
    std::size_t MarkBySixteens(const std::uint8_t* text, std::size_t places, Marks& marks) const;
    void MarkBySkips(const std::uint8_t* text, std::size_t place, std::size_t places, Marks& marks) const;

    std::vector<std::uint8_t> bytes_;
    bool sixteenAtOnce_;
    // How far a byte where the pattern's last one should be lets the search go on; 0 when it is the last one.
    std::array<std::uint8_t, 256> skips_{};
    std::size_t skipAfterLast_ = 1;  // when the last byte was right
};

}  // namespace korvanta

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvanta {

// Bytes to be found among many others. Processors that compare sixteen bytes at once do so.
class BytePattern {
  public:
    // No bytes at all are found everywhere.
    explicit BytePattern(std::vector<std::uint8_t> bytes, bool sixteenAtOnce = CanCompareSixteen());

    // Where the bytes first stand between `from` and `end`; none when they do not.
    const std::uint8_t* Find(const std::uint8_t* from, const std::uint8_t* end) const {
        return sixteenAtOnce_ ? FindBySixteens(from, end) : FindBySkips(from, end);
    }

    static bool CanCompareSixteen();

  private:
    const std::uint8_t* FindBySixteens(const std::uint8_t* from, const std::uint8_t* end) const;
    const std::uint8_t* FindBySkips(const std::uint8_t* from, const std::uint8_t* end) const;

    std::vector<std::uint8_t> bytes_;
    bool sixteenAtOnce_;
    // How far a byte where the pattern's last one should be lets the search go on; 0 when it is the last one.
    std::array<std::uint8_t, 256> skips_{};
    std::size_t skipAfterLast_ = 1;  // when the last byte was right and another was not
};

}  // namespace korvanta

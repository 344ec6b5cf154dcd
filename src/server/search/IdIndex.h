#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace korvanta {

// The ids of accounts, which are numbered from 0, and for each id its last account.
class IdIndex {
  public:
    // The id of the next account.
    void Add(std::int32_t id);
    std::int32_t Id(std::size_t account) const { return ids_[account]; }
    // The number of the last account with that id.
    std::optional<std::size_t> Find(std::int32_t id) const;
    std::size_t DifferentIds() const { return differentIds_; }

  private:
    std::size_t SlotOf(std::int32_t id) const;
    void GrowSlots();

    std::vector<std::int32_t> ids_;
    // A hash table with open addressing and linear probing: account numbers plus 1; 0 is empty.
    std::vector<std::uint32_t> slots_;
    unsigned hashShift_ = 32;
    std::size_t differentIds_ = 0;
};

}  // namespace korvanta

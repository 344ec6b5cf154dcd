#include "server/search/IdIndex.h"

#include <utility>

namespace korvanta {

namespace {

constexpr unsigned firstSlotBits = 8;

}  // namespace

void IdIndex::Add(std::int32_t id) {
    if (differentIds_ >= slots_.size() / 4 * 3) {
        GrowSlots();
    }
    ids_.push_back(id);
    std::uint32_t& slot = slots_[SlotOf(id)];
    differentIds_ += slot == 0 ? 1 : 0;
    slot = static_cast<std::uint32_t>(ids_.size());
}

std::optional<std::size_t> IdIndex::Find(std::int32_t id) const {
    if (slots_.empty()) {
        return std::nullopt;
    }
    const std::uint32_t slot = slots_[SlotOf(id)];
    return slot == 0 ? std::nullopt : std::optional<std::size_t>(slot - 1);
}

void IdIndex::GrowSlots() {
    const unsigned shift = slots_.empty() ? 32 - firstSlotBits : hashShift_ - 1;
    const std::vector<std::uint32_t> old =
        std::exchange(slots_, std::vector<std::uint32_t>(std::size_t{1} << (32 - shift), 0));
    hashShift_ = shift;
    for (const std::uint32_t number : old) {
        if (number != 0) {
            slots_[SlotOf(ids_[number - 1])] = number;
        }
    }
}

// The slot that holds the id, or the empty one where it belongs.
std::size_t IdIndex::SlotOf(std::int32_t id) const {
    constexpr std::uint32_t spread = 2'654'435'769U;
    std::size_t slot = (static_cast<std::uint32_t>(id) * spread) >> hashShift_;
    while (slots_[slot] != 0 && ids_[slots_[slot] - 1] != id) {
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return slot;
}

}  // namespace korvanta

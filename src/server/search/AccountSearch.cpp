#include "server/search/AccountSearch.h"

#include <algorithm>
#include <numeric>

#include "common/Text.h"

namespace korvanta {

AccountSearch::AccountSearch(std::shared_ptr<const AccountTable> table, std::u16string_view text)
    : table_(std::move(table)),
      lower_(Lower(text)),
      folded_(TitleIndex::Folded(lower_)),
      foldedSuffices_(std::all_of(lower_.begin(), lower_.end(),
                                  [](char16_t unit) { return TitleIndex::IsAscii(unit) && unit != fieldSeparator; })) {}

std::span<const std::uint32_t> AccountSearch::Shown(std::size_t group) {
    const std::size_t first = table_->GroupStart(group);
    const std::size_t end = table_->GroupStart(group + 1);
    if (lower_.empty()) {
        return ShowAll(first, end);
    }
    LookAt(first);
    if (!hits_.Any() && end <= endAccount_) {
        return {};
    }
    std::uint32_t* const shown = RoomFor(end - first);
    shown[0] = static_cast<std::uint32_t>(first);
    std::size_t count = 1;
    const bool all = IsHit(first);
    bool found = all;
    // Without a branch, since a processor cannot predict which sub-accounts have a hit.
    for (std::size_t account = first + 1; account < end; ++account) {
        LookAt(account);
        bool hit = IsHit(account);
        if (Titles().HasOwnMainTitle(account)) {
            found |= hit;
            hit = hit && HasHitInSubTitle(account);
        }
        shown[count] = static_cast<std::uint32_t>(account);
        count += (hit | all) ? 1 : 0;
    }
    return {shown, found || count > 1 ? count : 0};
}

std::span<const std::uint32_t> AccountSearch::ShowAll(std::size_t first, std::size_t end) {
    std::uint32_t* const shown = RoomFor(end - first);
    std::iota(shown, shown + (end - first), static_cast<std::uint32_t>(first));
    return {shown, end - first};
}

// With one spare slot, since Shown writes each candidate before it is known whether it stays.
std::uint32_t* AccountSearch::RoomFor(std::size_t accounts) {
    if (shown_.size() <= accounts) {
        shown_.resize(accounts + 1);
    }
    return shown_.data();
}

// Searches the account's block, unless it was the last one that was searched.
inline void AccountSearch::LookAt(std::size_t account) {
    if (account < firstAccount_ || account >= endAccount_) {
        MarkBlockOf(account);
    }
}

void AccountSearch::MarkBlockOf(std::size_t account) {
    const std::vector<TitleIndex::Block>& blocks = Titles().Blocks();
    if (account < firstAccount_) {
        block_ = 0;
    }
    while (block_ + 1 < blocks.size() && blocks[block_ + 1].firstAccount <= account) {
        ++block_;
    }
    const TitleIndex::Block& block = blocks[block_];
    firstAccount_ = block.firstAccount;
    endAccount_ = block_ + 1 < blocks.size() ? blocks[block_ + 1].firstAccount : table_->Count();
    folded_.Mark(block.folded.get(), block.folded.get() + block.used, hits_);
    if (!foldedSuffices_ && hits_.Any()) {
        hits_.KeepIf([&](std::size_t place) {
            return std::equal(lower_.begin(), lower_.end(), block.units.get() + place,
                              [](char16_t wanted, char16_t unit) {
                                  return unit != fieldSeparator && (unit == wanted || LowerUnit(unit) == wanted);
                              });
        });
    }
}

inline std::size_t AccountSearch::TitlesEnd(std::size_t account) const {
    return account + 1 < endAccount_ ? Titles().Offset(account + 1) : Titles().Blocks()[block_].used;
}

// In a title of its own; a main title that it shares is the main account's.
inline bool AccountSearch::IsHit(std::size_t account) const {
    return hits_.Any(Titles().Offset(account), TitlesEnd(account));
}

bool AccountSearch::HasHitInSubTitle(std::size_t account) const {
    return hits_.Any(Titles().SubTitleOffset(account), TitlesEnd(account));
}

}  // namespace korvanta

#include "server/search/AccountSearch.h"

#include <algorithm>
#include <numeric>

#include "common/Text.h"

namespace korvanta {

AccountSearch::AccountSearch(std::shared_ptr<const AccountTable> table, std::u16string_view text)
    : table_(std::move(table)),
      lower_(Lower(text)),
      folded_(AccountTable::Folded(lower_)),
      foldedSuffices_(std::all_of(lower_.begin(), lower_.end(), [](char16_t unit) {
          return AccountTable::IsAscii(unit) && unit != fieldSeparator;
      })) {}

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
    // Whether a sub-account has a hit is as good as random, and a processor is slow where it cannot foresee the way: so
    // there is one way for both.
    for (std::size_t account = first + 1; account < end; ++account) {
        LookAt(account);
        bool hit = IsHit(account);
        if (table_->starts_[account].hasMainTitle != 0) {
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

// For one more than so many: what turns out not to be shown is written too.
std::uint32_t* AccountSearch::RoomFor(std::size_t accounts) {
    if (shown_.size() <= accounts) {
        shown_.resize(accounts + 1);
    }
    return shown_.data();
}

// Makes hits_ tell of the account.
inline void AccountSearch::LookAt(std::size_t account) {
    if (account < firstAccount_ || account >= endAccount_) {
        MarkBlockOf(account);
    }
}

void AccountSearch::MarkBlockOf(std::size_t account) {
    const std::vector<AccountTable::Block>& blocks = table_->blocks_;
    if (account < firstAccount_) {
        block_ = 0;
    }
    while (block_ + 1 < blocks.size() && blocks[block_ + 1].firstAccount <= account) {
        ++block_;
    }
    const AccountTable::Block& block = blocks[block_];
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

inline std::size_t AccountSearch::TitlesBegin(std::size_t account) const {
    return table_->starts_[account].offset;
}

inline std::size_t AccountSearch::TitlesEnd(std::size_t account) const {
    return account + 1 < endAccount_ ? TitlesBegin(account + 1) : table_->blocks_[block_].used;
}

// In either title of its own.
inline bool AccountSearch::IsHit(std::size_t account) const {
    return hits_.Any(TitlesBegin(account), TitlesEnd(account));
}

bool AccountSearch::HasHitInSubTitle(std::size_t account) const {
    const char16_t* const units = table_->blocks_[block_].units.get();
    const auto subTitle = static_cast<std::size_t>(table_->records_[account].subTitle - units);
    return hits_.Any(subTitle, TitlesEnd(account));
}

}  // namespace korvanta

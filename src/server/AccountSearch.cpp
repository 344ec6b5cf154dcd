#include "server/AccountSearch.h"

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

const std::vector<std::uint32_t>& AccountSearch::Shown(std::size_t group) {
    const std::size_t first = table_->GroupStart(group);
    const std::size_t end = table_->GroupStart(group + 1);
    shown_.clear();
    if (lower_.empty()) {
        ShowAll(first, end);
        return shown_;
    }
    SeekFrom(first);
    while (!found_ && next_ < end) {
        ScanBlock(next_);
    }
    if (next_ >= end) {
        return shown_;
    }
    if (next_ == first) {
        ShowAll(first, end);
        return shown_;
    }
    shown_.push_back(static_cast<std::uint32_t>(first));
    while (next_ < end) {
        const std::size_t account = next_;
        if (found_ && FoundInSubTitle(account)) {
            shown_.push_back(static_cast<std::uint32_t>(account));
        }
        ScanBlock(found_ ? account + 1 : account);
    }
    sought_ = end;
    return shown_;
}

void AccountSearch::ShowAll(std::size_t first, std::size_t end) {
    shown_.resize(end - first);
    std::iota(shown_.begin(), shown_.end(), static_cast<std::uint32_t>(first));
}

// Makes next_ say what there is from the account on.
void AccountSearch::SeekFrom(std::size_t account) {
    if (account < sought_) {
        block_ = 0;
        next_ = account;
        found_ = false;
    } else if (account > next_) {
        next_ = account;
        found_ = false;
    }
    sought_ = account;
}

// Looks from the account to the end of the block that has its titles.
void AccountSearch::ScanBlock(std::size_t account) {
    const std::vector<AccountTable::Block>& blocks = table_->blocks_;
    found_ = false;
    next_ = account;
    while (block_ + 1 < blocks.size() && blocks[block_ + 1].firstAccount <= account) {
        ++block_;
    }
    const std::size_t endAccount = EndOfBlock();
    if (account >= endAccount) {
        return;
    }
    const AccountTable::Block& block = blocks[block_];
    const std::uint8_t* const folded = block.folded.get();
    const std::uint8_t* const place = Find(block, folded + table_->starts_[account].offset, folded + block.used);
    if (place == nullptr) {
        next_ = endAccount;
        return;
    }
    found_ = true;
    foundOffset_ = static_cast<std::size_t>(place - folded);
    next_ = AccountAt(foundOffset_, account, endAccount);
}

const std::uint8_t* AccountSearch::Find(const AccountTable::Block& block, const std::uint8_t* from,
                                        const std::uint8_t* end) const {
    while ((from = folded_.Find(from, end)) != nullptr) {
        if (foldedSuffices_) {
            return from;
        }
        const char16_t* const units = block.units.get() + (from - block.folded.get());
        if (std::equal(lower_.begin(), lower_.end(), units, [](char16_t wanted, char16_t unit) {
                return unit != fieldSeparator && (unit == wanted || LowerUnit(unit) == wanted);
            })) {
            return from;
        }
        ++from;
    }
    return nullptr;
}

// The account from `first` on, which begins at or before the offset, whose titles are there.
std::size_t AccountSearch::AccountAt(std::size_t offset, std::size_t first, std::size_t end) const {
    const std::vector<AccountTable::Start>& starts = table_->starts_;
    std::size_t step = 1;
    std::size_t beyond = first + 1;
    while (beyond < end && starts[beyond].offset <= offset) {
        first = beyond;
        step *= 2;
        beyond = first + step;
    }
    beyond = std::min(beyond, end);
    while (beyond - first > 1) {
        const std::size_t middle = first + (beyond - first) / 2;
        (starts[middle].offset <= offset ? first : beyond) = middle;
    }
    return first;
}

// Of next_, which may have been found by its main title alone.
bool AccountSearch::FoundInSubTitle(std::size_t account) const {
    if (table_->starts_[account].hasMainTitle == 0) {
        return true;
    }
    const AccountTable::Record& record = table_->records_[account];
    const AccountTable::Block& block = table_->blocks_[block_];
    const std::uint8_t* const folded = block.folded.get();
    const std::size_t subTitle = static_cast<std::size_t>(record.subTitle - block.units.get());
    return foundOffset_ >= subTitle || Find(block, folded + subTitle, folded + subTitle + record.subLength) != nullptr;
}

std::size_t AccountSearch::EndOfBlock() const {
    return block_ + 1 < table_->blocks_.size() ? table_->blocks_[block_ + 1].firstAccount : table_->Count();
}

}  // namespace korvanta

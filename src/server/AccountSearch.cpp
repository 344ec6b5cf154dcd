#include "server/AccountSearch.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "common/Text.h"

namespace korvanta {

namespace {
constexpr std::size_t longestSkip = 255;
}

AccountSearch::AccountSearch(std::shared_ptr<const AccountTable> table, std::u16string_view text)
    : table_(std::move(table)), lower_(Lower(text)) {
    std::transform(lower_.begin(), lower_.end(), std::back_inserter(bytes_), AccountTable::FoldedByte);
    const std::size_t length = bytes_.size();
    skips_.fill(static_cast<std::uint8_t>(std::min(length, longestSkip)));
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t skip = length - 1 - i;
        if (skip == 0) {
            repeat_ = skips_[bytes_[i]];
        }
        skips_[bytes_[i]] = static_cast<std::uint8_t>(std::min(skip, longestSkip));
    }
}

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
        if (found_ && (foundInSubTitle_ || InSubTitle(account))) {
            shown_.push_back(static_cast<std::uint32_t>(account));
        }
        ScanBlock(found_ ? account + 1 : account);
    }
    sought_ = end;
    return shown_;
}

void AccountSearch::ShowAll(std::size_t first, std::size_t end) {
    for (; first < end; ++first) {
        shown_.push_back(static_cast<std::uint32_t>(first));
    }
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
    const std::uint8_t* const place =
        Find(block, folded + (TitlesOf(account) - block.units.get()), folded + block.used);
    if (place == nullptr) {
        next_ = endAccount;
        return;
    }
    const char16_t* const unit = block.units.get() + (place - folded);
    next_ = AccountAt(unit, account, endAccount);
    found_ = true;
    foundInSubTitle_ = unit >= table_->records_[next_].subTitle;
}

const std::uint8_t* AccountSearch::Find(const AccountTable::Block& block, const std::uint8_t* from,
                                        const std::uint8_t* end) const {
    // Many units share a byte, and a separator is found in no title.
    while ((from = FindBytes(from, end)) != nullptr) {
        const char16_t* const units = block.units.get() + (from - block.folded.get());
        if (std::equal(lower_.begin(), lower_.end(), units, [](char16_t wanted, char16_t unit) {
                return unit != fieldSeparator && LowerUnit(unit) == wanted;
            })) {
            return from;
        }
        ++from;
    }
    return nullptr;
}

const std::uint8_t* AccountSearch::FindBytes(const std::uint8_t* from, const std::uint8_t* end) const {
    const std::size_t before = bytes_.size() - 1;
    if (static_cast<std::size_t>(end - from) <= before) {
        return nullptr;
    }
    if (before == 0) {
        return static_cast<const std::uint8_t*>(std::memchr(from, bytes_[0], static_cast<std::size_t>(end - from)));
    }
    for (const std::uint8_t* last = from + before; last < end;) {
        const std::size_t skip = skips_[*last];
        if (skip == 0) {
            if (std::memcmp(last - before, bytes_.data(), before) == 0) {
                return last - before;
            }
            last += repeat_;
        } else {
            last += skip;
        }
    }
    return nullptr;
}

// The account from `first` on, which begins before or at the place, whose titles the place is in.
std::size_t AccountSearch::AccountAt(const char16_t* place, std::size_t first, std::size_t end) const {
    std::size_t step = 1;
    std::size_t beyond = first + 1;
    while (beyond < end && TitlesOf(beyond) <= place) {
        first = beyond;
        step *= 2;
        beyond = first + step;
    }
    beyond = std::min(beyond, end);
    while (beyond - first > 1) {
        const std::size_t middle = first + (beyond - first) / 2;
        (TitlesOf(middle) <= place ? first : beyond) = middle;
    }
    return first;
}

bool AccountSearch::InSubTitle(std::size_t account) const {
    const AccountTable::Record& record = table_->records_[account];
    const AccountTable::Block& block = table_->blocks_[block_];
    const std::uint8_t* const from = block.folded.get() + (record.subTitle - block.units.get());
    return Find(block, from, from + record.subLength) != nullptr;
}

std::size_t AccountSearch::EndOfBlock() const {
    return block_ + 1 < table_->blocks_.size() ? table_->blocks_[block_ + 1].firstAccount : table_->Count();
}

}  // namespace korvanta

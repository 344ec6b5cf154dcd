#include "server/search/AccountTable.h"

#include <algorithm>

#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::size_t blockUnits = std::size_t{1} << 16U;
constexpr unsigned firstSlotBits = 8;

Error NoMainAccount() {
    return {91, u"clsTLXAccounts", u"Object variable or With block variable not set"};
}

}  // namespace

void AccountTable::Add(const AccountFields& fields) {
    if (fields.isMain) {
        EndGroup();
    }
    const bool hasGroup = fields.isMain || records_.size() != listed_;
    Record record{};
    bool shares = false;
    if (!fields.isMain && hasGroup) {
        const Record& main = records_[listed_];
        shares = fields.mainTitle == std::u16string_view(main.mainTitle, main.mainLength);
        record.mainTitle = main.mainTitle;
    }
    Block& block = BlockFor((shares ? 0 : fields.mainTitle.size() + 1) + fields.subTitle.size() + 1);
    const Start start{shares ? 0U : 1U, static_cast<std::uint32_t>(block.used) & 0x7FFF'FFFFU};
    if (!shares) {
        record.mainTitle = Store(block, fields.mainTitle);
    }
    record.mainLength = static_cast<std::uint32_t>(fields.mainTitle.size());
    record.subTitle = Store(block, fields.subTitle);
    record.subLength = static_cast<std::uint32_t>(fields.subTitle.size());
    record.accountId = fields.accountId;
    record.requireComment = fields.requireComment;
    record.flags = Flags(fields);
    if (!fields.password.empty()) {
        passwords_.push_back({records_.size(), std::u16string(fields.password)});
    }
    starts_.push_back(start);
    records_.push_back(record);
    Remember(fields.accountId, records_.size() - 1);
    if (!hasGroup) {
        throw NoMainAccount();
    }
}

void AccountTable::EndGroup() {
    if (listed_ != records_.size()) {
        groups_.push_back(static_cast<std::uint32_t>(listed_));
        listed_ = records_.size();
    }
}

AccountFields AccountTable::Fields(std::size_t account) const {
    const Record& record = records_[account];
    return {record.accountId,
            (record.flags & isMain) != 0,
            {record.mainTitle, record.mainLength},
            {record.subTitle, record.subLength},
            (record.flags & isActive) != 0,
            (record.flags & allowNoninvoiceable) != 0,
            record.requireComment,
            (record.flags & hasPassword) != 0 ? PasswordOf(account) : std::u16string_view()};
}

std::u16string_view AccountTable::PasswordOf(std::size_t account) const {
    return std::lower_bound(passwords_.begin(), passwords_.end(), account,
                            [](const Password& password, std::size_t wanted) { return password.account < wanted; })
        ->text;
}

std::optional<std::size_t> AccountTable::Find(std::int32_t accountId) const {
    if (slots_.empty() || slots_[SlotOf(accountId)] == 0) {
        return std::nullopt;
    }
    return slots_[SlotOf(accountId)] - 1;
}

std::vector<std::uint8_t> AccountTable::Folded(std::u16string_view lowerText) {
    std::vector<std::uint8_t> bytes(lowerText.size());
    std::transform(lowerText.begin(), lowerText.end(), bytes.begin(), FoldedByte);
    return bytes;
}

std::uint8_t AccountTable::Flags(const AccountFields& fields) {
    return static_cast<std::uint8_t>((fields.isMain ? isMain : 0) | (fields.isActive ? isActive : 0) |
                                     (fields.allowNoninvoiceable ? allowNoninvoiceable : 0) |
                                     (fields.password.empty() ? 0 : hasPassword));
}

// Growing block by block needs no memory for a second copy of all titles.
AccountTable::Block& AccountTable::BlockFor(std::size_t units) {
    if (blocks_.empty() || blocks_.back().size - blocks_.back().used < units) {
        Block block;
        block.size = std::max(blockUnits, units);
        block.units = std::make_unique_for_overwrite<char16_t[]>(block.size);
        block.folded = std::make_unique_for_overwrite<std::uint8_t[]>(block.size);
        block.firstAccount = records_.size();
        blocks_.push_back(std::move(block));
    }
    return blocks_.back();
}

const char16_t* AccountTable::Store(Block& block, std::u16string_view title) {
    char16_t* const units = block.units.get() + block.used;
    std::uint8_t* const folded = block.folded.get() + block.used;
    std::copy(title.begin(), title.end(), units);
    std::transform(title.begin(), title.end(), folded, [](char16_t unit) { return FoldedByte(LowerUnit(unit)); });
    units[title.size()] = fieldSeparator;
    folded[title.size()] = FoldedByte(fieldSeparator);
    block.used += title.size() + 1;
    return units;
}

void AccountTable::Remember(std::int32_t accountId, std::size_t account) {
    if (differentIds_ >= slots_.size() / 4 * 3) {
        GrowSlots();
    }
    std::uint32_t& slot = slots_[SlotOf(accountId)];
    differentIds_ += slot == 0 ? 1 : 0;
    slot = static_cast<std::uint32_t>(account) + 1;
}

void AccountTable::GrowSlots() {
    hashShift_ = slots_.empty() ? 32 - firstSlotBits : hashShift_ - 1;
    const std::vector<std::uint32_t> old = std::move(slots_);
    slots_.assign(std::size_t{1} << (32 - hashShift_), 0);
    for (const std::uint32_t number : old) {
        if (number != 0) {
            slots_[SlotOf(records_[number - 1].accountId)] = number;
        }
    }
}

// The slot that holds the id, or the free one where it belongs.
std::size_t AccountTable::SlotOf(std::int32_t accountId) const {
    constexpr std::uint32_t spread = 2'654'435'769U;
    std::size_t slot = (static_cast<std::uint32_t>(accountId) * spread) >> hashShift_;
    while (slots_[slot] != 0 && records_[slots_[slot] - 1].accountId != accountId) {
        slot = (slot + 1) & (slots_.size() - 1);
    }
    return slot;
}

}  // namespace korvanta

#include "server/search/AccountTable.h"

#include <algorithm>

#include "common/Error.h"

namespace korvanta {

void AccountTable::Add(const AccountFields& fields) {
    if (fields.isMain) {
        EndGroup();
    }
    const bool hasMainAccount = !fields.isMain && Count() != listed_;
    if (hasMainAccount) {
        titles_.AddBelow(listed_, fields.mainTitle, fields.subTitle);
    } else {
        titles_.Add(fields.mainTitle, fields.subTitle);
    }
    if (!fields.password.empty()) {
        passwords_.push_back({.account = Count(), .text = std::u16string(fields.password)});
    }
    records_.push_back({.requireComment = fields.requireComment, .flags = Flags(fields)});
    ids_.Add(fields.accountId);
    if (!fields.isMain && !hasMainAccount) {
        throw StandardError(errorNumber::objectNotSet, u"clsTLXAccounts");
    }
}

void AccountTable::EndGroup() {
    if (listed_ != Count()) {
        groups_.push_back(static_cast<std::uint32_t>(listed_));
        listed_ = Count();
    }
}

AccountFields AccountTable::Fields(std::size_t account) const {
    const Record& record = records_[account];
    return {
        .accountId = ids_.Id(account),
        .isMain = (record.flags & isMain) != 0,
        .mainTitle = titles_.MainTitle(account),
        .subTitle = titles_.SubTitle(account),
        .isActive = (record.flags & isActive) != 0,
        .allowNoninvoiceable = (record.flags & allowNoninvoiceable) != 0,
        .requireComment = record.requireComment,
        .password = (record.flags & hasPassword) != 0 ? PasswordOf(account) : std::u16string_view(),
    };
}

std::u16string_view AccountTable::PasswordOf(std::size_t account) const {
    return std::lower_bound(passwords_.begin(), passwords_.end(), account,
                            [](const Password& password, std::size_t wanted) { return password.account < wanted; })
        ->text;
}

std::uint8_t AccountTable::Flags(const AccountFields& fields) {
    return static_cast<std::uint8_t>((fields.isMain ? isMain : 0) | (fields.isActive ? isActive : 0) |
                                     (fields.allowNoninvoiceable ? allowNoninvoiceable : 0) |
                                     (fields.password.empty() ? 0 : hasPassword));
}

}  // namespace korvanta

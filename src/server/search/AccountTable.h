#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "server/search/AccountFields.h"
#include "server/search/IdIndex.h"
#include "server/search/TitleIndex.h"

namespace korvanta {

// The accounts of one accounts file, kept small: about 32 bytes for each beside its titles. Accounts are numbered from
// 0 in file order. A group is a main account and the sub-accounts that follow it.
class AccountTable {
  public:
    // A main account begins a new group, which ends the one before. Raises Error 91 "Object variable or With block
    // variable not set" for a sub-account before the first main account: it can be found by its id all the same, and
    // nothing may be added after it.
    void Add(const AccountFields& fields);
    // Ends the last group; until then it is not among the groups.
    void EndGroup();

    std::size_t Count() const { return records_.size(); }
    std::size_t GroupCount() const { return groups_.size(); }
    // Number of the group's main account; that of GroupCount() is where the last group ends.
    std::size_t GroupStart(std::size_t group) const { return group < groups_.size() ? groups_[group] : listed_; }

    // The account's fields, whose texts are the table's.
    AccountFields Fields(std::size_t account) const;
    // The number of the last account with that id.
    std::optional<std::size_t> Find(std::int32_t accountId) const { return ids_.Find(accountId); }
    std::size_t DifferentIds() const { return ids_.DifferentIds(); }

    // The titles of these accounts, for searching them.
    const TitleIndex& Titles() const { return titles_; }

  private:
    enum Flag : std::uint8_t { isMain = 1, isActive = 2, allowNoninvoiceable = 4, hasPassword = 8 };
    struct Record {
        std::int16_t requireComment;
        std::uint8_t flags;
    };
    struct Password {
        std::size_t account;
        std::u16string text;
    };

    static std::uint8_t Flags(const AccountFields& fields);
    std::u16string_view PasswordOf(std::size_t account) const;

    std::vector<Record> records_;
    IdIndex ids_;
    TitleIndex titles_;
    std::vector<Password> passwords_;    // in the order of the accounts, few of which have one
    std::vector<std::uint32_t> groups_;  // their main accounts
    std::size_t listed_ = 0;             // accounts in groups_
};

}  // namespace korvanta

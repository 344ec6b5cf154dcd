#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "server/search/AccountFields.h"

namespace korvanta {

// The accounts of one accounts file, kept small: 32 bytes and the titles for each, and a title that sub-accounts share
// with their main account once. Accounts are numbered from 0 in file order. A group is a main account and the
// sub-accounts that follow it.
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
    std::optional<std::size_t> Find(std::int32_t accountId) const;
    std::size_t DifferentIds() const { return differentIds_; }

  private:
    friend class AccountSearch;

    enum Flag : std::uint8_t { isMain = 1, isActive = 2, allowNoninvoiceable = 4, hasPassword = 8 };
    struct Record {
        const char16_t* mainTitle;
        const char16_t* subTitle;
        std::uint32_t mainLength;
        std::uint32_t subLength;
        std::int32_t accountId;
        std::int16_t requireComment;
        std::uint8_t flags;
    };
    struct Password {
        std::size_t account;
        std::u16string text;
    };
    // Titles one behind the other, each followed by a fieldSeparator, and for every unit of them the byte that stands
    // for its lower-case form. A sub-account's main title is here only where it is not its group's. One account's
    // titles lie in one block.
    struct Block {
        std::unique_ptr<char16_t[]> units;
        std::unique_ptr<std::uint8_t[]> folded;
        std::size_t size = 0;
        std::size_t used = 0;
        std::size_t firstAccount = 0;
    };

    // An ASCII character is its own byte, the others share those above.
    static std::uint8_t FoldedByte(char16_t lowerUnit) {
        return static_cast<std::uint8_t>(IsAscii(lowerUnit) ? lowerUnit : 0x80U | (lowerUnit ^ (lowerUnit >> 7U)));
    }
    static bool IsAscii(char16_t unit) { return unit < 0x80; }
    static std::vector<std::uint8_t> Folded(std::u16string_view lowerText);
    std::u16string_view PasswordOf(std::size_t account) const;
    static std::uint8_t Flags(const AccountFields& fields);
    Block& BlockFor(std::size_t units);
    static const char16_t* Store(Block& block, std::u16string_view title);
    void Remember(std::int32_t accountId, std::size_t account);
    void GrowSlots();
    std::size_t SlotOf(std::int32_t accountId) const;

    // Where an account's own titles begin: its main title, unless that is its group's, and behind it its sub title.
    struct Start {
        std::uint32_t hasMainTitle : 1;
        std::uint32_t offset : 31;  // in its block
    };

    std::vector<Record> records_;
    std::vector<Start> starts_;          // by themselves, since a search that finds much looks at all of them
    std::vector<Password> passwords_;    // few accounts have one
    std::vector<std::uint32_t> groups_;  // their main accounts
    std::size_t listed_ = 0;             // accounts in groups_
    std::vector<Block> blocks_;

    // Where an id's account is: its number plus 1, 0 for none, in the first free slot from the one that its hash names.
    std::vector<std::uint32_t> slots_;
    unsigned hashShift_ = 32;
    std::size_t differentIds_ = 0;
};

}  // namespace korvanta

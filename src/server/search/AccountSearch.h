#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "server/search/AccountTable.h"
#include "server/search/BytePattern.h"

namespace korvanta {

// A search for a text in the titles of all accounts, whatever the letter case. Groups that are asked for in their order
// cost one walk through the titles together; more, when the order is another one.
class AccountSearch {
  public:
    // The empty text is found everywhere.
    AccountSearch(std::shared_ptr<const AccountTable> table, std::u16string_view text);

    // The accounts that the search shows of a group, by number and in order; none when the text is not found in it.
    // Found in the main account's titles, it shows the whole group; else the main account and the sub-accounts that
    // have it in their SubTitle. A MainTitle that a sub-account has of its own also shows the group's main account.
    // Holds until the next call. `group` is below the table's GroupCount().
    std::span<const std::uint32_t> Shown(std::size_t group);

  private:
    void LookAt(std::size_t account);
    void MarkBlockOf(std::size_t account);
    std::span<const std::uint32_t> ShowAll(std::size_t first, std::size_t end);
    std::uint32_t* RoomFor(std::size_t accounts);
    std::size_t TitlesBegin(std::size_t account) const;
    std::size_t TitlesEnd(std::size_t account) const;
    bool IsHit(std::size_t account) const;
    bool HasHitInSubTitle(std::size_t account) const;

    std::shared_ptr<const AccountTable> table_;
    std::u16string lower_;
    BytePattern folded_;  // lower_ as the table folds it
    bool foldedSuffices_;

    // Where the text is in the block that was looked at last, and that block's accounts.
    Marks hits_;
    std::size_t block_ = 0;
    std::size_t firstAccount_ = 0;
    std::size_t endAccount_ = 0;
    std::vector<std::uint32_t> shown_;
};

}  // namespace korvanta

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

// A search for a text in the titles of all accounts, whatever the letter case. Asking for all groups in their order
// walks through the titles once; in another order a block of titles may be searched several times.
class AccountSearch {
  public:
    // The empty text is found everywhere.
    AccountSearch(std::shared_ptr<const AccountTable> table, std::u16string_view text);

    // The accounts to show of a group, by number and in order. The whole group when a title of its main account
    // contains the text; else the main account and the sub-accounts whose SubTitle contains it; the main account alone
    // when only the MainTitle of a sub-account, different from the group's, contains it; otherwise none.
    // The result holds until the next call. `group` is below the table's GroupCount().
    std::span<const std::uint32_t> Shown(std::size_t group);

  private:
    const TitleIndex& Titles() const { return table_->Titles(); }
    void LookAt(std::size_t account);
    void MarkBlockOf(std::size_t account);
    std::span<const std::uint32_t> ShowAll(std::size_t first, std::size_t end);
    std::uint32_t* RoomFor(std::size_t accounts);
    std::size_t TitlesEnd(std::size_t account) const;
    bool IsHit(std::size_t account) const;
    bool HasHitInSubTitle(std::size_t account) const;

    std::shared_ptr<const AccountTable> table_;
    std::u16string lower_;
    BytePattern folded_;  // lower_ as the title index folds it
    bool foldedSuffices_;

    // Where the text occurs in the block that was searched last, and that block's accounts.
    Marks hits_;
    std::size_t block_ = 0;
    std::size_t firstAccount_ = 0;
    std::size_t endAccount_ = 0;
    std::vector<std::uint32_t> shown_;
};

}  // namespace korvanta

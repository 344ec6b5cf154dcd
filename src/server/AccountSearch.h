#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/BytePattern.h"
#include "server/AccountTable.h"

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
    const std::vector<std::uint32_t>& Shown(std::size_t group);

  private:
    void SeekFrom(std::size_t account);
    void ScanBlock(std::size_t account);
    const std::uint8_t* Find(const AccountTable::Block& block, const std::uint8_t* from, const std::uint8_t* end) const;
    std::size_t AccountAt(std::size_t offset, std::size_t first, std::size_t end) const;
    void ShowAll(std::size_t first, std::size_t end);
    bool FoundInSubTitle(std::size_t account) const;
    std::size_t EndOfBlock() const;

    std::shared_ptr<const AccountTable> table_;
    std::u16string lower_;
    BytePattern folded_;  // lower_ as the table folds it
    bool foldedSuffices_;

    // From the account that was sought there is nothing to find before next_; there is in next_ itself when found_.
    std::size_t sought_ = 0;
    std::size_t next_ = 0;
    bool found_ = false;
    std::size_t block_ = 0;        // that of next_, when found_
    std::size_t foundOffset_ = 0;  // and where in it
    std::vector<std::uint32_t> shown_;
};

}  // namespace korvanta

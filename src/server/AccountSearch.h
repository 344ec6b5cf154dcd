#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

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
    const std::uint8_t* FindBytes(const std::uint8_t* from, const std::uint8_t* end) const;
    std::size_t AccountAt(const char16_t* place, std::size_t first, std::size_t end) const;
    bool InSubTitle(std::size_t account) const;
    void ShowAll(std::size_t first, std::size_t end);
    const char16_t* TitlesOf(std::size_t account) const { return table_->records_[account].Titles(); }
    std::size_t EndOfBlock() const;

    std::shared_ptr<const AccountTable> table_;
    std::u16string lower_;
    std::vector<std::uint8_t> bytes_;  // of lower_, as the table folds them
    // How far a byte at the text's end lets the search go on; 0 when it is the text's last one.
    std::array<std::uint8_t, 256> skips_{};
    std::size_t repeat_ = 1;  // how far after a text that only ended right

    // From the account that was sought there is nothing to find before next_; there is in next_ itself when found_.
    std::size_t sought_ = 0;
    std::size_t next_ = 0;
    bool found_ = false;
    bool foundInSubTitle_ = false;
    std::size_t block_ = 0;
    std::vector<std::uint32_t> shown_;
};

}  // namespace korvanta

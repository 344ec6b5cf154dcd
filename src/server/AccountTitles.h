#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "server/clsAccount.h"

namespace korvanta {

// The titles of all listed accounts, folded to lower case once, for a search that looks at every one of them. An
// account's index is its position when the groups of the accounts list are walked in order.
class AccountTitles {
  public:
    // The group's accounts, the main account first.
    void AddGroup(const std::vector<std::shared_ptr<clsAccount>>& group);

    std::size_t Count() const { return accounts_.size(); }
    // `foldedText` is in lower case already; the empty text occurs in every title. `account` is below Count().
    bool SubTitleContains(std::size_t account, std::u16string_view foldedText) const {
        return Contains(accounts_[account].subTitle, foldedText);
    }
    bool MainTitleContains(std::size_t account, std::u16string_view foldedText) const {
        return Contains(accounts_[account].mainTitle, foldedText);
    }

  private:
    struct Titles {
        std::u16string_view subTitle;
        std::u16string_view mainTitle;
    };
    static bool Contains(std::u16string_view title, std::u16string_view foldedText);
    std::u16string_view Store(std::u16string_view title);

    // Titles lie one behind the other; growing block by block needs no memory for a second copy of them all.
    std::vector<std::unique_ptr<char16_t[]>> blocks_;
    char16_t* free_ = nullptr;
    std::size_t freeUnits_ = 0;
    std::vector<Titles> accounts_;
};

}  // namespace korvanta

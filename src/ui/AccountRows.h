#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "controls/Grid.h"
#include "server/clsAccount.h"

namespace korvanta {

// The accounts in the rows of a grid. Row 0 is the header; a picture marks main accounts, and inactive ones are grey.
// No account objects are kept: a row tells its account by two hidden columns, 2 (account ID) and 3 ("1" when active).
class AccountRows {
  public:
    static constexpr int columnIcon = 0;
    static constexpr int columnTitle = 1;
    static constexpr int columnCount = 4;

    // The grid outlives it.
    explicit AccountRows(Grid& grid) : grid_(grid) {}

    // Gives the grid its columns, and this heading above the titles.
    void SetUp(const std::u16string& heading);
    // Makes the title column fill a grid that is so many twips wide.
    void FillWidth(int width);
    void Clear() { grid_.Rows(1); }
    // Appends a row and returns its number. A sub-account shows as "main -> sub" or as its own title alone.
    int Add(const AccountFields& account, bool showsMainTitle);

    // The number of the last row. Accounts are in rows 1 to Last.
    int Last() const { return grid_.Rows() - 1; }
    // -1 for the header.
    std::int32_t Id(int row) const;
    bool IsActive(int row) const;
    // The last row with that ID; 0 when there is none.
    int Find(std::int32_t accountId) const;
    // The IDs of all active accounts, in row order.
    std::vector<std::int32_t> ActiveIDs() const;

  private:
    Grid& grid_;
};

}  // namespace korvanta

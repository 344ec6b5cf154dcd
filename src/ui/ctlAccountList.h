#pragma once

#include <cstdint>
#include <vector>

#include "controls/Grid.h"
#include "server/clsAccount.h"
#include "translation/Translator.h"

namespace korvanta {

// The list of accounts in the account selection dialog: rows in the order in which they are added, whole-row
// selection, a picture beside main accounts, inactive accounts in grey. It keeps no account objects: the hidden
// columns 2 (account ID) and 3 ("1" when active) are all it knows of a row.
class ctlAccountList : public Container {
  public:
    ctlAccountList(std::u16string name, Translator& translator);

    std::u16string_view TranslatesAs() const override { return u"ctlAccountList"; }

    // The selected row may have changed, or was clicked.
    Event<> Click;
    Event<> DblClick;

    // 1: sub-accounts added from now on show "main -> sub"; any other value: their own title alone.
    void AccountDisplay(std::int32_t mode) { accountDisplay_ = mode; }
    bool Redraw() const { return flxAccounts.Redraw(); }
    void Redraw(bool redraw) { flxAccounts.Redraw(redraw); }
    void Clear();
    // Appends a row and makes it current.
    void AddAccount(const clsAccount& account) { AddAccount(account.Fields()); }
    void AddAccount(const AccountFields& account);
    bool SelectedActive() const;
    // -1 when no data row is current.
    std::int32_t SelectedID() const;
    // Makes the last row with that ID current, the first data row when there is none. Raises Click when there are rows.
    void SelectedID(std::int32_t accountId);

    // The IDs of all rows that may be charged, in row order.
    std::vector<std::int32_t> ActiveIDs() const;
    // Walks the current row by so many rows, staying inside the data rows; a page is the rows in view.
    void MoveBy(int rows);
    void MoveToFirst() { MoveBy(-flxAccounts.Rows()); }
    void MoveToLast() { MoveBy(flxAccounts.Rows()); }
    int PageRows() const { return flxAccounts.VisibleRows(); }

    Grid flxAccounts{u"flxAccounts"};
    Label lblAccount{u"lblAccount"};
    Image imgTop{u"imgTop"};

  private:
    void Resized() override;
    void SetUpGrid();
    void SelectWholeRow();

    std::int32_t accountDisplay_ = 0;
    bool selecting_ = false;
};

}  // namespace korvanta

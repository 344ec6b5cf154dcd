#pragma once

#include <cstdint>
#include <vector>

#include "controls/Grid.h"
#include "controls/ReentryFlag.h"
#include "server/clsAccount.h"
#include "translation/Translator.h"
#include "ui/AccountRows.h"

namespace korvanta {

// A list of accounts in the account selection dialog. Rows keep the order in which they are added; the user selects a
// whole row.
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
    void Clear() { rows_.Clear(); }
    // Appends a row and makes it current.
    void AddAccount(const clsAccount& account) { AddAccount(account.Fields()); }
    void AddAccount(const AccountFields& account);
    bool SelectedActive() const { return rows_.IsActive(flxAccounts.Row()); }
    // -1 when no data row is current.
    std::int32_t SelectedID() const { return rows_.Id(flxAccounts.Row()); }
    // Makes the last row with that ID current, the first data row when there is none. Raises Click when there are rows.
    void SelectedID(std::int32_t accountId);

    // The IDs of all rows that may be charged, in row order.
    std::vector<std::int32_t> ActiveIDs() const { return rows_.ActiveIDs(); }
    // Makes the row so many rows further on current, at most the first or the last account, and scrolls it into view.
    void MoveBy(int rows);
    void MoveToFirst() { MoveBy(-flxAccounts.Rows()); }
    void MoveToLast() { MoveBy(flxAccounts.Rows()); }
    // The number of rows in view.
    int PageRows() const { return flxAccounts.VisibleRows(); }

    Grid flxAccounts{u"flxAccounts"};
    Label lblAccount{u"lblAccount"};
    Image imgTop{u"imgTop"};

  private:
    void Resized() override;
    void SelectWholeRow();

    AccountRows rows_{flxAccounts};
    std::int32_t accountDisplay_ = 0;
    ReentryFlag selecting_;
};

}  // namespace korvanta

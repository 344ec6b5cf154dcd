#include "ui/ctlAccountList.h"

#include <algorithm>

namespace korvanta {

ctlAccountList::ctlAccountList(std::u16string name, Translator& translator) : Container(std::move(name)) {
    lblAccount.Caption(u"Account");
    lblAccount.Visible(false);
    imgTop.Shows(Picture::MainAccount);
    imgTop.Visible(false);
    // Screen readers take the label directly before a list for the list's name.
    Add(lblAccount);
    Add(flxAccounts);
    Add(imgTop);
    translator.Translate(*this);
    rows_.SetUp(lblAccount.Caption());
    flxAccounts.RowColChange.Connect([this] { SelectWholeRow(); });
    flxAccounts.Click.Connect([this] { Click.Raise(); });
    flxAccounts.DblClick.Connect([this] { DblClick.Raise(); });
}

void ctlAccountList::AddAccount(const AccountFields& account) {
    // The row becomes current last, when it is complete: this raises Click, and the listener may ask for its account.
    flxAccounts.Row(rows_.Add(account, accountDisplay_ == 1));
}

void ctlAccountList::SelectedID(std::int32_t accountId) {
    const int match = rows_.Find(accountId);
    if (rows_.Last() > 0) {
        flxAccounts.Row(std::max(match, 1));
    }
    if (!flxAccounts.RowIsVisible(flxAccounts.Row())) {
        flxAccounts.TopRow(flxAccounts.Row());
    }
    if (rows_.Last() > 0) {
        SelectWholeRow();
    } else {
        flxAccounts.Col(AccountRows::columnTitle);
        flxAccounts.ColSel(AccountRows::columnTitle);
    }
}

void ctlAccountList::MoveBy(int rows) {
    if (rows_.Last() == 0) {
        return;
    }
    const int row = std::clamp(flxAccounts.Row() + rows, 1, rows_.Last());
    flxAccounts.Row(row);
    const int top = flxAccounts.TopRow();
    const int visible = flxAccounts.VisibleRows();
    if (row < top) {
        flxAccounts.TopRow(row);
    } else if (row >= top + visible) {
        flxAccounts.TopRow(row - visible + 1);
    }
}

void ctlAccountList::Resized() {
    const Place place = Position();
    flxAccounts.Move({0, 0, place.width, place.height});
    rows_.FillWidth(place.width);
}

void ctlAccountList::SelectWholeRow() {
    if (flxAccounts.Row() < 1 || rows_.Last() == 0) {
        return;
    }
    {
        const ReentryFlag::Scope scope(selecting_);
        if (!scope.Entered()) {
            return;
        }
        flxAccounts.Col(AccountRows::columnIcon);
        flxAccounts.ColSel(AccountRows::columnCount - 1);
    }
    Click.Raise();
}

}  // namespace korvanta

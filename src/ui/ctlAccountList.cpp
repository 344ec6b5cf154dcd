#include "ui/ctlAccountList.h"

#include <algorithm>

#include "common/Conversion.h"
#include "common/Text.h"

namespace korvanta {

namespace {
constexpr int columnIcon = 0;
constexpr int columnTitle = 1;
constexpr int columnId = 2;
constexpr int columnActive = 3;
constexpr int columnCount = 4;
constexpr int iconWidth = 250;
constexpr int otherWidth = 400;
constexpr Color inactiveColor = RgbColor(0x70, 0x70, 0x70);
}  // namespace

ctlAccountList::ctlAccountList(std::u16string name, Translator& translator) : Container(std::move(name)) {
    lblAccount.Caption(u"Account");
    lblAccount.Visible(false);
    imgTop.Shows(Picture::MainAccount);
    imgTop.Visible(false);
    // Directly before the list, where screen readers look for its name.
    Add(lblAccount);
    Add(flxAccounts);
    Add(imgTop);
    translator.Translate(*this);
    SetUpGrid();
    flxAccounts.RowColChange.Connect([this] { SelectWholeRow(); });
    flxAccounts.Click.Connect([this] { Click.Raise(); });
    flxAccounts.DblClick.Connect([this] { DblClick.Raise(); });
}

void ctlAccountList::SetUpGrid() {
    flxAccounts.Columns(columnCount);
    flxAccounts.Rows(1);
    flxAccounts.ColAlignment(columnIcon, Alignment::Center);
    flxAccounts.ColAlignment(columnTitle, Alignment::Left);
    flxAccounts.ColWidth(columnIcon, iconWidth);
    flxAccounts.ColWidth(columnTitle, flxAccounts.Position().width - otherWidth);
    flxAccounts.ColWidth(columnId, 0);
    flxAccounts.ColWidth(columnActive, 0);
    for (const int column : {columnIcon, columnTitle, columnId}) {
        flxAccounts.HeaderAlignment(column, Alignment::Center);
    }
    flxAccounts.Text(0, columnTitle, lblAccount.Caption());
}

void ctlAccountList::Clear() {
    flxAccounts.Rows(1);
}

void ctlAccountList::AddAccount(const AccountFields& account) {
    std::u16string joined;
    const std::u16string id = NumberText(account.accountId);
    GridRow row;
    row.picture = account.isMain;
    if (account.isMain) {
        row.texts[columnTitle] = account.mainTitle;
    } else if (accountDisplay_ == 1) {
        joined.append(account.mainTitle).append(u" -> ").append(account.subTitle);
        row.texts[columnTitle] = joined;
    } else {
        row.texts[columnTitle] = account.subTitle;
    }
    row.texts[columnId] = id;
    if (account.isActive) {
        row.texts[columnActive] = u"1";
    } else {
        row.color = inactiveColor;
    }
    flxAccounts.AddRow(row);
    // Last, since whoever hears the Click may ask for the row's account.
    flxAccounts.Row(flxAccounts.Rows() - 1);
}

bool ctlAccountList::SelectedActive() const {
    return flxAccounts.Text(flxAccounts.Row(), columnActive) == u"1";
}

std::int32_t ctlAccountList::SelectedID() const {
    const int row = flxAccounts.Row();
    return row < 1 ? -1 : ToInteger32(flxAccounts.Text(row, columnId));
}

void ctlAccountList::SelectedID(std::int32_t accountId) {
    const std::u16string wanted = NumberText(accountId);
    int match = 0;
    for (int row = flxAccounts.Rows() - 1; row >= 1 && match == 0; --row) {
        if (flxAccounts.Text(row, columnId) == wanted) {
            match = row;
        }
    }
    if (match == 0 && flxAccounts.Rows() >= 2) {
        match = 1;
    }
    if (match != 0) {
        flxAccounts.Row(match);
    }
    if (!flxAccounts.RowIsVisible(flxAccounts.Row())) {
        flxAccounts.TopRow(flxAccounts.Row());
    }
    if (flxAccounts.Rows() > 1) {
        SelectWholeRow();
    } else {
        flxAccounts.Col(columnTitle);
        flxAccounts.ColSel(columnTitle);
    }
}

std::vector<std::int32_t> ctlAccountList::ActiveIDs() const {
    std::vector<std::int32_t> ids;
    for (int row = 1; row < flxAccounts.Rows(); ++row) {
        if (flxAccounts.Text(row, columnActive) == u"1") {
            ids.push_back(ToInteger32(flxAccounts.Text(row, columnId)));
        }
    }
    return ids;
}

void ctlAccountList::MoveBy(int rows) {
    if (flxAccounts.Rows() > 1) {
        const int row = std::clamp(flxAccounts.Row() + rows, 1, flxAccounts.Rows() - 1);
        flxAccounts.Row(row);
        const int top = flxAccounts.TopRow();
        const int visible = flxAccounts.VisibleRows();
        if (row < top) {
            flxAccounts.TopRow(row);
        } else if (row >= top + visible) {
            flxAccounts.TopRow(row - visible + 1);
        }
    }
}

void ctlAccountList::Resized() {
    const Place place = Position();
    flxAccounts.Move({0, 0, place.width, place.height});
    flxAccounts.ColWidth(columnTitle, place.width - otherWidth);
}

void ctlAccountList::SelectWholeRow() {
    if (selecting_ || flxAccounts.Row() < 1 || flxAccounts.Rows() <= 1) {
        return;
    }
    selecting_ = true;
    flxAccounts.Col(columnIcon);
    flxAccounts.ColSel(columnCount - 1);
    selecting_ = false;
    Click.Raise();
}

}  // namespace korvanta

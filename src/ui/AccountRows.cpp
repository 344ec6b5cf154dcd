#include "ui/AccountRows.h"

#include "common/Conversion.h"
#include "common/Text.h"

namespace korvanta {

namespace {
constexpr int columnId = 2;
constexpr int columnActive = 3;
constexpr int iconWidth = 250;
constexpr int otherWidth = 400;  // of the icon column and a scroll bar
constexpr Color inactiveColor = RgbColor(0x70, 0x70, 0x70);
}  // namespace

void AccountRows::SetUp(const std::u16string& heading) {
    grid_.Columns(columnCount);
    Clear();
    grid_.ColAlignment(columnIcon, Alignment::Center);
    grid_.ColAlignment(columnTitle, Alignment::Left);
    grid_.ColWidth(columnIcon, iconWidth);
    FillWidth(grid_.Position().width);
    grid_.ColWidth(columnId, 0);
    grid_.ColWidth(columnActive, 0);
    for (const int column : {columnIcon, columnTitle, columnId}) {
        grid_.HeaderAlignment(column, Alignment::Center);
    }
    grid_.Text(0, columnTitle, heading);
}

void AccountRows::FillWidth(int width) {
    grid_.ColWidth(columnTitle, width - otherWidth);
}

int AccountRows::Add(const AccountFields& account, bool showsMainTitle) {
    std::u16string joined;
    const std::u16string id = NumberText(account.accountId);
    GridRow row;
    row.picture = account.isMain;
    if (account.isMain) {
        row.texts[columnTitle] = account.mainTitle;
    } else if (showsMainTitle) {
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
    grid_.AddRow(row);
    return Last();
}

std::int32_t AccountRows::Id(int row) const {
    return row < 1 ? -1 : ToInteger32(grid_.Text(row, columnId));
}

bool AccountRows::IsActive(int row) const {
    return grid_.Text(row, columnActive) == u"1";
}

int AccountRows::Find(std::int32_t accountId) const {
    const std::u16string wanted = NumberText(accountId);
    int row = Last();
    while (row > 0 && grid_.Text(row, columnId) != wanted) {
        --row;
    }
    return row;
}

std::vector<std::int32_t> AccountRows::ActiveIDs() const {
    std::vector<std::int32_t> ids;
    for (int row = 1; row <= Last(); ++row) {
        if (IsActive(row)) {
            ids.push_back(Id(row));
        }
    }
    return ids;
}

}  // namespace korvanta

#include "server/AccountTitles.h"

#include <algorithm>

#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::size_t blockUnits = std::size_t{1} << 16U;

char16_t Folded(char16_t unit) {
    if (unit < 0x80) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    }
    return LowerUnit(unit);
}

}  // namespace

void AccountTitles::AddGroup(const std::vector<std::shared_ptr<clsAccount>>& group) {
    if (group.empty()) {
        return;
    }
    const std::u16string& groupTitle = group.front()->MainTitle;
    const std::u16string_view storedGroupTitle = Store(groupTitle);
    for (const std::shared_ptr<clsAccount>& account : group) {
        const std::u16string_view subTitle = Store(account->SubTitle);
        accounts_.push_back(
            {subTitle, account->MainTitle == groupTitle ? storedGroupTitle : Store(account->MainTitle)});
    }
}

std::u16string_view AccountTitles::Store(std::u16string_view title) {
    if (title.size() > freeUnits_) {
        const std::size_t units = std::max(blockUnits, title.size());
        blocks_.push_back(std::make_unique_for_overwrite<char16_t[]>(units));
        free_ = blocks_.back().get();
        freeUnits_ = units;
    }
    const std::u16string_view stored(free_, title.size());
    free_ = std::transform(title.begin(), title.end(), free_, Folded);
    freeUnits_ -= title.size();
    return stored;
}

bool AccountTitles::Contains(std::u16string_view title, std::u16string_view foldedText) {
    return title.find(foldedText) != std::u16string_view::npos;
}

}  // namespace korvanta

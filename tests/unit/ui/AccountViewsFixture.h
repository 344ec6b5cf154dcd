#pragma once

#include "unit/ui/DialogFixture.h"

namespace korvanta {

inline constexpr int ticksBeforeSearch = 7;

class AccountViewsFixture : public DialogFixture {
  protected:
    // Ticks until the all-accounts view lists exactly these; 0 when a second does not do.
    int TicksUntil(const std::vector<std::int32_t>& ids) {
        for (int ticks = 1; ticks <= 10; ++ticks) {
            SearchTicks(1);
            if (AllIds() == ids) {
                return ticks;
            }
        }
        return 0;
    }
    void Search(const std::u16string& text) {
        Type(text);
        SearchTicks(ticksBeforeSearch);
    }
    void ChooseTab(int tab) { Dialog().tabView.HandleSelected(tab); }
    void SetPreferred(const std::vector<std::int32_t>& ids) {
        for (const std::int32_t id : ids) {
            Prefs().AddPreferred(id);
        }
    }
    std::vector<std::int32_t> Preferred() { return Numbers(*Prefs().Preferred()); }
    std::vector<std::int32_t> PreferredRows() { return Ids(Dialog().ctlAccountListPreferred); }
    std::vector<std::int32_t> RecentRows() { return Ids(Dialog().ctlAccountListRecent); }
    int Fills() {
        int fills = 0;
        for (const Aspect aspect : peers.Of(Dialog().prgSearch).changes) {
            fills += aspect == Aspect::Visible ? 1 : 0;
        }
        return fills / 2;
    }
};

}  // namespace korvanta

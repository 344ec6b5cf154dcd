#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/MessageLoop.h"
#include "server/clsTLXAccounts.h"
#include "ui/AccountNumberForm.h"
#include "ui/clsTLXPrefs.h"

namespace korvanta {

// The three views of the account selection dialog: all accounts with the incremental search, the user's preferred
// accounts, and the recent ones. Filling the first one lets messages run: a newer fill may begin and end inside it.
class AccountViews {
  public:
    enum Tab { tabAll = 1, tabPreferred = 2, tabRecent = 3 };

    AccountViews(AccountNumberForm& form, clsTLXAccounts& accounts, clsTLXPrefs& prefs, MessageLoop& messageLoop,
                 TraceLog& log, std::function<void(std::int32_t)> accountSelected);

    // Brings the account list up to date; false when there is none to use.
    bool LoadAccounts();
    void FillAll();
    void FillPreferred();
    void FillRecent();
    // Fills all three, but the all-accounts view only when it does not already show these accounts for this search.
    void Refill();
    // Makes the tab's frame visible and remembers the tab.
    void ShowTab(int tab);
    // Gives the keyboard to the tab's search box, or to its list.
    void FocusTab();
    // Brings back the remembered tab and search text, for a new job.
    void RestoreTabAndSearch();
    // The list of the current tab.
    ctlAccountList& CurrentList();

  private:
    class AllFill;

    void ConnectControls();
    void AddGroups(const AllFill& fill, const std::shared_ptr<const AccountTable>& accounts);
    // Whether the all-accounts view shows all that the current search finds in the current accounts.
    bool AllIsShown() const;
    void SearchChanged();
    void SearchKey(Key key, bool& swallowed);
    void SearchTick();
    void ListClicked(ctlAccountList& list);
    void AddSelected();
    void RemoveSelected();
    void MoveUp();
    void MoveDown();
    void MoveSelected(int direction);

    AccountNumberForm& form_;
    clsTLXAccounts& accounts_;
    clsTLXPrefs& prefs_;
    MessageLoop& messageLoop_;
    TraceLog& log_;
    std::function<void(std::int32_t)> accountSelected_;

    bool searchPending_ = false;
    bool searchAbort_ = false;
    std::int32_t quietTicks_ = 0;
    bool loadFailed_ = false;
    std::uint32_t fillNumber_ = 0;
    std::weak_ptr<const AccountTable> shownAccounts_;
    std::u16string shownSearch_;
};

}  // namespace korvanta

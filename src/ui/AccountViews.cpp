#include "ui/AccountViews.h"

#include <set>

#include "common/LogErrors.h"
#include "server/search/AccountSearch.h"

namespace korvanta {

namespace {

constexpr std::int32_t quietTicksBeforeSearch = 6;
constexpr std::int32_t quietTicksAfterEnter = 5;
constexpr std::int32_t groupsBetweenMessages = 5;

// Empties a list, and leaves the screen as it is until the list is filled.
class ListFill {
  public:
    explicit ListFill(ctlAccountList& list) : list_(list) {
        list_.Clear();
        list_.Redraw(false);
    }
    ~ListFill() { list_.Redraw(true); }
    ListFill(const ListFill&) = delete;
    ListFill& operator=(const ListFill&) = delete;

  private:
    ctlAccountList& list_;
};

class Hourglass {
  public:
    explicit Hourglass(Form& form) : form_(form), before_(form.Pointer()) { form_.Pointer(MousePointer::Hourglass); }
    ~Hourglass() { form_.Pointer(before_); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

  private:
    Form& form_;
    MousePointer before_;
};

}  // namespace

AccountViews::AccountViews(AccountNumberForm& form, clsTLXAccounts& accounts, clsTLXPrefs& prefs,
                           MessageLoop& messageLoop, TraceLog& log, std::function<void(std::int32_t)> accountSelected)
    : form_(form),
      accounts_(accounts),
      prefs_(prefs),
      messageLoop_(messageLoop),
      log_(log),
      accountSelected_(std::move(accountSelected)) {
    ConnectControls();
}

void AccountViews::ConnectControls() {
    const auto handler = [this](void (AccountViews::*member)()) {
        return ErrorLoggingHandler(log_, u"frmAccountNumber", *this, member);
    };
    for (ctlAccountList* list :
         {&form_.ctlAccountListAll, &form_.ctlAccountListPreferred, &form_.ctlAccountListRecent}) {
        list->Click.Connect([this, list] { ListClicked(*list); });
    }
    form_.tabView.Click.Connect([this] { ShowTab(form_.tabView.Selected()); });
    form_.tabView.ChosenByKey.Connect([this] { FocusTab(); });
    form_.txtSearch.Change.Connect([this] { SearchChanged(); });
    form_.txtSearch.KeyDown.Connect([this](Key key, bool& swallowed) { SearchKey(key, swallowed); });
    form_.tmrSearch.Tick.Connect(handler(&AccountViews::SearchTick));
    form_.lblAddPreferred.Click.Connect(handler(&AccountViews::AddSelected));
    form_.lblRemovePreferred.Click.Connect(handler(&AccountViews::RemoveSelected));
    form_.lblMoveUp.Click.Connect(handler(&AccountViews::MoveUp));
    form_.lblMoveDown.Click.Connect(handler(&AccountViews::MoveDown));
}

bool AccountViews::LoadAccounts() {
    loadFailed_ = !accounts_.LoadAccounts();
    return !loadFailed_;
}

// What the dialog looks like while the all-accounts view is filled. The end of the fill restores everything, also when
// the fill was overtaken or raised an error.
class AccountViews::AllFill {
  public:
    explicit AllFill(AccountViews& views) : views_(views), form_(views.form_), number_(++views.fillNumber_) {
        form_.ctlAccountListAll.Clear();
        form_.ctlAccountListAll.Redraw(false);
        form_.prgSearch.Value(0);
        form_.prgSearch.Visible(true);
        form_.Pointer(MousePointer::Hourglass);
    }
    ~AllFill() {
        form_.ctlAccountListAll.Redraw(true);
        form_.prgSearch.Visible(false);
        form_.Pointer(MousePointer::Default);
    }
    AllFill(const AllFill&) = delete;
    AllFill& operator=(const AllFill&) = delete;

    bool Overtaken() const { return views_.fillNumber_ != number_; }

  private:
    AccountViews& views_;
    AccountNumberForm& form_;
    AccountNumberForm::HeldOK heldOK_{form_};
    std::uint32_t number_;
};

// A fill lets messages run, and what they bring decides what becomes of it. Five members tell:
// - fillNumber_ is raised by each fill as it begins. When it has changed after messages ran, a newer fill has taken the
//   view over and is complete: this one is overtaken and changes nothing any more.
// - searchAbort_ is cleared by each fill as it begins, and set by SearchChanged when the user types. This fill then
//   stops with what it has found so far, and the timer starts the next one.
// - shownAccounts_, with shownSearch_, is cleared by each fill as it begins and set at its end, unless it was overtaken
//   or aborted. Nothing is filled again while the view already shows these accounts for this search (AllIsShown).
// - heldOK_ of the form counts the reasons for which OK is disabled: each running fill is one, and frmAccountNumber
//   adds one while it prepares the dialog for a job.
// - offer_ of frmAccountNumber counts the showings of the dialog. Whoever has the dialog filled for a job looks at it
//   afterwards, since the job may have been answered meanwhile.
void AccountViews::FillAll() {
    const std::shared_ptr<const AccountTable> accounts = accounts_.Table();
    shownAccounts_.reset();
    {
        const AllFill fill(*this);
        searchAbort_ = false;
        AddGroups(fill, accounts);
        if (fill.Overtaken()) {
            return;
        }
    }
    if (!searchAbort_) {
        shownAccounts_ = accounts;
        shownSearch_ = form_.txtSearch.Text();
    }
    form_.ctlAccountListAll.SelectedID(prefs_.GetLastSelectedAccount());
}

void AccountViews::AddGroups(const AllFill& fill, const std::shared_ptr<const AccountTable>& accounts) {
    std::u16string text = form_.txtSearch.Text();
    AccountSearch search(accounts, text);
    form_.prgSearch.Maximum(static_cast<int>(accounts->GroupCount()));
    std::int32_t count = 0;
    for (std::size_t group = 0; group < accounts->GroupCount(); ++group) {
        if (form_.txtSearch.Text() != text) {
            text = form_.txtSearch.Text();
            search = AccountSearch(accounts, text);
        }
        for (const std::uint32_t number : search.Shown(group)) {
            form_.ctlAccountListAll.AddAccount(accounts->Fields(number));
        }
        ++count;
        if (count > form_.prgSearch.Value()) {
            form_.prgSearch.Value(count);
        }
        if (searchAbort_) {
            return;
        }
        if (count % groupsBetweenMessages == 0) {
            messageLoop_.RunPendingOften();
            if (fill.Overtaken()) {
                return;
            }
        }
    }
}

void AccountViews::FillPreferred() {
    const AccountDictionary accounts = accounts_.AccountDict();
    ctlAccountList& list = form_.ctlAccountListPreferred;
    std::set<std::int32_t> gone;
    {
        const ListFill fill(list);
        for (const Variant& id : prefs_.Preferred()->Items()) {
            if (const std::shared_ptr<const clsAccount> account = accounts.Find(id.Integer())) {
                list.AddAccount(*account);
            } else if (accounts.Count() != 0 && !loadFailed_) {
                // When the list could not be read to its end, an account that is not in it may still exist.
                gone.insert(id.Integer());
            }
        }
    }
    prefs_.RemovePreferred(gone);
    list.SelectedID(prefs_.GetLastSelectedAccount());
}

void AccountViews::FillRecent() {
    const AccountDictionary accounts = accounts_.AccountDict();
    ctlAccountList& list = form_.ctlAccountListRecent;
    {
        const ListFill fill(list);
        const std::vector<Variant> history = prefs_.History()->Items();
        for (auto id = history.rbegin(); id != history.rend(); ++id) {
            if (const std::shared_ptr<const clsAccount> account = accounts.Find(id->Integer())) {
                list.AddAccount(*account);
            }
        }
    }
    list.SelectedID(prefs_.GetLastSelectedAccount());
}

void AccountViews::Refill() {
    if (AllIsShown()) {
        form_.ctlAccountListAll.SelectedID(prefs_.GetLastSelectedAccount());
    } else {
        FillAll();
    }
    FillPreferred();
    FillRecent();
}

void AccountViews::ShowTab(int tab) {
    form_.fraAllAccounts.Visible(tab == tabAll);
    form_.fraPreferred.Visible(tab == tabPreferred);
    form_.fraRecent.Visible(tab == tabRecent);
    ListClicked(CurrentList());
    prefs_.LastTab(static_cast<std::int16_t>(tab));
}

void AccountViews::RestoreTabAndSearch() {
    form_.tabView.Selected(prefs_.LastTab());
    // Choosing the tab that is already chosen raises no event.
    ShowTab(form_.tabView.Selected());
    if (prefs_.LastSearchRemember()) {
        form_.chkRememberSearch.Value(true);
        form_.txtSearch.Text(prefs_.LastSearchString());
    } else {
        form_.chkRememberSearch.Value(false);
        form_.txtSearch.Text(u"");
    }
}

void AccountViews::FocusTab() {
    if (form_.tabView.Selected() == tabAll) {
        form_.txtSearch.TakeFocus();
    } else {
        CurrentList().flxAccounts.TakeFocus();
    }
}

ctlAccountList& AccountViews::CurrentList() {
    switch (form_.tabView.Selected()) {
        case tabPreferred:
            return form_.ctlAccountListPreferred;
        case tabRecent:
            return form_.ctlAccountListRecent;
        default:
            return form_.ctlAccountListAll;
    }
}

bool AccountViews::AllIsShown() const {
    const std::shared_ptr<const AccountTable> shown = shownAccounts_.lock();
    return shown != nullptr && shown == accounts_.Table() && shownSearch_ == form_.txtSearch.Text();
}

void AccountViews::SearchChanged() {
    quietTicks_ = 0;
    searchPending_ = true;
    searchAbort_ = true;
    form_.tmrSearch.Enabled(true);
}

void AccountViews::SearchKey(Key key, bool& swallowed) {
    ctlAccountList& list = form_.ctlAccountListAll;
    swallowed = true;
    switch (key) {
        case Key::Enter:
            quietTicks_ = quietTicksAfterEnter;
            searchPending_ = true;
            form_.tmrSearch.Enabled(true);
            break;
        case Key::Up:
            list.MoveBy(-1);
            break;
        case Key::Down:
            list.MoveBy(1);
            break;
        case Key::PageUp:
            list.MoveBy(-list.PageRows());
            break;
        case Key::PageDown:
            list.MoveBy(list.PageRows());
            break;
        case Key::ControlHome:
            list.MoveToFirst();
            break;
        case Key::ControlEnd:
            list.MoveToLast();
            break;
        case Key::Home:
        case Key::End:
            // When there is text in the box, they move its cursor.
            swallowed = form_.txtSearch.Text().empty();
            if (swallowed) {
                key == Key::Home ? list.MoveToFirst() : list.MoveToLast();
            }
            break;
        default:
            swallowed = false;
    }
}

void AccountViews::SearchTick() {
    if (!searchPending_) {
        form_.tmrSearch.Enabled(false);
        return;
    }
    if (quietTicks_ < quietTicksBeforeSearch) {
        ++quietTicks_;
        return;
    }
    searchPending_ = false;
    form_.tmrSearch.Enabled(false);
    // Another fill with the same result would only lose what the user has selected.
    if (!AllIsShown()) {
        FillAll();
    }
}

// A list that is being filled raises Click for each new row, which the user has not selected.
void AccountViews::ListClicked(ctlAccountList& list) {
    if (list.Redraw() && &list == &CurrentList()) {
        accountSelected_(list.SelectedID());
    }
}

void AccountViews::AddSelected() {
    const std::int32_t id = form_.ctlAccountListAll.SelectedID();
    if (id > 0) {
        prefs_.AddPreferred(id);
        const Hourglass hourglass(form_);
        FillPreferred();
    }
}

void AccountViews::RemoveSelected() {
    const std::int32_t id = form_.ctlAccountListPreferred.SelectedID();
    if (id > 0) {
        prefs_.RemovePreferred(id);
        const Hourglass hourglass(form_);
        FillPreferred();
    }
}

void AccountViews::MoveSelected(int direction) {
    const std::int32_t id = form_.ctlAccountListPreferred.SelectedID();
    if (id < 1) {
        return;
    }
    const std::shared_ptr<List> preferred = prefs_.Preferred();
    const std::int32_t from = preferred->Index(id);
    const std::int32_t to = from + direction;
    if (from < 0 || to < 0 || to >= preferred->Length()) {
        return;
    }
    const Variant neighbour = preferred->Item(to);
    preferred->Item(to, id);
    preferred->Item(from, neighbour);
    FillPreferred();
    form_.ctlAccountListPreferred.SelectedID(id);
}

void AccountViews::MoveUp() {
    MoveSelected(-1);
}

void AccountViews::MoveDown() {
    MoveSelected(1);
}

}  // namespace korvanta

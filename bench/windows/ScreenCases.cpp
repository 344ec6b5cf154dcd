#include "ScreenCases.h"

#include <windows.h>

#include <commctrl.h>

#include <memory>

#include "app/frmMessages.h"
#include "common/Services.h"
#include "common/Text.h"
#include "fakes/PlainTranslator.h"
#include "platform/win32/peers/WindowsPeerFactory.h"
#include "platform/win32/services/WindowsMessageLoop.h"
#include "server/clsChargeRates.h"
#include "ui/ctlAccountList.h"
#include "ui/frmAccountNumber.h"

namespace korvanta::bench {

namespace {

constexpr int pages = 50;

class QuietLog : public TraceLog, public ErrorReports {
  public:
    void Log(const std::u16string& /*text*/) override {}
    void Message(const std::u16string& /*message*/) override {}
};

class NoSetupFile : public SetupFile {
  public:
    std::u16string UserDBPath() override { return {}; }
    bool ShowOnStartup() override { return true; }
    bool ShowLink() override { return true; }
    std::u16string LinkName() override { return {}; }
    std::u16string LinkPath() override { return {}; }
    std::u16string TLXPrimaryServer() override { return {}; }
};

class ListForm : public Form {
  public:
    explicit ListForm(Translator& translator) : Form(u"frmBench"), list(u"ctlList", translator) {
        ClientSize(6000, 4500);
        Add(list);
        list.Move({0, 0, 6000, 4500});
    }
    ctlAccountList list;
};

clsAccount Account(int number) {
    clsAccount account;
    account.AccountID = 1000 + number;
    account.IsMain = number % 5 == 0;
    account.MainTitle = u"A client of ours (" + NumberText(number / 5) + u")";
    account.SubTitle = account.IsMain ? u"" : u"Matter " + NumberText(number);
    account.IsActive = true;
    return account;
}

// A list view as it comes, beside the product's in the same form.
class PlainList {
  public:
    explicit PlainList(HWND parent)
        : window_(CreateWindowW(WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0, 400, 300, parent, nullptr,
                                nullptr, nullptr)) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH | LVCF_SUBITEM;
        for (column.iSubItem = 0; column.iSubItem < 2; ++column.iSubItem) {
            column.cx = 150;
            SendMessageW(window_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column.iSubItem),
                         reinterpret_cast<LPARAM>(&column));
        }
    }
    PlainList(const PlainList&) = delete;
    PlainList& operator=(const PlainList&) = delete;
    ~PlainList() { DestroyWindow(window_); }

    HWND Window() const { return window_; }
    void Fill(const std::vector<clsAccount>& accounts) const {
        SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
        SendMessageW(window_, LVM_DELETEALLITEMS, 0, 0);
        for (std::size_t i = 0; i < accounts.size(); ++i) {
            const clsAccount& account = accounts[i];
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(i);
            SetText(item, account.IsMain ? account.MainTitle : account.SubTitle);
            SendMessageW(window_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
            item.iSubItem = 1;
            const std::u16string id = NumberText(account.AccountID);
            SetText(item, id);
            SendMessageW(window_, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        Count(window_);
    }

    // What is asked of a list has been taken over by it. That it is painted, once and a page of it, is the same for
    // all.
    static void Count(HWND window) { SendMessageW(window, LVM_GETITEMCOUNT, 0, 0); }
    static void Page(HWND window) {
        SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
        for (int page = 0; page < pages; ++page) {
            SendMessageW(window, WM_VSCROLL, SB_PAGEDOWN, 0);
            UpdateWindow(window);
        }
    }

  private:
    static void SetText(LVITEMW& item, const std::u16string& text) {
        item.pszText = reinterpret_cast<wchar_t*>(const_cast<char16_t*>(text.c_str()));
    }

    HWND window_;
};

struct GridState {
    GridState(WindowsPlatform& windows, int count)
        : factory(MakeWindowsPeerFactory(windows.Loop(), windows.Dialogs(), windows.DialogFonts(), windows.BoxGuard())),
          form(translator) {
        for (int number = 0; number < count; ++number) {
            accounts.push_back(Account(number));
        }
        form.Load(factory.get());
        form.Show();
        const auto window = reinterpret_cast<HWND>(form.Window());
        EnumChildWindows(window, &TakeListView, reinterpret_cast<LPARAM>(&ours));
        plain = std::make_unique<PlainList>(window);
        windows.Services().messageLoop.RunPending();
    }
    ~GridState() {
        plain.reset();
        form.Detach();
    }
    static BOOL CALLBACK TakeListView(HWND child, LPARAM parameter) {
        if (SendMessageW(child, LVM_GETHEADER, 0, 0) == 0) {
            return TRUE;
        }
        *reinterpret_cast<HWND*>(parameter) = child;
        return FALSE;
    }
    void Fill() {
        form.list.Clear();
        form.list.Redraw(false);
        for (const clsAccount& account : accounts) {
            form.list.AddAccount(account);
        }
        form.list.Redraw(true);
        PlainList::Count(ours);
    }

    fakes::PlainTranslator translator;
    std::unique_ptr<PeerFactory> factory;
    ListForm form;
    std::unique_ptr<PlainList> plain;
    HWND ours = nullptr;
    std::vector<clsAccount> accounts;
};

// The dialog as the program puts it together, shown for a job.
struct DialogState {
    explicit DialogState(WindowsPlatform& windows)
        : platform(windows.Services()),
          factory(MakeWindowsPeerFactory(windows.Loop(), windows.Dialogs(), windows.DialogFonts(), windows.BoxGuard())),
          messages(translator),
          registrySettings(platform.registry, setupFile, log),
          rates(std::make_shared<clsChargeRates>(platform.mutexes, platform.clock)),
          accounts(platform.files, platform.mutexes, log, u"BENCH"),
          prefs(platform.files, platform.mutexes, u"BENCH", u"bench"),
          dialog(AccountDialogServices{.platform = platform,
                                       .log = log,
                                       .errorReports = log,
                                       .messages = messages,
                                       .translator = translator,
                                       .registrySettings = registrySettings,
                                       .settings = settings,
                                       .accounts = accounts,
                                       .prefs = prefs,
                                       .chargeRates = [this] { return rates; },
                                       .cancelPrintJob = [](const clsJobInfo&) { return true; }}) {
        dialog.Load(factory.get());
        dialog.PreLoadAccounts();
        auto job = std::make_shared<clsJobInfo>();
        job->FullPrinterName = u"\\\\BENCH\\Laser";
        dialog.AddJob(job);
        dialog.tmrMonitor.HandleTick();
        dialog.tmrMonitor.Enabled(false);
        Settle();
    }
    ~DialogState() { dialog.Detach(); }

    void Type(const std::u16string& text) {
        dialog.txtSearch.Text(text);
        for (int tick = 1; tick < 7; ++tick) {
            dialog.tmrSearch.HandleTick();
        }
    }
    void Tick() { dialog.tmrSearch.HandleTick(); }
    // Until everything is painted.
    void Settle() {
        platform.messageLoop.RunPending();
        UpdateWindow(reinterpret_cast<HWND>(dialog.Window()));
    }

    QuietLog log;
    NoSetupFile setupFile;
    Platform& platform;
    std::unique_ptr<PeerFactory> factory;
    fakes::PlainTranslator translator;
    frmMessages messages;
    clsRegSettings registrySettings;
    clsClientSettings settings;
    std::shared_ptr<clsChargeRates> rates;
    clsTLXAccounts accounts;
    clsTLXPrefs prefs;
    frmAccountNumber dialog;
};

Case KeystrokeCase(const std::shared_ptr<DialogState>& state, int count, const char* name, const std::u16string& text,
                   const std::u16string& before, bool painted = false) {
    Case row;
    row.name = name;
    row.count = count;
    row.repeats = false;
    // The least of them counts: enough that the machine has nothing else to do in one of them.
    row.rounds = 25;
    row.between = [state, text, before] {
        state->Type(before);
        state->Tick();
        state->Settle();
        state->Type(text);
    };
    row.ours = [state, painted] {
        state->Tick();
        if (painted) {
            state->Settle();
        }
    };
    return row;
}

}  // namespace

std::vector<Case> GridCases(WindowsPlatform& windows, int count) {
    const auto state = std::make_shared<GridState>(windows, count);
    // Row by row a list view takes a hundred thousand rows in half a minute, and more in hours.
    const bool comparable = count <= 100'000;
    Case fill{"grid, fill", count, [state] { state->Fill(); }, nullptr};
    Case page{"grid, page", count, [state] { PlainList::Page(state->ours); }, nullptr};
    if (comparable) {
        fill.bare = [state] { state->plain->Fill(state->accounts); };
        page.bare = [state] { PlainList::Page(state->plain->Window()); };
    }
    fill.repeats = false;
    page.repeats = false;
    fill.bareRounds = count >= 50'000 ? 1 : fill.rounds;
    return {fill, page};
}

std::vector<Case> KeystrokeCases(WindowsPlatform& windows, int count) {
    const auto state = std::make_shared<DialogState>(windows);
    return {KeystrokeCase(state, count, "keystroke, no hit", u"quartz", u""),
            KeystrokeCase(state, count, "keystroke, many hits", u"ar", u"quartz"),
            KeystrokeCase(state, count, "keystroke, all", u"", u"quartz"),
            KeystrokeCase(state, count, "painted, all", u"", u"quartz", true)};
}

}  // namespace korvanta::bench

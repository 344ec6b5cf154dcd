#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "app/frmMessages.h"
#include "common/Deployment.h"
#include "common/Text.h"
#include "fakes/FakeErrorReports.h"
#include "fakes/FakePeers.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSetupFile.h"
#include "fakes/FakeTraceLog.h"
#include "fakes/PlainTranslator.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "ui/frmAccountNumber.h"

namespace korvanta {

// The account selection dialog, loaded, on a server SRV with its shares and a printer's server PRINTSRV.
//
// Accounts: 1 Sales with 11 North and 12 South; 2 Research with 21 Probes; 3 Closed, which is not active; 4 Legal,
// which takes a comment; 5 Audit, which requires one; 6 Board, which must be invoiced.
class DialogFixture : public testing::Test {
  protected:
    using Lines = std::vector<std::u16string>;

    static constexpr const char16_t* accountsFile = u"\\\\SRV\\TLXData$\\Accounts.txt";
    static constexpr const char16_t* prefsFile = u"\\\\SRV\\TLXPrefs$\\jsmith.txt";
    static constexpr const char16_t* localPrefsFile = u"C:\\Temp\\tlxpref.txt";
    static constexpr const char16_t* notifications = u"\\\\PRINTSRV\\TLXActN$";
    static constexpr const char16_t* title = u"Korvanta Client - Account Tracking";

    DialogFixture() {
        files.AddFolder(u"\\\\SRV\\TLXData$");
        files.AddFolder(u"\\\\SRV\\TLXPrefs$");
        files.AddFolder(notifications);
        WriteAccounts(StandardAccounts());
        rates->Add(u"Night", 150.5);
        rates->Add(u"Charity", 0.25);
    }
    ~DialogFixture() override {
        EXPECT_EQ(files.OpenFiles(), 0) << "a file was left open";
        if (dialog_) {
            dialog_->Detach();
        }
    }

    static std::u16string Main(std::int32_t id, const std::u16string& mainTitle, bool active = true,
                               bool optional = true, std::int16_t comment = 0) {
        return clsAccount::GenerateStringForm(id, true, mainTitle, u"", active, optional, comment, u"");
    }
    static std::u16string Sub(std::int32_t id, const std::u16string& mainTitle, const std::u16string& subTitle,
                              bool active = true) {
        return clsAccount::GenerateStringForm(id, false, mainTitle, subTitle, active, true, 0, u"");
    }
    static Lines StandardAccounts() {
        return {Main(1, u"Sales"),
                Sub(11, u"Sales", u"North"),
                Sub(12, u"Sales", u"South"),
                Main(2, u"Research"),
                Sub(21, u"Research", u"Probes"),
                Main(3, u"Closed", false),
                Main(4, u"Legal", true, true, 1),
                Main(5, u"Audit", true, true, 2),
                Main(6, u"Board", true, false)};
    }
    // Many main accounts "Account 1000", "Account 1001", ... each with one sub-account.
    static Lines ManyAccounts(std::int32_t groups) {
        Lines lines;
        for (std::int32_t i = 0; i < groups; ++i) {
            const std::u16string name = u"Account " + NumberText(1000 + i);
            lines.push_back(Main(1000 + i, name));
            lines.push_back(Sub(1'000'000 + i, name, u"Matter " + NumberText(i)));
        }
        return lines;
    }
    void WriteAccounts(const Lines& lines) {
        clock.AdvanceSeconds(60);  // another modification time than before
        std::u16string text;
        for (const std::u16string& line : lines) {
            text += line + u"\r\n";
        }
        files.WriteUtf16(accountsFile, text);
    }
    void RememberSettings() { platform.registry.Put(registrySubKey, u"TLXClientRemembersSettings", 1); }

    // The dialog is made at its first use, so that a test can set up what it finds.
    frmAccountNumber& Dialog() {
        if (!dialog_) {
            prefs_ = std::make_unique<clsTLXPrefs>(files, platform.mutexes, u"SRV", u"jsmith");
            accounts_ = std::make_unique<clsTLXAccounts>(files, platform.mutexes, log, u"SRV");
            dialog_ = std::make_unique<frmAccountNumber>(
                AccountDialogServices{.platform = platform.platform,
                                      .log = log,
                                      .errorReports = reports,
                                      .messages = messages,
                                      .translator = *translation,
                                      .registrySettings = registrySettings,
                                      .settings = settings,
                                      .accounts = *accounts_,
                                      .prefs = *prefs_,
                                      .chargeRates = [this] { return rates; },
                                      .cancelPrintJob = [this](const clsJobInfo& job) { return CancelPrintJob(job); },
                                      .testMode = testMode});
            dialog_->Load(&peers);
        }
        return *dialog_;
    }
    clsTLXPrefs& Prefs() {
        Dialog();
        return *prefs_;
    }
    clsTLXAccounts& Accounts() {
        Dialog();
        return *accounts_;
    }

    static std::shared_ptr<clsJobInfo> Job(std::int32_t id, const std::u16string& document = u"Letter") {
        auto job = std::make_shared<clsJobInfo>();
        job->JobID = id;
        job->MachineName = u"WS17";
        job->PrinterName = u"Laser";
        job->UserName = u"jsmith";
        job->Document = document;
        job->FullPrinterName = u"\\\\PRINTSRV\\Laser";
        job->PrinterHandle = 77;
        return job;
    }
    void MonitorTick() { Dialog().tmrMonitor.HandleTick(); }
    void SearchTicks(int count) {
        for (int i = 0; i < count; ++i) {
            Dialog().tmrSearch.HandleTick();
        }
    }
    // A job that the dialog now asks about.
    void Offer(std::int32_t id, const std::u16string& document = u"Letter") {
        Dialog().AddJob(Job(id, document));
        MonitorTick();
    }
    void Select(ctlAccountList& list, std::int32_t accountId) {
        for (int row = 1; row < list.flxAccounts.Rows(); ++row) {
            if (list.flxAccounts.Text(row, 2) == NumberText(accountId)) {
                list.flxAccounts.HandleRow(row);
                list.flxAccounts.HandleClick();
                return;
            }
        }
        ADD_FAILURE() << "account " << accountId << " is not listed";
    }
    void SelectAll(std::int32_t accountId) { Select(Dialog().ctlAccountListAll, accountId); }
    void PressOK() { Dialog().cmdOK.HandleClick(); }
    void PressCancel() { Dialog().cmdCancel.HandleClick(); }
    void Type(const std::u16string& text) { Dialog().txtSearch.HandleChange(text); }

    static std::vector<std::int32_t> Ids(const ctlAccountList& list) {
        std::vector<std::int32_t> ids;
        for (int row = 1; row < list.flxAccounts.Rows(); ++row) {
            ids.push_back(
                std::stoi(std::string(list.flxAccounts.Text(row, 2).begin(), list.flxAccounts.Text(row, 2).end())));
        }
        return ids;
    }
    std::vector<std::int32_t> AllIds() { return Ids(Dialog().ctlAccountListAll); }
    static std::vector<std::int32_t> Numbers(const List& list) {
        std::vector<std::int32_t> numbers;
        for (const Variant& item : list.Items()) {
            numbers.push_back(item.Integer());
        }
        return numbers;
    }

    static std::u16string NotificationPath(std::int32_t id) {
        return std::u16string(notifications) + u"\\WS17.77." + NumberText(id) + u".tlx";
    }
    bool Notified(std::int32_t id) { return files.Has(NotificationPath(id)); }
    // Lines of the notification; they are numbered from 1, as line 0 here is empty.
    Lines Notification(std::int32_t id) {
        Lines lines = Split(files.ReadUtf16(NotificationPath(id)), u"\r\n");
        lines.insert(lines.begin(), u"");
        lines.resize(std::max<std::size_t>(lines.size(), 15));
        return lines;
    }
    std::size_t NotificationCount() { return files.FilesIn(notifications).size(); }

    // What must hold whenever no handler runs.
    void ExpectWhole() {
        frmAccountNumber& dialog = Dialog();
        EXPECT_TRUE(dialog.cmdOK.Enabled());
        EXPECT_TRUE(dialog.cmdCancel.Enabled());
        EXPECT_EQ(dialog.Pointer(), MousePointer::Default);
        EXPECT_FALSE(dialog.prgSearch.Visible());
        for (const ctlAccountList* list :
             {&dialog.ctlAccountListAll, &dialog.ctlAccountListPreferred, &dialog.ctlAccountListRecent}) {
            EXPECT_TRUE(list->Redraw());
        }
        EXPECT_EQ(dialog.fraAllAccounts.Visible() + dialog.fraPreferred.Visible() + dialog.fraRecent.Visible(), 1);
        EXPECT_EQ(platform.messageLoop.depth, 0);
        EXPECT_EQ(platform.messageBoxes.open, 0);
    }
    std::u16string Text(const char16_t* label) { return messages.Text(label); }
    std::vector<std::u16string> BoxTexts() const {
        std::vector<std::u16string> texts;
        for (const auto& box : platform.messageBoxes.shown) {
            texts.push_back(box.text);
        }
        return texts;
    }

    bool CancelPrintJob(const clsJobInfo& job) {
        cancelled.push_back(job.JobID);
        if (onCancel) {
            onCancel();
        }
        return cancelSucceeds;
    }

    fakes::FakePlatform platform;
    fakes::FakeFileSystem& files = platform.files;
    fakes::FakeClock& clock = platform.clock;
    fakes::FakePeers peers;
    fakes::FakeTraceLog log;
    fakes::FakeErrorReports reports;
    fakes::FakeSetupFile setupFile;
    fakes::PlainTranslator translator;
    Translator* translation = &translator;  // the dialog's
    frmMessages messages{translator};
    clsRegSettings registrySettings{platform.registry, setupFile, reports};
    clsClientSettings settings;
    // "Default" with 100, "Night" with 150.5 and "Charity" with 0.25.
    std::shared_ptr<clsChargeRates> rates = std::make_shared<clsChargeRates>(platform.mutexes, platform.clock);
    bool testMode = false;
    bool cancelSucceeds = true;
    std::function<void()> onCancel;  // called while a job is deleted
    std::vector<std::int32_t> cancelled;

  private:
    std::unique_ptr<clsTLXPrefs> prefs_;
    std::unique_ptr<clsTLXAccounts> accounts_;
    std::unique_ptr<frmAccountNumber> dialog_;
};

}  // namespace korvanta

#include "SystemTest.h"

#include <algorithm>
#include <stdexcept>

#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace message {
const std::wstring title = L"Korvanta Client - Account Tracking";
const std::wstring alreadyRunning = L"The Korvanta Costbridge Client is already running.";
const std::wstring accountNotActive =
    L"The selected account is not active (billable). Please select an active account.";
const std::wstring notificationError =
    L"Korvanta was unable to notify the print server of your account. The server may be down, or misconfigured. Please "
    L"report this to your system administrator. Your print job will be cancelled.";
const std::wstring selectAccount = L"Please select an account from the list.";
const std::wstring accountListError =
    L"Korvanta was unable to find the list of accounts. This is due to the print server being down, or being "
    L"incorrectly configured. Please report this to your system administrator. Your print job will be cancelled.";
const std::wstring notificationCreationError =
    L"Korvanta was unable to create files in the notification share on the Korvanta server. The server may be down, or "
    L"may be incorrectly configured. Please report this error to your system administrator. You will not be able to "
    L"print documents to monitored printers until this problem is rectified.";
const std::wstring jobCancelError =
    L"The print job could not be cancelled. It is possible that a printing error has occurred, or that you do not have "
    L"permissions to delete the job. Please ensure that the job is deleted by deleting it manually, or contact your "
    L"system administrator.";
const std::wstring primaryServerError =
    L"The Primary Korvanta server could not be contacted. This could mean that the server name has been incorrectly "
    L"typed, is currently down, or is not set up properly. Please double-check the server name and try again, or "
    L"contact your system administrator.";
const std::wstring primaryServerUnknown =
    L"Korvanta needs to know the name of the Primary Korvanta server. You will not be able to print documents to "
    L"monitored printers until this problem is rectified. Please contact your system administrator for help.";
const std::wstring enterPrimaryServer = L"Please enter the name of the Primary Korvanta server.";
}  // namespace message

namespace {

std::wstring Required(const wchar_t* name) {
    wchar_t value[1024];
    if (GetEnvironmentVariableW(name, value, 1024) == 0) {
        throw std::runtime_error("the variable " + driver::Utf8Bytes(name) + " is not set");
    }
    return value;
}

int NextServerNumber() {
    static int number = 0;
    return ++number;
}

}  // namespace

SystemTest::SystemTest()
    : folder_(L"C:\\system-tests\\" + std::to_wstring(NextServerNumber())),
      server_(SharesFolder(), L"SRV" + folder_.substr(folder_.rfind(L'\\') + 1)) {
    driver::DeleteTree(folder_);
    driver::ClearMachineSettings();
    driver::PretendWindows98(GetEnvironmentVariableW(L"KORVANTA_WINDOWS98", nullptr, 0) != 0);
    client_ = std::make_unique<driver::Client>(Program(), folder_);
}

SystemTest::~SystemTest() {
    client_.reset();
    server_.Remove();
    driver::DeleteTree(folder_);
}

void SystemTest::TearDown() {
    if (client_->ProcessId() != 0 && !client_->Running()) {
        EXPECT_EQ(client_->ExitCode(), 0U) << "the client ended in an unusual way";
    }
}

std::wstring SystemTest::Program() {
    return Required(L"KORVANTA_CLIENT");
}

std::wstring SystemTest::SharesFolder() {
    return Required(L"KORVANTA_SHARES");
}

std::wstring SystemTest::ServerName(const std::wstring& suffix) const {
    return server_.Name() + suffix;
}

std::vector<driver::Account> SystemTest::Accounts() {
    return {
        {.id = 1, .mainTitle = L"Smith"},
        {.id = 2, .main = false, .mainTitle = L"Smith", .subTitle = L"Audit"},
        {.id = 3, .main = false, .mainTitle = L"Smith", .subTitle = L"Tax"},
        {.id = 10, .mainTitle = L"Jones"},
        {.id = 11, .main = false, .mainTitle = L"Jones", .subTitle = L"North"},
        {.id = 20, .mainTitle = L"Closed", .active = false},
        {.id = 30, .mainTitle = L"Comment needed", .requireComment = 2},
        {.id = 31, .mainTitle = L"Comment welcome", .requireComment = 1},
        {.id = 40, .mainTitle = L"Always invoiced", .allowNoninvoiceable = false},
    };
}

void SystemTest::PublishAll(const driver::ClientSettings& settings) const {
    server_.PublishAll(settings, Accounts());
    server_.WriteCounter(driver::CurrentUserLowerCase(), nextJobNumber_);
}

void SystemTest::StartMonitoring(const std::wstring& arguments) {
    driver::SetMachineSetting(L"TLXPrimaryServer", server_.Name());
    client_->Start(arguments);
    ASSERT_TRUE(client_->WaitForMonitoring());
}

driver::Job SystemTest::Announce(const std::wstring& document, int jobId) {
    return AnnounceJob({.id = jobId, .document = document});
}

driver::Job SystemTest::AnnounceJob(const driver::Job& job) {
    if (!Dialog().Visible()) {
        MarkComment();
    }
    lastJobNumber_ = nextJobNumber_;
    nextJobNumber_ = (nextJobNumber_ + 1) % 1000;
    server_.Announce(driver::CurrentUserLowerCase(), lastJobNumber_, job);
    return server_.Complete(job);
}

bool SystemTest::DialogOffers(const std::wstring& document) const {
    return client_->WaitForVisible(L"frmAccountNumber") &&
           WaitFor([&] { return DialogControl(L"lblDocument").Text() == document && DialogIsReady(); });
}

bool SystemTest::DialogIsReady() const {
    // In this order: OK can be pressed again when all else is there.
    return Dialog().Visible() && DialogControl(L"cmdOK").Enabled() && DialogControl(L"txtComment").Text().empty();
}

bool SystemTest::DialogStaysHidden() const {
    // Three beats: one to poll, one to offer, and one to spare.
    return !client_->WaitForVisible(L"frmAccountNumber", std::chrono::milliseconds(3200));
}

driver::ListWindow SystemTest::View(const std::wstring& view) const {
    return driver::ListWindow(DialogControl(L"ctlAccountList" + view).Control(L"flxAccounts"));
}

bool SystemTest::ViewShows(const std::wstring& view, const std::vector<std::wstring>& titles) const {
    return WaitFor([&] { return Titles(view) == titles; });
}

bool SystemTest::ChooseAccount(const std::wstring& title, const std::wstring& view) const {
    const driver::ListWindow list = View(view);
    int row = -1;
    return WaitFor([&] { return (row = list.FindRow(1, title)) >= 0; }) &&
           (list.ClickRow(row), WaitFor([&] { return list.SelectedRow() == row; }));
}

bool SystemTest::ShowTab(int tab) const {
    static const std::wstring frames[] = {L"fraAllAccounts", L"fraPreferred", L"fraRecent"};
    const driver::TabWindow tabs(DialogControl(L"tabView"));
    tabs.Select(tab);
    return WaitFor(
        [&] { return tabs.Selected() == tab && DialogControl(frames[static_cast<std::size_t>(tab - 1)]).Visible(); });
}

void SystemTest::PressOk() const {
    const driver::Window ok = DialogControl(L"cmdOK");
    ASSERT_TRUE(WaitFor([&] { return ok.Enabled(); }));
    MarkComment();
    ok.Click();
}

void SystemTest::PressCancel() const {
    MarkComment();
    DialogControl(L"cmdCancel").Click();
}

void SystemTest::MarkComment() const {
    const driver::Window comment = DialogControl(L"txtComment");
    if (!comment.Enabled() || !Dialog().Visible()) {
        comment.SetText(L"(left by the test)");
    }
}

void SystemTest::ExpectMessage(const std::wstring& text, int answer) const {
    const std::optional<driver::MessageWindow> box = client_->WaitForMessage();
    ASSERT_TRUE(box) << "no message box, expected: " << driver::Utf8Bytes(text);
    EXPECT_EQ(box->Text(), text);
    EXPECT_TRUE(box->Press(answer));
}

driver::Notification SystemTest::Expected(const driver::Job& job, const std::wstring& jobFile, int accountId,
                                          const std::wstring& accountTitle) const {
    driver::Notification expected = driver::Notification::For(job, jobFile);
    expected.accountId = accountId;
    expected.accountTitle = accountTitle;
    expected.invoiceable = true;
    const driver::ComboWindow rates(DialogControl(L"cboChargeRate"));
    static const std::wstring values[] = {L"100", L"0.5"};
    const int selected = rates.Selected();
    if (selected >= 0) {
        expected.chargeRate = rates.Items()[static_cast<std::size_t>(selected)];
        expected.chargeRateValue = values[selected];
    } else {
        expected.chargeRateValue = L"0";
    }
    return expected;
}

void SystemTest::ExpectNotification(const driver::Notification& expected) const {
    ExpectNotification(expected, server_);
}

void SystemTest::ExpectNotification(const driver::Notification& expected, const driver::PrintServer& server) const {
    const std::string bytes = driver::Utf16Bytes(expected.Text());
    const std::wstring path = server.NotificationFolder() + L"\\" + expected.FileName();
    std::optional<std::string> found;
    WaitFor([&] { return (found = driver::TryReadBytes(path)) == bytes; });
    ASSERT_TRUE(found) << "no notification " << driver::Utf8Bytes(path);
    EXPECT_EQ(driver::Utf16Text(*found), expected.Text());
    EXPECT_EQ(*found, bytes);
}

void SystemTest::RefreshEverything() const {
    // Two refreshes in one second show the same time, so that only a text of the test's own tells the second.
    const driver::Window result = Status(L"lblFullRefreshResult");
    result.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"(not yet)"));
    Status(L"cmdRefresh").Click();
    EXPECT_TRUE(WaitFor([&] { return result.Text() == L"Completed."; })) << "the full refresh did not complete";
}

void SystemTest::CloseFromTaskManager() const {
    client_->Form(L"frmMain").Post(WM_CLOSE);
    const std::optional<driver::MessageWindow> box = client_->WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->Press(driver::MessageWindow::yes));
    EXPECT_TRUE(client_->WaitForEnd());
}

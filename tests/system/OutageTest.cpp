// Servers that go away and come back, and servers that publish nonsense.

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

driver::ClientSettings Hurried() {
    return {.serverHealthTestInterval = 2, .printerListRefreshInterval = 2, .serverDownFullRefreshInterval = 2};
}

class OutageTest : public SystemTest {
  protected:
    driver::ListWindow Printers() const { return driver::ListWindow(Status(L"lvwPrinters")); }
    std::wstring PrinterName() const { return L"\\\\" + ServerName() + L"\\Laser"; }
    bool PrinterIsWatched() const {
        return WaitFor([&] { return Printers().FindRow(0, PrinterName()) == 0 && Printers().Picture(0) == 1; });
    }
    bool PrinterHasFailed() const {
        return WaitFor([&] { return Printers().FindRow(0, PrinterName()) == 0 && Printers().Picture(0) == 2; });
    }
};

TEST_F(OutageTest, SettingsAndAccountsOfTheLastRunServeWhileTheServerIsDown) {
    driver::ClientSettings settings = Hurried();
    settings.jobMatchMethod = 2;
    PublishAll(settings);
    StartMonitoring();
    ASSERT_TRUE(PrinterIsWatched());
    EXPECT_EQ(driver::ReadBytes(Client().TemporaryFolder() + L"\\ClientSet.txt"), driver::Utf16Bytes(settings.Text()));
    EXPECT_EQ(driver::ReadBytes(Client().TemporaryFolder() + L"\\tlxact.txt"),
              driver::ReadBytes(Server().DataFolder() + L"\\Accounts.txt"));
    ASSERT_NO_FATAL_FAILURE(CloseFromTaskManager());

    Server().Unplug();
    ASSERT_NO_FATAL_FAILURE(StartMonitoring());
    EXPECT_EQ(View(L"All").RowCount(), static_cast<int>(Accounts().size())) << "the cached accounts are listed";
    Server().PlugIn();
    // The settings of the last run make the client look again soon.
    ASSERT_TRUE(PrinterIsWatched());
    const driver::Job job = AnnounceJob({.machine = L"ANY", .document = L"Back again.doc"});
    ASSERT_TRUE(DialogOffers(L"Back again.doc"));
    ASSERT_TRUE(ChooseAccount(L"Smith"));
    const driver::Notification expected = Expected(job, LastJobFile(), 1, L"Smith");
    PressOk();
    ExpectNotification(expected);
}

TEST_F(OutageTest, JobsPrintedDuringAnOutageAreOfferedAfterIt) {
    PublishAll(Hurried());
    StartMonitoring();
    ASSERT_TRUE(PrinterIsWatched());
    Server().Unplug();
    ASSERT_TRUE(PrinterHasFailed());
    EXPECT_TRUE(Client().Answers());

    // What the server itself writes while nobody reaches it.
    const driver::PrintServer unreachable(SharesFolder(), L"unplugged-" + ServerName());
    const std::wstring user = driver::CurrentUserLowerCase();
    MarkComment();
    for (int number = 0; number < 2; ++number) {
        driver::Job job = Server().Complete({.id = number + 1, .document = L"Outage " + std::to_wstring(number)});
        unreachable.Announce(user, number, job);
    }
    NextJobNumber(2);
    Server().PlugIn();
    ASSERT_TRUE(DialogOffers(L"Outage 0"));
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"2"; }));
    EXPECT_TRUE(PrinterIsWatched());
    Announce(L"Afterwards.doc");
    EXPECT_TRUE(WaitFor([&] { return DialogControl(L"lblJobsQueued").Text() == L"3"; }));
}

TEST_F(OutageTest, AccountsOfTheLastLoadServeWhenTheListVanishes) {
    PublishAll();
    StartMonitoring();
    driver::DeleteFileIfThere(Server().DataFolder() + L"\\Accounts.txt");
    Announce(L"Cached.doc");
    ASSERT_TRUE(DialogOffers(L"Cached.doc"));
    EXPECT_EQ(View(L"All").RowCount(), static_cast<int>(Accounts().size()));
}

TEST_F(OutageTest, WithoutAnyAccountsTheJobIsCancelledWithAMessage) {
    PublishAll();
    driver::DeleteFileIfThere(Server().DataFolder() + L"\\Accounts.txt");
    StartMonitoring();
    Announce(L"Unchargeable.doc");
    ExpectMessage(message::accountListError);
    ExpectMessage(message::jobCancelError);
    EXPECT_TRUE(Client().WaitForHidden(L"frmAccountNumber"));
    EXPECT_EQ(DialogControl(L"lblJobsQueued").Text(), L"0");
    EXPECT_TRUE(DialogStaysHidden());
}

TEST_F(OutageTest, StartWithoutServerAndWithoutCopiesMonitorsAllTheSame) {
    Server().Unplug();
    StartMonitoring();
    EXPECT_TRUE(Client().Answers());
    Server().PlugIn();
    PublishAll();
    RefreshEverything();
    Announce(L"First ever.doc");
    EXPECT_TRUE(DialogOffers(L"First ever.doc"));
}

TEST_F(OutageTest, ChangedAccountsAreListedWithTheNextJob) {
    PublishAll();
    StartMonitoring();
    Announce(L"1");
    ASSERT_TRUE(DialogOffers(L"1"));
    Server().Publish(L"Accounts.txt", driver::AccountsText({{.id = 50, .mainTitle = L"Brand new"}}));
    PressCancel();
    ExpectMessage(message::jobCancelError);
    const driver::Job job = Announce(L"2", 2);
    ASSERT_TRUE(DialogOffers(L"2"));
    ASSERT_TRUE(ViewShows(L"All", {L"Brand new"}));
    const driver::Notification expected = Expected(job, LastJobFile(), 50, L"Brand new");
    ASSERT_TRUE(ChooseAccount(L"Brand new"));
    PressOk();
    ExpectNotification(expected);
}

// What a damaged or wrongly written list may look like.
std::vector<std::string> Nonsense(const std::string& good) {
    std::string binary;
    for (int i = 0; i < 20000; ++i) {
        binary.push_back(static_cast<char>(i * 7919 >> 3));
    }
    return {
        std::string(),
        std::string("\xFF\xFE"),
        std::string("\xFF"),
        // In the middle of the last record, and of a character.
        good.substr(0, good.size() - 9),
        driver::Utf8Bytes(driver::Utf16Text(good)),
        std::string("\xEF\xBB\xBF") + driver::Utf8Bytes(driver::Utf16Text(good)),
        binary,
        std::string(100000, '\0'),
        driver::Utf16Bytes(std::wstring(1000000, L'\\')),
        driver::Utf16Bytes(std::wstring(1000000, L'\x01')),
        driver::Utf16Bytes(L"\r\n\r\n\r\n"),
    };
}

using NonsenseTest = OutageTest;

TEST_F(NonsenseTest, ListsOfServersPrintersSettingsAndRatesDoNoHarm) {
    PublishAll();
    StartMonitoring();
    const std::wstring files[] = {L"Servers.txt", L"Printers.txt", L"ClientSet.txt", L"ChargeRates.txt"};
    std::vector<std::string> good;
    std::vector<std::vector<std::string>> nonsense;
    for (const std::wstring& file : files) {
        good.push_back(driver::ReadBytes(Server().DataFolder() + L"\\" + file));
        nonsense.push_back(Nonsense(good.back()));
    }
    for (std::size_t kind = 0; kind < nonsense.front().size(); ++kind) {
        for (std::size_t i = 0; i < good.size(); ++i) {
            Server().PublishBytes(files[i], nonsense[i][kind]);
        }
        RefreshEverything();
        ASSERT_TRUE(Client().Answers()) << "nonsense " << kind;
        ASSERT_TRUE(Client().Running());
    }
    for (std::size_t i = 0; i < good.size(); ++i) {
        Server().PublishBytes(files[i], good[i]);
    }
    RefreshEverything();
    Announce(L"Survivor.doc");
    EXPECT_TRUE(DialogOffers(L"Survivor.doc"));
}

TEST_F(NonsenseTest, AccountListsFallBackToTheLastGoodOne) {
    PublishAll();
    StartMonitoring();
    const std::string good = driver::ReadBytes(Server().DataFolder() + L"\\Accounts.txt");
    const std::vector<std::string> nonsense = Nonsense(good);
    driver::Job job = Announce(L"Sheet 0", 100);
    for (std::size_t kind = 0; kind < nonsense.size(); ++kind) {
        // The dialog loads the accounts each time that it is shown for a job.
        ASSERT_TRUE(DialogOffers(job.document)) << "nonsense " << kind;
        EXPECT_EQ(Titles(L"All").front(), L"Smith");
        ASSERT_TRUE(ChooseAccount(L"Smith"));
        const driver::Notification expected = Expected(job, LastJobFile(), 1, L"Smith");
        Server().PublishBytes(L"Accounts.txt", nonsense[kind]);
        const std::wstring number = std::to_wstring(kind + 1);
        job = Announce(L"Sheet " + number, 101 + static_cast<int>(kind));
        PressOk();
        ExpectNotification(expected);
    }
    ASSERT_TRUE(DialogOffers(job.document));
    EXPECT_EQ(Titles(L"All").size(), Accounts().size());
    EXPECT_TRUE(Client().Answers());
}

TEST_F(NonsenseTest, TenThousandPrintersAreListedWhileTheClientAnswers) {
    PublishAll();
    StartMonitoring();
    std::wstring printers;
    for (int i = 0; i < 10000; ++i) {
        printers += L"Printer " + std::to_wstring(i) + L"\r\n";
    }
    Server().Publish(L"Printers.txt", printers);
    Status(L"cmdRefresh").Click();
    EXPECT_TRUE(WaitFor(
        [&] {
            EXPECT_TRUE(Client().Answers());
            return Printers().RowCount() == 10000;
        },
        std::chrono::seconds(30)));
    Announce(L"Among many.doc");
    EXPECT_TRUE(DialogOffers(L"Among many.doc"));
}

}  // namespace

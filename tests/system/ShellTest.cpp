// The status form, the icon in the notification area, the logging menu, and the ways in which the program ends.

#include <algorithm>

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

const std::wstring statusForm = L"frmMain";

std::wstring ShortDate() {
    wchar_t date[80];
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date, 80);
    return date;
}

class ShellTest : public SystemTest {
  protected:
    void Start() {
        PublishAll();
        StartMonitoring();
    }
    driver::Window StatusForm() { return Client().Form(statusForm); }
    // An icon that is left behind goes when the notification area next looks after its programs, seconds later.
    void ExpectIconRemoved() const {
        EXPECT_TRUE(WaitFor([] { return !driver::NotificationAreaHasIcon(); }, std::chrono::milliseconds(1000)));
    }
    void ExpectEndAtOnce() {
        ASSERT_TRUE(WaitFor([] { return driver::NotificationAreaHasIcon(); }));
        EXPECT_TRUE(Client().EndSession());
        ASSERT_TRUE(Client().WaitForEnd(std::chrono::seconds(4)));
        EXPECT_EQ(Client().ExitCode(), 0U);
        ExpectIconRemoved();
    }
};

TEST_F(ShellTest, DoubleClickOnTheIconShowsTheStatusFormAndHidesItAgain) {
    ASSERT_NO_FATAL_FAILURE(Start());
    EXPECT_FALSE(StatusForm().Visible());
    Client().DoubleClickIcon();
    ASSERT_TRUE(Client().WaitForVisible(statusForm));
    EXPECT_TRUE(WaitFor([&] { return StatusForm().TopMost(); }));
    EXPECT_EQ(Status(L"lblJobDetectionMethod").Text(), L"File monitoring");
    EXPECT_EQ(driver::ListWindow(Status(L"lvwPrinters")).Column(0),
              std::vector<std::wstring>{L"\\\\" + ServerName() + L"\\Laser"});
    Client().DoubleClickIcon();
    EXPECT_TRUE(Client().WaitForHidden(statusForm));
    EXPECT_TRUE(Client().Running());
}

TEST_F(ShellTest, CloseButtonAndCloseBoxOnlyHideTheStatusForm) {
    ASSERT_NO_FATAL_FAILURE(Start());
    for (const bool closeBox : {false, true}) {
        Client().DoubleClickIcon();
        ASSERT_TRUE(Client().WaitForVisible(statusForm));
        if (closeBox) {
            StatusForm().Post(WM_SYSCOMMAND, SC_CLOSE);
        } else {
            Status(L"cmdClose").Click();
        }
        EXPECT_TRUE(Client().WaitForHidden(statusForm));
        EXPECT_TRUE(StatusForm().Answers());
        EXPECT_TRUE(Client().Running());
    }
    Announce(L"Still here.doc");
    EXPECT_TRUE(DialogOffers(L"Still here.doc"));
}

TEST_F(ShellTest, TaskManagerCloseAsksAndNoKeepsTheProgram) {
    ASSERT_NO_FATAL_FAILURE(Start());
    StatusForm().Post(WM_CLOSE);
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Title(), L"Close Korvanta?");
    EXPECT_EQ(box->Text(),
              L"Closing Korvanta will mean that you will not be able to print documents to monitored printers. Are you "
              L"sure you want to close the application?");
    EXPECT_EQ(box->Buttons(), (std::vector<int>{driver::MessageWindow::yes, driver::MessageWindow::no}));
    EXPECT_TRUE(box->Press(driver::MessageWindow::no));
    EXPECT_TRUE(StatusForm().Answers());
    EXPECT_TRUE(Client().Running());
    Announce(L"Kept.doc");
    EXPECT_TRUE(DialogOffers(L"Kept.doc"));
}

TEST_F(ShellTest, ClosingEveryWindowOfTheProgramAsksAndNoKeepsTheProgram) {
    ASSERT_NO_FATAL_FAILURE(Start());
    for (const driver::Window& window : driver::TopLevelWindows(Client().ProcessId(), L"")) {
        window.Post(WM_CLOSE);
    }
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Title(), L"Close Korvanta?");
    EXPECT_TRUE(box->Press(driver::MessageWindow::no));
    EXPECT_TRUE(StatusForm().Answers());
    Announce(L"Kept.doc");
    EXPECT_TRUE(DialogOffers(L"Kept.doc"));
    Client().DoubleClickIcon();
    EXPECT_TRUE(Client().WaitForVisible(statusForm));
}

TEST_F(ShellTest, TaskManagerCloseEndsTheProgramOnYes) {
    ASSERT_NO_FATAL_FAILURE(Start());
    ASSERT_NO_FATAL_FAILURE(CloseFromTaskManager());
    EXPECT_EQ(Client().ExitCode(), 0U);
    ExpectIconRemoved();
}

TEST_F(ShellTest, SessionEndWhileAJobIsOfferedEndsTheProgramAtOnce) {
    ASSERT_NO_FATAL_FAILURE(Start());
    Announce(L"Late.doc");
    ASSERT_TRUE(DialogOffers(L"Late.doc"));
    ExpectEndAtOnce();
}

TEST_F(ShellTest, SessionEndWhileAMessageBoxIsOpenEndsTheProgramAtOnce) {
    ASSERT_NO_FATAL_FAILURE(Start());
    Announce(L"Late.doc");
    ASSERT_TRUE(DialogOffers(L"Late.doc"));
    ASSERT_TRUE(ChooseAccount(L"Closed"));
    PressOk();
    ASSERT_TRUE(Client().WaitForMessage());
    ExpectEndAtOnce();
    EXPECT_TRUE(Server().NotificationNames().empty());
}

TEST_F(ShellTest, RefreshRunsAFullRefreshThatSeesNewPrinters) {
    ASSERT_NO_FATAL_FAILURE(Start());
    Server().Publish(L"Printers.txt", L"Laser\r\n\\\\OTHER\\Colour\r\n\r\n");
    RefreshEverything();
    EXPECT_EQ(driver::ListWindow(Status(L"lvwPrinters")).Column(0),
              (std::vector<std::wstring>{L"\\\\" + ServerName() + L"\\Laser", L"\\\\OTHER\\Colour"}));
}

TEST_F(ShellTest, AdvancedStatusMakesTheFormTallerWhenConfirmed) {
    ASSERT_NO_FATAL_FAILURE(Start());
    Client().DoubleClickIcon();
    ASSERT_TRUE(Client().WaitForVisible(statusForm));
    const auto height = [&] { return StatusForm().Rectangle().bottom - StatusForm().Rectangle().top; };
    const LONG before = height();
    const std::wstring question =
        L"This will show you the advanced display. Only do this for debugging purposes. Press cancel otherwise.";
    Client().ChooseMenuEntry(1);
    ExpectMessage(question, driver::MessageWindow::cancel);
    EXPECT_EQ(height(), before);
    Client().ChooseMenuEntry(1);
    ExpectMessage(question);
    EXPECT_TRUE(WaitFor([&] { return height() > before; }));
    EXPECT_NEAR(static_cast<double>(height()), 8000 / 15.0, 1);
}

class LoggingTest : public ShellTest {
  protected:
    std::wstring LogFile() { return Client().Folder() + L"\\tlxlog.txt"; }
    const std::wstring question_ = L"This will turn on logging. Only do this for debugging purposes.";
};

TEST_F(LoggingTest, NothingIsLoggedUnlessConfirmed) {
    ASSERT_NO_FATAL_FAILURE(Start());
    Client().ChooseMenuEntry(0);
    ExpectMessage(question_, driver::MessageWindow::cancel);
    RefreshEverything();
    EXPECT_FALSE(driver::FileExists(LogFile()));
}

TEST_F(LoggingTest, LinesAreAnsiWithTheDateAndTimeInFront) {
    ASSERT_NO_FATAL_FAILURE(Start());
    driver::WriteBytes(LogFile(), "an older log\r\n");
    const std::wstring dateBefore = ShortDate();
    Client().ChooseMenuEntry(0);
    ExpectMessage(question_);
    Announce(L"\u00dcbersicht.doc");
    ASSERT_TRUE(DialogOffers(L"\u00dcbersicht.doc"));
    // A refresh of the printer lists logs, and so does loading the settings again.
    RefreshEverything();
    ASSERT_NO_FATAL_FAILURE(CloseFromTaskManager());

    const std::string log = driver::ReadBytes(LogFile());
    EXPECT_EQ(log.find("older log"), std::string::npos);
    EXPECT_TRUE(log.ends_with("\r\n"));
    std::vector<std::string> texts;
    for (std::size_t start = 0, end; (end = log.find("\r\n", start)) != std::string::npos; start = end + 2) {
        const std::string line = log.substr(start, end - start);
        const std::string date =
            driver::AnsiBytes(line.starts_with(driver::AnsiBytes(dateBefore)) ? dateBefore : ShortDate());
        ASSERT_TRUE(line.starts_with(date + " ")) << line;
        // After the date: a time with two colons, perhaps AM or PM, then the text.
        const std::size_t seconds = line.find(':', line.find(':') + 1);
        ASSERT_NE(seconds, std::string::npos) << line;
        std::string text = line.substr(seconds + 3);
        for (const char* half : {" AM", " PM"}) {
            if (text.starts_with(half)) {
                text.erase(0, 3);
            }
        }
        ASSERT_TRUE(text.starts_with(" ")) << line;
        texts.push_back(text.substr(1));
    }
    const auto logged = [&](const std::string& text) {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    };
    EXPECT_TRUE(logged(driver::AnsiBytes(L"Adding Job to pending list: \u00dcbersicht.doc,Laser")));
    EXPECT_TRUE(logged("Match method User and Machine"));
    EXPECT_TRUE(logged("Match result: True"));
    EXPECT_TRUE(logged("Loading client settings ..."));
    EXPECT_TRUE(logged("Loading charge rates ..."));
    EXPECT_TRUE(logged("Refreshing printer lists"));
    EXPECT_TRUE(logged("Printer List Changed? False"));
    EXPECT_TRUE(logged("clsJobDetectionFile: Finding printers"));
    EXPECT_TRUE(logged("Checking server for print jobs: " + driver::AnsiBytes(ServerName())));
}

}  // namespace

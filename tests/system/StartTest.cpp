// Starting: the second copy, finding the primary server, and asking the user for it.

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

using StartTest = SystemTest;

TEST_F(StartTest, SecondCopyIsRefusedWithAMessageAndTheFirstGoesOn) {
    PublishAll();
    StartMonitoring();
    driver::Client second(Program(), Client().Folder());
    second.Start();
    const std::optional<driver::MessageWindow> box = second.WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Text(), message::alreadyRunning);
    EXPECT_EQ(box->Title(), message::title);
    EXPECT_EQ(box->Buttons().size(), 1U);
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    ASSERT_TRUE(second.WaitForEnd());
    EXPECT_EQ(second.ExitCode(), 0U);
    EXPECT_TRUE(Client().Running());
    Announce(L"After.doc");
    EXPECT_TRUE(DialogOffers(L"After.doc"));
}

TEST_F(StartTest, StartsHidden) {
    PublishAll();
    StartMonitoring();
    for (const driver::Window& window : driver::TopLevelWindows(Client().ProcessId(), L"")) {
        EXPECT_FALSE(window.Visible() && !window.Text().empty()) << driver::Utf8Bytes(window.Text());
    }
}

TEST_F(StartTest, ServerInTheRegistryIsUsedAndTheSetUpFileNotConsulted) {
    driver::WriteBytes(Client().Folder() + L"\\setup.txt", "TLXPrimaryServer=NOWHERE\r\n");
    PublishAll();
    StartMonitoring();
    EXPECT_EQ(driver::MachineSetting(L"TLXPrimaryServer"), ServerName());
    Announce(L"Registry.doc");
    EXPECT_TRUE(DialogOffers(L"Registry.doc"));
}

TEST_F(StartTest, ServerInTheSetUpFileIsUsedAndStoredInTheRegistry) {
    PublishAll();
    driver::WriteBytes(Client().Folder() + L"\\setup.txt",
                       "ShowLink=0\r\ntlxPRIMARYserver=" + driver::AnsiBytes(ServerName()) + "\r\n");
    Client().Start();
    ASSERT_TRUE(Client().WaitForMonitoring());
    EXPECT_EQ(driver::MachineSetting(L"TLXPrimaryServer"), ServerName());
    Announce(L"Setup.doc");
    EXPECT_TRUE(DialogOffers(L"Setup.doc"));
}

class PrimaryServerTest : public SystemTest {
  protected:
    void StartWithoutServer() {
        PublishAll();
        Client().Start();
        ASSERT_TRUE(Client().WaitForVisible(L"frmPrimaryServer"));
    }
    driver::Window Asked(const std::wstring& control) { return Client().Control(L"frmPrimaryServer", control); }
    void Answer(const std::wstring& name) {
        ASSERT_TRUE(WaitFor([&] { return Asked(L"txtServer").Enabled() && Asked(L"OKButton").Enabled(); }));
        Asked(L"txtServer").SetText(name);
        Asked(L"OKButton").Click();
    }
    std::wstring ProbeFile() const {
        return Server().NotificationFolder() + L"\\" + driver::CurrentMachine() + L".tmp";
    }
};

TEST_F(PrimaryServerTest, AsksUntilTheServerServesAndStoresIt) {
    ASSERT_NO_FATAL_FAILURE(StartWithoutServer());
    EXPECT_EQ(Client().Form(L"frmPrimaryServer").Text(), L"Korvanta - Primary Server");

    ASSERT_NO_FATAL_FAILURE(Answer(L"   "));
    ExpectMessage(message::enterPrimaryServer);
    ASSERT_NO_FATAL_FAILURE(Answer(ServerName(L"NOT")));
    ExpectMessage(message::primaryServerError);

    driver::Rename(Server().NotificationFolder(), Server().NotificationFolder() + L"-off");
    ASSERT_NO_FATAL_FAILURE(Answer(ServerName()));
    ExpectMessage(message::notificationCreationError);
    EXPECT_TRUE(Client().Form(L"frmPrimaryServer").Visible());
    EXPECT_EQ(driver::MachineSetting(L"TLXPrimaryServer").value_or(L""), L"");
    driver::Rename(Server().NotificationFolder() + L"-off", Server().NotificationFolder());

    ASSERT_NO_FATAL_FAILURE(Answer(ServerName()));
    ASSERT_TRUE(Client().WaitForMonitoring());
    EXPECT_FALSE(Client().Form(L"frmPrimaryServer").Visible());
    EXPECT_EQ(driver::MachineSetting(L"TLXPrimaryServer"), ServerName());
    EXPECT_TRUE(driver::FileExists(ProbeFile())) << "the file that probed the share is left";
    Announce(L"Found.doc");
    EXPECT_TRUE(DialogOffers(L"Found.doc"));
}

TEST_F(PrimaryServerTest, CancelTellsWhatIsMissingAndEndsTheProgram) {
    ASSERT_NO_FATAL_FAILURE(StartWithoutServer());
    Asked(L"CancelButton").Click();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Text(), message::primaryServerUnknown);
    EXPECT_EQ(box->Title(), message::title);
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    ASSERT_TRUE(Client().WaitForEnd());
    EXPECT_EQ(Client().ExitCode(), 0U);
    EXPECT_EQ(driver::MachineSetting(L"TLXPrimaryServer").value_or(L""), L"");
}

TEST_F(PrimaryServerTest, CloseBoxCountsAsCancel) {
    ASSERT_NO_FATAL_FAILURE(StartWithoutServer());
    Client().Form(L"frmPrimaryServer").Post(WM_SYSCOMMAND, SC_CLOSE);
    ExpectMessage(message::primaryServerUnknown);
    EXPECT_TRUE(Client().WaitForEnd());
}

TEST_F(PrimaryServerTest, SessionMayEndWhileItAsks) {
    ASSERT_NO_FATAL_FAILURE(StartWithoutServer());
    EXPECT_TRUE(Client().EndSession());
    EXPECT_TRUE(Client().WaitForEnd());
}

}  // namespace

// Other languages than English: the shipped catalogue, one that somebody has written, and Windows 98.

#include "SystemTest.h"
#include "driver/Files.h"
#include "driver/MachineSettings.h"
#include "driver/Wait.h"

using driver::WaitFor;

namespace {

class TranslationTest : public SystemTest {
  protected:
    static void Speak(const std::wstring& language) { driver::SetMachineSetting(L"Language", language); }
    void InstallShippedCatalogue() {
        const std::wstring program = Program();
        driver::CopyOver(program.substr(0, program.rfind(L'\\')) + L"\\Korvanta.tam", Catalogue());
    }
    void WriteCatalogue(const std::wstring& text) { driver::WriteBytes(Catalogue(), driver::Utf16Bytes(text)); }
    std::wstring Catalogue() { return Client().Folder() + L"\\Korvanta.tam"; }
    // Starts it and waits until the status form says in its language that it polls.
    void StartPolling(const std::wstring& polling) {
        driver::SetMachineSetting(L"TLXPrimaryServer", ServerName());
        Client().Start();
        ASSERT_TRUE(WaitFor([&] { return Status(L"lblActivity").Text().ends_with(L" " + polling); }));
    }
};

TEST_F(TranslationTest, GermanIsSpokenInWindowsAndMessages) {
    InstallShippedCatalogue();
    Speak(L"DEU");
    PublishAll();
    ASSERT_NO_FATAL_FAILURE(StartPolling(L"Server werden abgefragt"));
    EXPECT_EQ(Status(L"cmdRefresh").Text(), L"&Aktualisieren");
    EXPECT_EQ(Status(L"cmdClose").Text(), L"S&chlie\u00DFen");
    EXPECT_EQ(Status(L"lblJobDetectionMethod").Text(), L"\u00FCber Dateien");

    Announce(L"Vertrag.doc");
    ASSERT_TRUE(DialogOffers(L"Vertrag.doc"));
    EXPECT_EQ(Dialog().Text(), L"Korvanta - Kontoauswahl");
    EXPECT_EQ(DialogControl(L"lblPrinterCaption").Text(), L"Drucker:");
    EXPECT_EQ(DialogControl(L"chkInvoice").Text(), L"Auf der &Rechnung ausweisen");
    EXPECT_EQ(DialogControl(L"cmdCancel").Text(), L"Abbrechen");
    ASSERT_TRUE(ChooseAccount(L"Closed"));
    PressOk();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Title(), L"Korvanta Client - Kontenzuordnung");
    EXPECT_EQ(
        box->Text(),
        L"Das ausgew\u00E4hlte Konto ist nicht aktiv (nicht abrechenbar). Bitte w\u00E4hlen Sie ein aktives Konto.");
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));

    Client().ChooseMenuEntry(1);
    ExpectMessage(
        L"Damit werden weitere Einzelheiten angezeigt. Tun Sie dies nur zur Fehlersuche. W\u00E4hlen Sie sonst "
        L"\"Abbrechen\".",
        driver::MessageWindow::cancel);
}

TEST_F(TranslationTest, WhatIsSentIsTheSameInEveryLanguage) {
    InstallShippedCatalogue();
    Speak(L"deu");
    PublishAll();
    ASSERT_NO_FATAL_FAILURE(StartPolling(L"Server werden abgefragt"));
    const driver::Job job = Announce(L"Vertrag.doc");
    ASSERT_TRUE(DialogOffers(L"Vertrag.doc"));
    ASSERT_TRUE(ChooseAccount(L"Audit"));
    const driver::Notification expected = Expected(job, LastJobFile(), 2, L"Smith / Audit");
    PressOk();
    ExpectNotification(expected);
}

TEST_F(TranslationTest, QuestionForTheServerIsAskedInGerman) {
    InstallShippedCatalogue();
    Speak(L"deu");
    PublishAll();
    Client().Start();
    ASSERT_TRUE(Client().WaitForVisible(L"frmPrimaryServer"));
    EXPECT_EQ(Client().Form(L"frmPrimaryServer").Text(), L"Korvanta - Prim\u00E4rer Server");
    EXPECT_EQ(Client().Control(L"frmPrimaryServer", L"lblServer").Text(), L"Prim\u00E4rer Korvanta-Server:");
    Client().Control(L"frmPrimaryServer", L"OKButton").Click();
    ExpectMessage(L"Bitte geben Sie den Namen des prim\u00E4ren Korvanta-Servers ein.");
    Client().Control(L"frmPrimaryServer", L"CancelButton").Click();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->Text().starts_with(L"Korvanta ben\u00F6tigt den Namen"));
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    EXPECT_TRUE(Client().WaitForEnd());
}

TEST_F(TranslationTest, ACatalogueOfOnesOwnCountsWhereItCanBeReadAndTheLogSaysWhereNot) {
    driver::MakeFolders(Client().Folder() + L"\\Logs");
    WriteCatalogue(
        L"; \u00E0 nous\r\n[TLXActTrkClient fra]\r\nfrmMain.cmdClose = &Fermer\r\nthis is broken\r\n"
        L"frmAccountNumber.cmdCancel = Ann\\\r\n    uler\r\nfrmMain.lblPollingServers = Question pos\u00E9e\r\n");
    Speak(L"fra");
    PublishAll();
    ASSERT_NO_FATAL_FAILURE(StartPolling(L"Question pos\u00E9e"));
    EXPECT_EQ(Status(L"cmdClose").Text(), L"&Fermer");
    EXPECT_EQ(Status(L"cmdRefresh").Text(), L"&Refresh");
    EXPECT_EQ(DialogControl(L"cmdCancel").Text(), L"Annuler");
    const std::string broken = "Korvanta.tam: line 4: neither a comment, a header nor \"name = text\"";
    EXPECT_NE(driver::ReadBytes(Client().Folder() + L"\\Logs\\event.log").find(broken), std::string::npos);

    Client().ChooseMenuEntry(0);
    ExpectMessage(L"This will turn on logging. Only do this for debugging purposes.");
    EXPECT_TRUE(WaitFor([&] {
        const std::optional<std::string> log = driver::TryReadBytes(Client().Folder() + L"\\tlxlog.txt");
        return log && log->find(broken) != std::string::npos;
    }));
}

TEST_F(TranslationTest, WithoutACatalogueOrTheLanguageItIsEnglish) {
    Speak(L"deu");
    PublishAll();
    StartMonitoring();
    EXPECT_EQ(Status(L"cmdClose").Text(), L"&Close");
    Client().Kill();
    InstallShippedCatalogue();
    Speak(L"klingon");
    StartMonitoring();
    EXPECT_EQ(Status(L"cmdClose").Text(), L"&Close");
}

TEST_F(TranslationTest, Windows98SpeaksGermanAndLivesWithLettersThatItLacks) {
    driver::PretendWindows98(true);
    InstallShippedCatalogue();
    Speak(L"deu");
    PublishAll();
    ASSERT_NO_FATAL_FAILURE(StartPolling(L"Server werden abgefragt"));
    EXPECT_EQ(Status(L"cmdClose").Text(), L"S&chlie\u00DFen");
    Client().Kill();

    std::wstring russian = L"[TLXActTrkClient rus]\r\n";
    for (const wchar_t* key :
         {L"frmMain", L"frmMain.cmdClose", L"frmMain.ctlBanner1.lblTitle", L"frmMain.lblPollingServers",
          L"frmAccountNumber", L"frmAccountNumber.tabView.1", L"frmAccountNumber.cmdCancel",
          L"ctlAccountList.lblAccount", L"frmMessages.lblAccountNotBillable"}) {
        russian += std::wstring(key) +
                   L" = \u0417\u0430\u043A\u0440\u044B\u0442\u044C \u6771\u4EAC \xD83D\xDE00 \xD83D ok\r\n";
    }
    WriteCatalogue(russian);
    Speak(L"rus");
    ASSERT_NO_FATAL_FAILURE(StartPolling(L"ok"));
    EXPECT_TRUE(Status(L"cmdClose").Text().starts_with(L"?")) << driver::Utf8Bytes(Status(L"cmdClose").Text());
    Announce(L"Letter.doc");
    ASSERT_TRUE(DialogOffers(L"Letter.doc"));
    ASSERT_TRUE(ChooseAccount(L"Closed"));
    PressOk();
    const std::optional<driver::MessageWindow> box = Client().WaitForMessage();
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->Press(driver::MessageWindow::ok));
    EXPECT_TRUE(Client().Answers());
}

}  // namespace

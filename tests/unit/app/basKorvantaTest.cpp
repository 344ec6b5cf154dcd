#include <algorithm>

#include "app/frmPrimaryServer.h"
#include "common/Deployment.h"
#include "unit/app/ProgramFixture.h"

namespace korvanta {
namespace {

class StartUpTest : public fakes::ProgramFixture {
  protected:
    void ForgetServer() { windows.registry.Put(registryKey, u"TLXPrimaryServer", std::u16string()); }
    std::size_t Asked(const std::u16string& part) const {
        return static_cast<std::size_t>(
            std::count_if(windows.files.log.begin(), windows.files.log.end(),
                          [&part](const std::u16string& line) { return line.find(part) != std::u16string::npos; }));
    }
};

TEST_F(StartUpTest, LoadsTheFormsHiddenAndStartsTheHeartbeat) {
    ASSERT_TRUE(Start());
    EXPECT_FALSE(program->MainForm()->Shown());
    EXPECT_FALSE(program->AccountDialog()->Shown());
    EXPECT_TRUE(program->MainForm()->tmrActivity.Enabled());
    EXPECT_EQ(program->PrimaryServerName(), u"SRV1");
    EXPECT_FALSE(program->TestMode());
    EXPECT_EQ(windows.system.controlsInitialized, 1);
    EXPECT_EQ(windows.system.hiddenFromTaskList, 1);
    EXPECT_EQ(windows.shell.trayIcons.size(), 1U);
    EXPECT_TRUE(windows.messageBoxes.shown.empty());
}

TEST_F(StartUpTest, SecondCopyIsToldAndNeverTouchesTheServer) {
    windows.system.claimedInstances.insert(u"KorvantaCostbridgeClient");
    EXPECT_FALSE(Start());
    ASSERT_EQ(windows.messageBoxes.shown.size(), 1U);
    const auto& box = windows.messageBoxes.shown.front();
    EXPECT_EQ(box.text, u"The Korvanta Costbridge Client is already running.");
    EXPECT_EQ(box.title, u"Korvanta Client - Account Tracking");
    EXPECT_EQ(box.buttons, MessageButtons::OK);
    EXPECT_EQ(Asked(u"SRV1"), 0U);
    EXPECT_EQ(program->MainForm(), nullptr);
}

TEST_F(StartUpTest, TestSwitchIsFoundAnywhereOnTheCommandLineWhateverItsLetterCase) {
    windows.system.commandLine = u"-x \"/TEST\"";
    ASSERT_TRUE(Start());
    EXPECT_TRUE(program->TestMode());
}

TEST_F(StartUpTest, RegistryServerLeavesTheSetUpFileUnread) {
    windows.files.WriteAnsi(programFolder + u"\\setup.txt", u"TLXPrimaryServer=OTHER\r\n");
    ASSERT_TRUE(Start());
    EXPECT_EQ(Asked(u"setup.txt"), 0U);
    EXPECT_EQ(program->PrimaryServerName(), u"SRV1");
    EXPECT_EQ(windows.registry.Text(registryKey, u"TLXPrimaryServer"), u"SRV1");
}

TEST_F(StartUpTest, SetUpFileServerIsTakenAndStoredInTheRegistry) {
    ForgetServer();
    windows.files.WriteAnsi(programFolder + u"\\setup.txt", u"TLXPrimaryServer=SRV1\r\n");
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->PrimaryServerName(), u"SRV1");
    EXPECT_EQ(windows.registry.Text(registryKey, u"TLXPrimaryServer"), u"SRV1");
}

TEST_F(StartUpTest, LockedOrBinarySetUpFileMeansThatTheServerIsAskedFor) {
    const std::u16string setupPath = programFolder + u"\\setup.txt";
    ForgetServer();
    int asked = 0;
    peers.onShowModal = [&asked](Form&) { ++asked; };
    std::string bytes;
    for (int i = 0; i < 100'000; ++i) {
        bytes += static_cast<char>(i % 251);
    }
    windows.files.WriteBytes(setupPath, bytes);
    EXPECT_FALSE(Start());
    EXPECT_EQ(asked, 1);
    windows.files.WriteAnsi(setupPath, u"TLXPrimaryServer=SRV1\r\n");
    windows.files.FailPath(setupPath, windowsError::sharingViolation);
    windows.system.claimedInstances.clear();
    EXPECT_FALSE(Start());
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(windows.registry.Text(registryKey, u"TLXPrimaryServer"), u"");
}

TEST_F(StartUpTest, ServerNamesOfAnyLengthAndLettersAreKeptAsTheyAreAndStartWithoutTheServer) {
    const std::u16string longName(260, u'x');
    for (const std::u16string& name : {longName, std::u16string(u"\"SRV 1\" %s"),
                                       std::u16string(u"B\u00FCro-\u6771\u4EAC"), std::u16string(u"a\\b/c:*?")}) {
        windows.registry.Put(registryKey, u"TLXPrimaryServer", name);
        windows.system.claimedInstances.clear();
        ASSERT_TRUE(Start());
        Tick(3);
        EXPECT_EQ(program->PrimaryServerName(), name);
        EXPECT_EQ(program->ClientSettings().ServerHealthTestInterval(), 31);
        EXPECT_TRUE(windows.messageBoxes.shown.empty());
    }
}

TEST_F(StartUpTest, ServerDialogRefusesANameLongerThanAPathAndStaysOpen) {
    ForgetServer();
    peers.onShowModal = [](Form& form) {
        auto& dialog = dynamic_cast<frmPrimaryServer&>(form);
        dialog.txtServer.HandleChange(std::u16string(260, u'x'));
        dialog.OKButton.HandleClick();
        EXPECT_TRUE(dialog.Shown());
    };
    EXPECT_FALSE(Start());
    ASSERT_EQ(windows.messageBoxes.shown.size(), 2U);
    EXPECT_TRUE(windows.messageBoxes.shown[0].text.starts_with(u"The Primary Korvanta server could not be contacted."));
}

TEST_F(StartUpTest, UnknownServerIsAskedForAndStoredAsTyped) {
    ForgetServer();
    peers.onShowModal = [](Form& form) {
        auto& dialog = dynamic_cast<frmPrimaryServer&>(form);
        dialog.txtServer.HandleChange(u"SRV1");
        dialog.OKButton.HandleClick();
        EXPECT_FALSE(dialog.Shown());
    };
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->PrimaryServerName(), u"SRV1");
    EXPECT_EQ(windows.registry.Text(registryKey, u"TLXPrimaryServer"), u"SRV1");
    EXPECT_TRUE(windows.files.Has(u"\\\\SRV1\\TLXActN$\\WS01.tmp")) << "the probe stays";
}

TEST_F(StartUpTest, CancellingTheServerDialogEndsWithItsMessage) {
    ForgetServer();
    peers.onShowModal = [](Form& form) { dynamic_cast<frmPrimaryServer&>(form).CancelButton.HandleClick(); };
    EXPECT_FALSE(Start());
    ASSERT_EQ(windows.messageBoxes.shown.size(), 1U);
    EXPECT_TRUE(windows.messageBoxes.shown[0].text.starts_with(u"Korvanta needs to know the name"));
    EXPECT_EQ(program->MainForm(), nullptr);
}

TEST_F(StartUpTest, ClosingTheServerDialogCancelsIt) {
    ForgetServer();
    peers.onShowModal = [](Form& form) {
        form.Unload(CloseReason::ControlMenu);
        EXPECT_FALSE(form.Shown());
    };
    EXPECT_FALSE(Start());
}

TEST_F(StartUpTest, SessionThatEndsWhileTheServerIsAskedForQuitsTheLoopAtOnce) {
    ForgetServer();
    peers.onShowModal = [this](Form& form) {
        EXPECT_TRUE(form.Unload(CloseReason::WindowsSession));
        EXPECT_TRUE(windows.messageLoop.quit);
    };
    EXPECT_FALSE(Start());
}

TEST_F(StartUpTest, ServerDialogOpensWithTheFocusInItsTextBox) {
    ForgetServer();
    peers.onShowModal = [this](Form& form) {
        EXPECT_EQ(peers.Of(dynamic_cast<frmPrimaryServer&>(form).txtServer).focused, 1);
    };
    EXPECT_FALSE(Start());
}

TEST_F(StartUpTest, ServerDialogRefusesBlankUnreachableAndUnwritableServersAndStaysOpen) {
    ForgetServer();
    windows.files.AddFolder(u"\\\\HALF\\TLXData$");
    windows.files.AddFolder(u"\\\\ SRV2 \\TLXData$");
    windows.files.AddFolder(u"\\\\ SRV2 \\TLXActN$");
    std::vector<std::u16string> titles;
    peers.onShowModal = [this](Form& form) {
        auto& dialog = dynamic_cast<frmPrimaryServer&>(form);
        for (const char16_t* name : {u"", u"   ", u"NOWHERE", u"HALF"}) {
            dialog.txtServer.HandleChange(name);
            dialog.OKButton.HandleClick();
            EXPECT_TRUE(dialog.Shown());
            EXPECT_FALSE(dialog.Accepted());
        }
        dialog.txtServer.HandleChange(u" SRV2 ");
        dialog.OKButton.HandleClick();
        EXPECT_TRUE(dialog.Accepted());
        dialog.CancelButton.HandleClick();
        EXPECT_FALSE(dialog.Accepted());
        dialog.OKButton.HandleClick();
    };
    ASSERT_TRUE(Start());
    ASSERT_EQ(windows.messageBoxes.shown.size(), 4U);
    EXPECT_EQ(windows.messageBoxes.shown[0].text, u"Please enter the name of the Primary Korvanta server.");
    EXPECT_NE(windows.messageBoxes.shown[0].title, u"Korvanta Client - Account Tracking");
    EXPECT_EQ(windows.messageBoxes.shown[1].text, windows.messageBoxes.shown[0].text);
    EXPECT_TRUE(windows.messageBoxes.shown[2].text.starts_with(u"The Primary Korvanta server could not be contacted."));
    EXPECT_TRUE(windows.messageBoxes.shown[3].text.starts_with(u"Korvanta was unable to create files"));
    EXPECT_EQ(windows.messageBoxes.shown[3].title, u"Korvanta Client - Account Tracking");
    EXPECT_EQ(program->PrimaryServerName(), u" SRV2 ");
    EXPECT_EQ(windows.registry.Text(registryKey, u"TLXPrimaryServer"), u" SRV2 ") << "stored with its blanks";
}

TEST_F(StartUpTest, SettingsAndRatesOfTheServerAreInForce) {
    windows.files.WriteUtf16(u"\\\\SRV1\\TLXData$\\ChargeRates.txt", u"100\u0001Standard\r\n50.5\u0001Discount\r\n");
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->ClientSettingsCachePath(), u"C:\\Temp\\ClientSet.txt");
    EXPECT_EQ(program->ClientSettings().JobMatchMethod(), 2);
    EXPECT_EQ(program->ChargeRates()->Length(), 2);
}

TEST_F(StartUpTest, DefaultsServeWhenSettingsAreNowhereAndNothingIsShown) {
    windows.files.Down(u"SRV1");
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->ClientSettings().ServerHealthTestInterval(), 31);
    EXPECT_EQ(program->ChargeRates()->Length(), 1);
    EXPECT_TRUE(windows.messageBoxes.shown.empty());
}

TEST_F(StartUpTest, UnexpectedErrorTellsItsNumberWordsSourceAndPoint) {
    windows.system.faults.FailFrom("UserName", 1, 1317);
    EXPECT_FALSE(Start());
    ASSERT_EQ(windows.messageBoxes.shown.size(), 1U);
    EXPECT_EQ(windows.messageBoxes.shown[0].text,
              std::u16string(u"An unexpected error has occurred. Please report the following message to ") +
                  supportAddress +
                  u":\r\n\r\nError -2147198283 (Unable to get user name: 1317/basComputerUtil) at point Main:5");
    EXPECT_EQ(windows.messageBoxes.shown[0].buttons, MessageButtons::OK);
}

class OrderOfCalls : public fakes::PlainTranslator {
  public:
    std::vector<std::u16string> calls;
    void SetSections(const std::vector<std::u16string>& sections) override {
        calls.push_back(u"sections " + sections.at(0));
    }
    void LoadCatalogue(const std::u16string& path) override { calls.push_back(u"load " + path); }
    void SetLanguage(const std::u16string& language) override { calls.push_back(u"language " + language); }
    void SelectSection(const std::u16string& section) override { calls.push_back(u"select " + section); }
    void Translate(Container& form) override { calls.push_back(u"translate " + form.Name()); }
};

TEST_F(StartUpTest, AFormThatGetsNoWindowEndsTheStartWithAMessage) {
    int part = 0;
    for (const char16_t* marker : {u"Main:11", u"Main:12"}) {
        const std::u16string form = part++ == 0 ? u"frmMain" : u"frmAccountNumber";
        peers.faults.onCheck = [form](std::string_view, std::u16string_view name) {
            return name == form ? std::uint32_t{8} : 0;
        };
        windows.messageBoxes.shown.clear();
        windows.system.claimedInstances.clear();
        EXPECT_FALSE(Start());
        ASSERT_EQ(windows.messageBoxes.shown.size(), 1U);
        EXPECT_TRUE(windows.messageBoxes.shown[0].text.ends_with(marker));
        program.reset();
        EXPECT_TRUE(windows.shell.trayIcons.empty());
    }
}

TEST_F(StartUpTest, TranslationIsSetUpInOrderAndEveryFormHandsItselfOver) {
    OrderOfCalls order;
    windows.registry.Put(registryKey, u"Language", std::u16string(u"ger"));
    program = std::make_unique<basKorvanta>(windows.platform, &peers, order);
    ASSERT_TRUE(program->Main());
    ASSERT_GE(order.calls.size(), 4U);
    EXPECT_EQ(std::vector<std::u16string>(order.calls.begin(), order.calls.begin() + 4),
              (std::vector<std::u16string>{u"sections TLXActTrkClient", u"load " + programFolder + u"\\Korvanta.tam",
                                           u"language ger", u"select TLXActTrkClient"}));
    for (const char16_t* name : {u"translate frmMain", u"translate frmAccountNumber", u"translate frmMessages",
                                 u"translate ctlAccountListAll"}) {
        EXPECT_EQ(std::count(order.calls.begin(), order.calls.end(), name), 1);
    }
    program.reset();
}

// Keeps the forms that were handed over.
class FormsTranslated : public fakes::PlainTranslator {
  public:
    std::map<std::u16string, Form*> forms;
    void Translate(Container& form) override { forms[form.Name()] = dynamic_cast<Form*>(&form); }
};

TEST_F(StartUpTest, MessagesFormIsLoadedFromTheStartUntilTheMainFormIsUnloaded) {
    FormsTranslated translated;
    program = std::make_unique<basKorvanta>(windows.platform, &peers, translated);
    ASSERT_TRUE(program->Main());
    const Form* messages = translated.forms.at(u"frmMessages");
    EXPECT_TRUE(messages->Loaded());
    EXPECT_FALSE(messages->Shown());
    program->MainForm()->Unload(CloseReason::WindowsSession);
    EXPECT_FALSE(messages->Loaded());
    program.reset();
}

TEST_F(StartUpTest, SessionEndUnloadsEverythingAndQuits) {
    ASSERT_TRUE(Start());
    EXPECT_TRUE(program->MainForm()->Unload(CloseReason::WindowsSession));
    EXPECT_TRUE(windows.messageLoop.quit);
    EXPECT_TRUE(windows.shell.trayIcons.empty());
    EXPECT_EQ(windows.system.sleeps, std::vector<std::uint32_t>{500});
}

}  // namespace
}  // namespace korvanta

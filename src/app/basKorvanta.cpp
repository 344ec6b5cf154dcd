#include "app/basKorvanta.h"

#include "app/basGUIAPI.h"
#include "app/frmPrimaryServer.h"
#include "common/Deployment.h"
#include "common/Text.h"
#include "detection/basPrinterUtil.h"
#include "detection/clsJobDetectionFile.h"
#include "detection/clsJobDetectionPrinter.h"

namespace korvanta {

namespace {

const char16_t* const translationSection = u"TLXActTrkClient";

}  // namespace

basKorvanta::basKorvanta(Platform& platform, PeerFactory* peers, Translator& translator)
    : platform_(platform),
      peers_(peers),
      translator_(translator),
      programFolder_(platform.system.ProgramFolder()),
      log_(platform.files, platform.codePage, platform.clock, programFolder_),
      errorLog_(platform.files, platform.codePage, platform.clock, programFolder_),
      setupFile_(platform.files, platform.codePage, programFolder_),
      registrySettings_(platform.registry, setupFile_, errorLog_),
      information_(platform.system),
      messages_(translator) {}

// Peers refer to their forms, so they are destroyed before the forms are.
basKorvanta::~basKorvanta() {
    if (mainForm_) {
        mainForm_->Detach();
    }
    if (accountDialog_) {
        accountDialog_->Detach();
    }
}

bool basKorvanta::Main() {
    try {
        return StartUp();
    } catch (const std::exception&) {
        ShowUnexpectedError(Error::Current());
        return false;
    }
}

bool basKorvanta::StartUp() {
    marker_ = u"Main:1";
    platform_.system.InitializeControls();
    marker_ = u"Main:2";
    platform_.system.HideFromTaskList();
    marker_ = u"Main:3";
    SetUpTranslation();
    marker_ = u"Main:4";
    if (RefuseSecondCopy()) {
        return false;
    }
    marker_ = u"Main:5";
    serverInterfaces_ =
        std::make_unique<clsServerInterfaces>(platform_.files, platform_.internet, platform_.messageLoop,
                                              platform_.messageBoxes, messages_, log_, FileUserName());
    marker_ = u"Main:6";
    if (!ObtainPrimaryServer()) {
        return false;
    }
    marker_ = u"Main:7";
    testMode_ = ContainsNoCase(platform_.system.CommandLine(), u"/test");
    marker_ = u"Main:8";
    serverSettings_ =
        std::make_unique<ServerSettings>(platform_, log_, information_, *serverInterfaces_, primaryServerName_);
    serverSettings_->LoadClientSettings();
    serverSettings_->LoadChargeRates();
    marker_ = u"Main:9";
    preferences_ =
        std::make_unique<clsTLXPrefs>(platform_.files, platform_.mutexes, primaryServerName_, FileUserName());
    marker_ = u"Main:9b";
    jobMatcher_ = std::make_unique<clsPrintJobMatcher>(information_, platform_.sockets, platform_.codePage,
                                                       platform_.system, serverSettings_->ClientSettings(), log_);
    marker_ = u"Main:9c";
    printersMonitored_ =
        std::make_unique<clsPrintersMonitored>(*serverInterfaces_, platform_.mutexes, log_, primaryServerName_);
    marker_ = u"Main:10";
    printersMonitored_->RefreshPrinterLists();
    marker_ = u"Main:11";
    MakeForms();
    LoadForm(*mainForm_);
    marker_ = u"Main:12";
    LoadForm(*accountDialog_);
    marker_ = u"Main:13";
    messages_.Load(nullptr);
    LogTranslationProblems();
    marker_ = u"Main:14";
    CenterForm(*mainForm_, platform_.screen);
    marker_ = u"Main:15";
    mainForm_->Start();
    marker_ = u"Main:16";
    return true;
}

void basKorvanta::SetUpTranslation() {
    translator_.SetSections({translationSection});
    translator_.LoadCatalogue(programFolder_ + u"\\" + u"Korvanta.tam");
    translator_.SetLanguage(registrySettings_.Language());
    translator_.SelectSection(translationSection);
    LogTranslationProblems();
}

// They go to the event log because the trace log is still off. frmMain repeats them when somebody turns that on.
void basKorvanta::LogTranslationProblems() {
    const std::vector<std::u16string> problems = translator_.Problems();
    for (; loggedProblems_ < problems.size(); ++loggedProblems_) {
        errorLog_.Message(problems[loggedProblems_]);
    }
}

bool basKorvanta::RefuseSecondCopy() {
    if (platform_.system.ClaimInstance(u"KorvantaCostbridgeClient")) {
        return false;
    }
    platform_.messageBoxes.Show(messages_.Text(u"lblClientAlreadyRunning"), messages_.Text(u"lblMessageBoxTitle"),
                                MessageButtons::OK, MessageIcon::None);
    return true;
}

bool basKorvanta::ObtainPrimaryServer() {
    primaryServerName_ = registrySettings_.TLXPrimaryServer();
    return !primaryServerName_.empty() || AskForPrimaryServer();
}

bool basKorvanta::AskForPrimaryServer() {
    frmPrimaryServer dialog(platform_, log_, translator_, registrySettings_, messages_, information_);
    dialog.Load(peers_);
    CenterForm(dialog, platform_.screen);
    dialog.ShowModal();
    const bool accepted = dialog.Accepted();
    if (accepted) {
        primaryServerName_ = dialog.txtServer.Text();
        registrySettings_.TLXPrimaryServer(primaryServerName_);
    } else {
        platform_.messageBoxes.Show(messages_.Text(u"lblPrimaryServerUnknown"), messages_.Text(u"lblMessageBoxTitle"),
                                    MessageButtons::OK, MessageIcon::None);
    }
    dialog.Unload(CloseReason::Code);
    dialog.Detach();
    return accepted;
}

std::shared_ptr<IJobDetectionObject> basKorvanta::MakeDetector(DetectionMethod method) {
    if (method == DetectionMethod::Printer) {
        return std::make_shared<clsJobDetectionPrinter>(platform_.spooler, platform_.waitableHandles,
                                                        *printersMonitored_, ClientSettings(), platform_.mutexes,
                                                        platform_.messageLoop, information_, log_);
    }
    return std::make_shared<clsJobDetectionFile>(*serverInterfaces_, *printersMonitored_, ClientSettings(),
                                                 platform_.mutexes, platform_.clock, platform_.system,
                                                 platform_.spooler, log_, information_.UserName());
}

void basKorvanta::MakeForms() {
    accounts_ = std::make_unique<clsTLXAccounts>(platform_.files, platform_.mutexes, log_, primaryServerName_);
    accountDialog_ = std::make_unique<frmAccountNumber>(
        AccountDialogServices{.platform = platform_,
                              .log = log_,
                              .errorReports = errorLog_,
                              .messages = messages_,
                              .translator = translator_,
                              .registrySettings = registrySettings_,
                              .settings = ClientSettings(),
                              .accounts = *accounts_,
                              .prefs = *preferences_,
                              .chargeRates = [this] { return ChargeRates(); },
                              .cancelPrintJob =
                                  [this](const clsJobInfo& job) {
                                      return CancelPrintJob(platform_.spooler, mainForm_->JobDetectionObject(), job);
                                  },
                              .testMode = testMode_});
    mainForm_ = std::make_unique<frmMain>(
        MainFormServices{.platform = platform_,
                         .log = log_,
                         .translator = translator_,
                         .registrySettings = registrySettings_,
                         .serverSettings = *serverSettings_,
                         .printersMonitored = *printersMonitored_,
                         .jobMatcher = *jobMatcher_,
                         .accountDialog = *accountDialog_,
                         .makeDetector = [this](DetectionMethod method) { return MakeDetector(method); },
                         .unloaded =
                             [this] {
                                 messages_.Unload(CloseReason::Code);
                                 platform_.messageLoop.Quit();
                             }});
}

// A form without a window could not show any job, and nobody would notice; so the start fails instead.
void basKorvanta::LoadForm(Form& form) {
    form.Load(peers_);
    if (peers_ != nullptr && form.Window() == 0) {
        throw StandardError(errorNumber::outOfMemory, form.Name());
    }
}

void basKorvanta::ShowUnexpectedError(const Error& error) {
    const std::u16string text =
        FillIn(messages_.Text(u"lblUnexpectedError"),
               {supportAddress, NumberText(error.Number()), error.Description(), error.Source(), marker_});
    platform_.messageBoxes.Show(text, messages_.Text(u"lblApplicationTitle"), MessageButtons::OK, MessageIcon::None);
}

std::u16string basKorvanta::FileUserName() {
    return Lower(information_.UserName());
}

}  // namespace korvanta

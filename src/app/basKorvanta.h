#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "app/ProgramInformation.h"
#include "app/ServerSettings.h"
#include "app/basLog.h"
#include "app/clsErrorLog.h"
#include "app/clsSetupTxt.h"
#include "app/frmMain.h"
#include "app/frmMessages.h"
#include "common/clsRegSettings.h"
#include "detection/clsPrintJobMatcher.h"
#include "detection/clsPrintersMonitored.h"
#include "platform/Platform.h"
#include "server/clsServerInterfaces.h"
#include "server/clsTLXAccounts.h"
#include "translation/Translator.h"
#include "ui/clsTLXPrefs.h"
#include "ui/frmAccountNumber.h"

namespace korvanta {

// The program: starts it step by step and owns what lives until it ends.
class basKorvanta {
  public:
    // `peers` makes the windows; none runs the program without any. Both outlive the program.
    basKorvanta(Platform& platform, PeerFactory* peers, Translator& translator);
    ~basKorvanta();
    basKorvanta(const basKorvanta&) = delete;
    basKorvanta& operator=(const basKorvanta&) = delete;

    // Starts up. True: everything is loaded and goes on in the message loop, which is told to quit when the main form
    // is unloaded. False: the program has nothing more to do; the user has been told why.
    bool Main();

    // The primary server's name exactly as it is stored or was typed.
    const std::u16string& PrimaryServerName() const { return primaryServerName_; }
    bool TestMode() const { return testMode_; }
    // Once Main has come as far as to load them.
    const std::u16string& ClientSettingsCachePath() const { return serverSettings_->ClientSettingsCachePath(); }
    const clsClientSettings& ClientSettings() const { return serverSettings_->ClientSettings(); }
    std::shared_ptr<clsChargeRates> ChargeRates() const { return serverSettings_->ChargeRates(); }

    // None before they are loaded.
    frmMain* MainForm() { return mainForm_.get(); }
    frmAccountNumber* AccountDialog() { return accountDialog_.get(); }
    clsTLXPrefs* Preferences() { return preferences_.get(); }

  private:
    bool StartUp();
    void SetUpTranslation();
    // Those that are new since the last time.
    void LogTranslationProblems();
    bool RefuseSecondCopy();
    bool ObtainPrimaryServer();
    bool AskForPrimaryServer();
    std::shared_ptr<IJobDetectionObject> MakeDetector(DetectionMethod method);
    void MakeForms();
    void LoadForm(Form& form);
    void ShowUnexpectedError(const Error& error);
    // The user's name as the files of the user carry it.
    std::u16string FileUserName();

    Platform& platform_;
    PeerFactory* peers_;
    Translator& translator_;
    std::u16string programFolder_;
    basLog log_;
    clsErrorLog errorLog_;
    clsSetupTxt setupFile_;
    clsRegSettings registrySettings_;
    ProgramInformation information_;
    frmMessages messages_;

    std::u16string marker_;
    std::size_t loggedProblems_ = 0;
    std::u16string primaryServerName_;
    bool testMode_ = false;

    std::unique_ptr<clsServerInterfaces> serverInterfaces_;
    std::unique_ptr<ServerSettings> serverSettings_;
    std::unique_ptr<clsTLXPrefs> preferences_;
    std::unique_ptr<clsPrintJobMatcher> jobMatcher_;
    std::unique_ptr<clsPrintersMonitored> printersMonitored_;
    std::unique_ptr<clsTLXAccounts> accounts_;
    std::unique_ptr<frmAccountNumber> accountDialog_;
    std::unique_ptr<frmMain> mainForm_;
};

}  // namespace korvanta

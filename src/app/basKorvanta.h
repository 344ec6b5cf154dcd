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

// The program: starts up step by step, and owns every object that lives as long as the process.
class basKorvanta {
  public:
    // `peers` makes the windows; with a null pointer the program runs without windows. All arguments must outlive this
    // object.
    basKorvanta(Platform& platform, PeerFactory* peers, Translator& translator);
    ~basKorvanta();
    basKorvanta(const basKorvanta&) = delete;
    basKorvanta& operator=(const basKorvanta&) = delete;

    // Starts up. Returns true if the caller must now run the message loop; unloading the main form makes it quit.
    // Returns false if the program has to end; a message box has then told the user why, unless the session is ending.
    bool Main();

    // Exactly as stored or typed: not trimmed.
    const std::u16string& PrimaryServerName() const { return primaryServerName_; }
    bool TestMode() const { return testMode_; }
    // Only valid after Main has loaded the settings.
    const std::u16string& ClientSettingsCachePath() const { return serverSettings_->ClientSettingsCachePath(); }
    const clsClientSettings& ClientSettings() const { return serverSettings_->ClientSettings(); }
    std::shared_ptr<clsChargeRates> ChargeRates() const { return serverSettings_->ChargeRates(); }

    // Null until Main has made them.
    frmMain* MainForm() { return mainForm_.get(); }
    frmAccountNumber* AccountDialog() { return accountDialog_.get(); }
    clsTLXPrefs* Preferences() { return preferences_.get(); }

  private:
    bool StartUp();
    void SetUpTranslation();
    // Logs the problems that have come up since the last call.
    void LogTranslationProblems();
    bool RefuseSecondCopy();
    bool ObtainPrimaryServer();
    bool AskForPrimaryServer();
    std::shared_ptr<IJobDetectionObject> MakeDetector(DetectionMethod method);
    void MakeForms();
    void LoadForm(Form& form);
    void ShowUnexpectedError(const Error& error);
    // In lower case, as in the names of the user's files on servers.
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

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <vector>

#include "common/List.h"
#include "common/clsRegSettings.h"
#include "detection/clsJobInfo.h"
#include "platform/Platform.h"
#include "server/clsAccountNotification.h"
#include "server/clsChargeRates.h"
#include "server/clsClientSettings.h"
#include "translation/MessageTexts.h"
#include "ui/AccountNumberForm.h"
#include "ui/AccountViews.h"

namespace korvanta {

// What the dialog works with. Everything outlives it.
struct AccountDialogServices {
    Platform& platform;
    TraceLog& log;
    ErrorReports& errorReports;
    MessageTexts& messages;
    Translator& translator;
    clsRegSettings& registrySettings;
    const clsClientSettings& settings;
    clsTLXAccounts& accounts;
    clsTLXPrefs& prefs;
    // The charge rates in force; a refresh replaces them.
    std::function<std::shared_ptr<clsChargeRates>()> chargeRates;
    // Deletes the job from its print queue; true when it was deleted.
    std::function<bool(const clsJobInfo&)> cancelPrintJob;
    // Jobs are completed by the dialog itself, for trying an installation out.
    bool testMode = false;
};

// Asks the user which account each print job is charged to. Jobs wait in a queue; the dialog puts itself in front for
// the oldest one, and leaves it with OK (the print server is notified) or Cancel (the job is deleted).
class frmAccountNumber : public AccountNumberForm {
  public:
    explicit frmAccountNumber(const AccountDialogServices& services);

    // Queues the job and returns; the dialog shows itself within a second.
    void AddJob(const std::shared_ptr<clsJobInfo>& job);
    // Fills the views ahead of the first job.
    void PreLoadAccounts();

  protected:
    void OnTranslate() override;
    void OnLoad() override;
    void OnDisplayChanged() override;
    // The dialog leaves with OK or Cancel alone; its close box does nothing.
    bool OnQueryUnload(CloseReason reason) override { return reason == CloseReason::WindowsSession; }

  private:
    // What the user has decided when OK is pressed; what happens to the dialog meanwhile no longer matters.
    struct Choice {
        std::shared_ptr<clsAccount> account;
        std::u16string comment;
        bool invoiceable = false;
        std::u16string rateDescription;
        double rateValue = 0.0;
    };

    enum class Notified { Yes, No, NoServer };

    void ConnectControls();
    void MonitorTick();
    void FlashTick();
    void ShowHide(bool show);
    bool OfferHeadJob();
    // Whether the showing of that number is still the one that the user sees.
    bool StillOffering(std::uint32_t offer) const;
    void ApplySettings();
    void FillChargeRates();
    void PlaceOnScreen();
    void GrowToFit();
    void MoveInside(const Place& area, Place place);
    void RejectForMissingAccounts();
    void AccountSelected(std::int32_t accountId);
    void OK();
    void Submit(const Choice& choice);
    Notified Notify(const clsJobInfo& job, const Choice& choice);
    bool WriteNotification(const std::u16string& path, const clsJobInfo& job, const Choice& choice);
    void Cancel();
    void CompleteByItself();
    Choice TakeChoice(const std::shared_ptr<clsAccount>& account) const;
    std::shared_ptr<clsJobInfo> HeadJob() const;
    std::shared_ptr<clsJobInfo> TakeHeadJob();
    void ShowQueueLength();
    void ShowMessage(const char16_t* label, MessageIcon icon = MessageIcon::None);

    AccountDialogServices services_;
    List jobs_;
    AccountViews views_;
    std::vector<double> rateValues_;  // one for each item of cboChargeRate
    std::u16string invoiceCaption_;
    std::minstd_rand random_;
    // Counts the times the dialog was shown, so that a showing that was answered while messages ran is recognised.
    std::uint32_t offer_ = 0;
    bool showing_ = false;
    bool errorCancel_ = false;
    bool placed_ = false;
};

}  // namespace korvanta

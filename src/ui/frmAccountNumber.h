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
#include "server/clsChargeRates.h"
#include "server/clsClientSettings.h"
#include "translation/MessageTexts.h"
#include "ui/AccountNumberForm.h"
#include "ui/AccountViews.h"
#include "ui/NotificationWriter.h"
#include "ui/ScreenPlacement.h"

namespace korvanta {

// What the dialog works with. All references outlive it.
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
    // Returns the current charge rates; a refresh replaces them by another object.
    std::function<std::shared_ptr<clsChargeRates>()> chargeRates;
    // Deletes the job from its print queue; true when it was deleted.
    std::function<bool(const clsJobInfo&)> cancelPrintJob;
    // The dialog answers each job by itself, to try out an installation.
    bool testMode = false;
};

// Asks the user which account each print job is charged to. Jobs wait in a queue. For the oldest one the dialog comes
// to the front; the user answers with OK (the print server is notified) or Cancel (the job is deleted), and it hides
// again.
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
    // Only OK and Cancel close the dialog; its close box does nothing.
    bool OnQueryUnload(CloseReason reason) override { return reason == CloseReason::WindowsSession; }

  private:
    void ConnectControls();
    void MonitorTick();
    void FlashTick();
    void ShowForHeadJob();
    bool PrepareForHeadJob();
    void HideAgain();
    // Whether the showing with that number has not been answered yet.
    bool StillOffering(std::uint32_t offer) const;
    void ApplySettings();
    void FillChargeRates();
    void RejectForMissingAccounts();
    void AccountSelected(std::int32_t accountId);
    void OK();
    void Submit(const ChargeChoice& choice);
    void Cancel();
    void CompleteByItself();
    ChargeChoice TakeChoice(const std::shared_ptr<clsAccount>& account) const;
    std::shared_ptr<clsJobInfo> HeadJob() const;
    std::shared_ptr<clsJobInfo> TakeHeadJob();
    void ShowQueueLength();
    void ShowMessage(const char16_t* label, MessageIcon icon = MessageIcon::None);

    AccountDialogServices services_;
    List jobs_;
    AccountViews views_;
    ScreenPlacement placement_;
    NotificationWriter notifications_;
    std::vector<double> rateValues_;  // one for each item of cboChargeRate
    std::u16string invoiceCaption_;
    std::minstd_rand random_;
    // Counts the times the dialog was shown. Code that lets messages run compares it before and after: when it differs,
    // the user has answered meanwhile and the dialog may already be there for another job.
    std::uint32_t offer_ = 0;
    bool showing_ = false;
    bool errorCancel_ = false;
};

}  // namespace korvanta

#include "ui/frmAccountNumber.h"

#include <utility>
#include <vector>

#include "common/Conversion.h"
#include "common/LogErrors.h"
#include "common/Text.h"
#include "controls/AccessKey.h"

namespace korvanta {

namespace {

constexpr std::size_t longestComment = 254;
constexpr std::int16_t commentMandatory = 2;

// The start of a text: at most so many UTF-16 units, and no half of a surrogate pair, since strict readers reject a
// file that holds one.
std::u16string FirstCharacters(const std::u16string& text, std::size_t units) {
    const auto isHalf = [&text](std::size_t at, char16_t kind) { return (text[at] & 0xFC00U) == kind; };
    const bool cutsCharacter = text.size() > units && isHalf(units - 1, 0xD800) && isHalf(units, 0xDC00);
    return text.substr(0, cutsCharacter ? units - 1 : units);
}

}  // namespace

frmAccountNumber::frmAccountNumber(const AccountDialogServices& services)
    : AccountNumberForm(services.platform.textMeasure, services.translator,
                        {.files = services.platform.files,
                         .codePage = services.platform.codePage,
                         .shell = services.platform.shell,
                         .textMeasure = services.platform.textMeasure,
                         .registrySettings = services.registrySettings}),
      services_(services),
      jobs_(services.platform.mutexes),
      views_(*this, services.accounts, services.prefs, services.platform.messageLoop, services.log,
             [this](std::int32_t accountId) { AccountSelected(accountId); }),
      placement_(*this, services.platform.screen),
      notifications_(services.platform.files, services.platform.clock, services.errorReports, services.log),
      random_(static_cast<std::minstd_rand::result_type>(services.platform.clock.Now().milliseconds)) {
    ConnectControls();
}

void frmAccountNumber::ConnectControls() {
    const auto handler = [this](void (frmAccountNumber::*member)()) {
        return ErrorLoggingHandler(services_.log, u"frmAccountNumber", *this, member);
    };
    tmrMonitor.Tick.Connect(handler(&frmAccountNumber::MonitorTick));
    tmrFlash.Tick.Connect(handler(&frmAccountNumber::FlashTick));
    cmdOK.Click.Connect(handler(&frmAccountNumber::OK));
    cmdCancel.Click.Connect(handler(&frmAccountNumber::Cancel));
    for (ctlAccountList* list : {&ctlAccountListAll, &ctlAccountListPreferred, &ctlAccountListRecent}) {
        list->DblClick.Connect([this] { cmdOK.HandleClick(); });
    }
}

void frmAccountNumber::OnTranslate() {
    services_.translator.Translate(*this);
    invoiceCaption_ = chkInvoice.Caption();
    ChooseFirstSize();
}

void frmAccountNumber::OnLoad() {
    tmrMonitor.Enabled(true);
    tmrFlash.Enabled(true);
}

void frmAccountNumber::AddJob(const std::shared_ptr<clsJobInfo>& job) {
    jobs_.Append(job);
    // The job is in the queue even when this fails.
    LogErrors(services_.log, u"frmAccountNumber:AddJob", [this] { ShowQueueLength(); });
}

void frmAccountNumber::PreLoadAccounts() {
    FillChargeRates();
    if (views_.LoadAccounts()) {
        views_.Refill();
    }
}

void frmAccountNumber::MonitorTick() {
    const std::shared_ptr<clsJobInfo> job = HeadJob();
    if (job == nullptr || showing_) {
        return;
    }
    lblDocument.Caption(job->Document);
    lblPrinter.Caption(job->PrinterName);
    services_.platform.messageLoop.RunPending();
    if (!showing_ && HeadJob() == job) {
        ShowForHeadJob();
    }
}

void frmAccountNumber::FlashTick() {
    if (showing_) {
        Flash();
    }
}

void frmAccountNumber::ShowForHeadJob() {
    showing_ = true;
    ++offer_;
    try {
        if (PrepareForHeadJob() && services_.testMode) {
            CompleteByItself();
        }
    } catch (const std::exception&) {
        // If the window did not come up, the next tick tries again: the user could not answer, and the job would wait
        // for ever.
        showing_ = showing_ && Shown();
        throw;
    }
}

void frmAccountNumber::HideAgain() {
    showing_ = false;
    Hide();
}

// False when the user has answered while messages ran, or when the job was rejected because there are no accounts.
bool frmAccountNumber::PrepareForHeadJob() {
    const std::uint32_t offer = offer_;
    // Until the end, the controls still hold what the user chose for the last job.
    const HeldOK heldOK(*this);
    placement_.PutOnScreen();
    ctlBanner1.Shown();
    Show();
    BringToForeground();
    services_.platform.messageLoop.RunPending();
    if (!StillOffering(offer)) {
        return false;
    }
    views_.RestoreTabAndSearch();
    ApplySettings();
    if (!views_.LoadAccounts()) {
        RejectForMissingAccounts();
        return false;
    }
    errorCancel_ = false;
    views_.Refill();
    if (!StillOffering(offer)) {
        return false;
    }
    if (!services_.registrySettings.TLXClientRemembersSettings()) {
        chkInvoice.Value(true);
        txtComment.Text(u"");
    }
    ShowQueueLength();
    return true;
}

void frmAccountNumber::ApplySettings() {
    TopMost(services_.settings.ClientPopupOnTop());
    if (!services_.settings.DefaultComment().empty()) {
        txtComment.Text(services_.settings.DefaultComment());
    }
    const std::u16string label = services_.settings.ShowOnInvoiceLabel();
    chkInvoice.Caption(label.empty() ? invoiceCaption_ : WithPlainAmpersands(label));
    OnResize();
    placement_.GrowToFit();
    FillChargeRates();
    views_.FocusTab();
}

// Copies the rates: a refresh may replace them while the dialog is open, and what the user sees is what must be sent.
void frmAccountNumber::FillChargeRates() {
    const std::shared_ptr<clsChargeRates> rates = services_.chargeRates();
    std::vector<std::u16string> descriptions;
    for (const Variant& description : rates->Descriptions()->Items()) {
        descriptions.push_back(description.Text());
    }
    rateValues_.clear();
    for (const Variant& value : rates->ChargeRates()->Items()) {
        rateValues_.push_back(value.Number());
    }
    if (descriptions != cboChargeRate.Items()) {
        cboChargeRate.Items(std::move(descriptions));
    }
}

void frmAccountNumber::OnDisplayChanged() {
    if (Shown()) {
        placement_.PutOnScreen();
    }
}

void frmAccountNumber::RejectForMissingAccounts() {
    const std::uint32_t offer = offer_;
    ShowMessage(u"lblAccountListError");
    if (StillOffering(offer)) {
        errorCancel_ = true;
        cmdCancel.HandleClick();
    }
}

void frmAccountNumber::AccountSelected(std::int32_t accountId) {
    const std::shared_ptr<const clsAccount> account = services_.accounts.AccountDict().Find(accountId);
    if (account == nullptr) {
        return;
    }
    const bool takesComment = account->RequireComment != 0;
    txtComment.Enabled(takesComment);
    txtComment.BackColor(takesComment ? systemColor::windowBackground : systemColor::buttonFace);
    if (!account->AllowNoninvoiceable) {
        chkInvoice.Value(true);
    }
    chkInvoice.Enabled(account->AllowNoninvoiceable);
}

void frmAccountNumber::OK() {
    if (HeadJob() == nullptr || !showing_) {
        return;
    }
    const ctlAccountList& list = views_.CurrentList();
    const std::int32_t accountId = list.SelectedID();
    if (accountId == -1) {
        ShowMessage(u"lblSelectAccount");
        return;
    }
    if (!list.SelectedActive()) {
        ShowMessage(u"lblAccountNotBillable");
        return;
    }
    const std::shared_ptr<clsAccount> account = services_.accounts.AccountDict().Find(accountId);
    if (account == nullptr) {
        ShowMessage(u"lblSelectAccount");
        return;
    }
    if (account->RequireComment == commentMandatory && Trim(txtComment.Text()).empty()) {
        services_.platform.messageBoxes.Show(lblCommentMandatory.Caption(), Caption(), MessageButtons::OK,
                                             MessageIcon::Critical);
        return;
    }
    const ChargeChoice choice = TakeChoice(account);
    const bool submitAll = chkSubmitAllDocuments.Value();
    const bool rememberSearch = chkRememberSearch.Value();
    const std::u16string searchText = txtSearch.Text();

    Submit(choice);
    while (submitAll && HeadJob() != nullptr) {
        Submit(choice);
    }
    services_.prefs.SetLastSelectedAccount(accountId);
    services_.prefs.LastSearchRemember(rememberSearch);
    services_.prefs.LastSearchString(rememberSearch ? searchText : u"");
    services_.prefs.Save();
}

ChargeChoice frmAccountNumber::TakeChoice(const std::shared_ptr<clsAccount>& account) const {
    ChargeChoice choice;
    choice.account = account;
    choice.invoiceable = chkInvoice.Value();
    if (account->RequireComment != 0) {
        choice.comment = FirstCharacters(txtComment.Text(), longestComment);
    }
    if (cboChargeRate.ListIndex() >= 0) {
        const auto rate = static_cast<std::size_t>(cboChargeRate.ListIndex());
        choice.rateDescription = cboChargeRate.Items().at(rate);
        choice.rateValue = rateValues_.at(rate);
    }
    return choice;
}

void frmAccountNumber::Submit(const ChargeChoice& choice) {
    const std::shared_ptr<clsJobInfo> job = TakeHeadJob();
    HideAgain();
    LogErrors(services_.log, u"frmAccountNumber:Submit", [&] {
        const NotificationWriter::Result result = notifications_.Write(*job, choice);
        if (result == NotificationWriter::Result::NoServer) {
            ShowMessage(u"lblInternalErrorServerName");
        } else if (result == NotificationWriter::Result::Failed) {
            LogErrors(services_.log, u"frmAccountNumber:Submit", [this] { services_.log.Log(u"Upload file failed."); });
            ShowMessage(u"lblNotificationError", MessageIcon::Critical);
        }
    });
}

void frmAccountNumber::Cancel() {
    if (HeadJob() == nullptr || !showing_) {
        return;
    }
    const std::shared_ptr<clsJobInfo> job = TakeHeadJob();
    const bool errorCancel = errorCancel_;
    HideAgain();
    bool cancelled = false;
    LogErrors(services_.log, u"frmAccountNumber:Cancel", [&] { cancelled = services_.cancelPrintJob(*job); });
    ShowMessage(cancelled && !errorCancel ? u"lblJobCancelSuccess" : u"lblJobCancelError");
    services_.prefs.Save();
}

// Test mode: selects a random active account, sets comment and invoice box, and presses OK.
void frmAccountNumber::CompleteByItself() {
    const std::uint32_t offer = offer_;
    tabView.Selected(AccountViews::tabAll);
    // A remembered search would limit the choice.
    txtSearch.Text(u"");
    views_.Refill();
    if (!StillOffering(offer)) {
        return;
    }
    const std::vector<std::int32_t> active = ctlAccountListAll.ActiveIDs();
    if (!active.empty()) {
        std::uniform_int_distribution<std::size_t> any(0, active.size() - 1);
        ctlAccountListAll.SelectedID(active[any(random_)]);
    }
    txtComment.Text(u"Comment at " + GeneralDateText(services_.platform.clock.Now(), services_.platform.clock));
    if (chkInvoice.Enabled()) {
        chkInvoice.Value(std::uniform_int_distribution<int>(0, 1)(random_) == 1);
    }
    cmdOK.HandleClick();
}

bool frmAccountNumber::StillOffering(std::uint32_t offer) const {
    return showing_ && offer_ == offer;
}

std::shared_ptr<clsJobInfo> frmAccountNumber::HeadJob() const {
    return jobs_.Length() == 0 ? nullptr : jobs_.Item(0).As<clsJobInfo>();
}

std::shared_ptr<clsJobInfo> frmAccountNumber::TakeHeadJob() {
    std::shared_ptr<clsJobInfo> job = jobs_.Pop(0).As<clsJobInfo>();
    // The job is in no queue any more, so an error here would lose it.
    LogErrors(services_.log, u"frmAccountNumber:Queue", [this] { ShowQueueLength(); });
    return job;
}

void frmAccountNumber::ShowQueueLength() {
    lblJobsQueued.Caption(NumberText(jobs_.Length()));
}

// The message may be the only sign that a job was lost, so it gets a second try when memory runs out.
void frmAccountNumber::ShowMessage(const char16_t* label, MessageIcon icon) {
    const auto show = [&] {
        services_.platform.messageBoxes.Show(services_.messages.Text(label),
                                             services_.messages.Text(u"lblMessageBoxTitle"), MessageButtons::OK, icon);
    };
    try {
        show();
    } catch (const std::bad_alloc&) {
        show();
    }
}

}  // namespace korvanta

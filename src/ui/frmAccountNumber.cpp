#include "ui/frmAccountNumber.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "common/Conversion.h"
#include "common/LogErrors.h"
#include "common/Text.h"
#include "common/TextStream.h"
#include "controls/AccessKey.h"
#include "server/PrinterName.h"
#include "server/Shares.h"

namespace korvanta {

namespace {

constexpr std::size_t longestComment = 254;
constexpr std::int16_t commentMandatory = 2;

// The first characters of a text, at most so many units. A character of two units is not cut in the middle: strict
// readers take no file that holds half of one.
std::u16string FirstCharacters(const std::u16string& text, std::size_t units) {
    const auto isHalf = [&text](std::size_t at, char16_t kind) { return (text[at] & 0xFC00U) == kind; };
    const bool cutsCharacter = text.size() > units && isHalf(units - 1, 0xD800) && isHalf(units, 0xDC00);
    return text.substr(0, cutsCharacter ? units - 1 : units);
}

// A field of a notification is one line: line breaks in it, as documents may have them in their names, would make the
// server take what follows for other fields.
std::u16string OneLine(std::u16string_view text) {
    std::u16string line = Replace(text, lineBreak, u" ");
    std::replace_if(
        line.begin(), line.end(), [](char16_t unit) { return unit == u'\r' || unit == u'\n'; }, u' ');
    return line;
}

}  // namespace

frmAccountNumber::frmAccountNumber(const AccountDialogServices& services)
    : AccountNumberForm(services.platform.textMeasure, services.translator,
                        {services.platform.files, services.platform.codePage, services.platform.shell,
                         services.platform.textMeasure, services.registrySettings}),
      services_(services),
      jobs_(services.platform.mutexes),
      views_(*this, services.accounts, services.prefs, services.platform.messageLoop, services.log,
             [this](std::int32_t accountId) { AccountSelected(accountId); }),
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
    // Whatever this raised, the job is in the queue.
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
        ShowHide(true);
    }
}

void frmAccountNumber::FlashTick() {
    if (showing_) {
        Flash();
    }
}

void frmAccountNumber::ShowHide(bool show) {
    if (!show) {
        showing_ = false;
        Hide();
        return;
    }
    showing_ = true;
    ++offer_;
    try {
        if (OfferHeadJob() && services_.testMode) {
            CompleteByItself();
        }
    } catch (const std::exception&) {
        // A dialog that the user does not see would keep the job for good; the next tick tries again.
        showing_ = showing_ && Shown();
        throw;
    }
}

// Prepares the dialog for the job at the head of the queue. False when the user, or a lacking account list, has ended
// the showing meanwhile.
bool frmAccountNumber::OfferHeadJob() {
    const std::uint32_t offer = offer_;
    // The choices of the last job are still there.
    const HeldOK heldOK(*this);
    PlaceOnScreen();
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
    GrowToFit();
    FillChargeRates();
    views_.FocusTab();
}

// The rates that the user chooses from stay those that are sent, whatever a refresh does meanwhile.
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

// The first time in the middle of the screen with the mouse pointer; from then on where the user leaves it, unless that
// can no longer be seen.
void frmAccountNumber::PlaceOnScreen() {
    Place place = Position();
    if (placed_) {
        MoveInside(services_.platform.screen.WorkAreaAt(place), place);
        return;
    }
    placed_ = true;
    const Place area = services_.platform.screen.WorkArea();
    place.width = std::max(place.width, MinimumWidth());
    place.height = std::max(place.height, MinimumHeight());
    place.left = area.left + (area.width - place.width) / 2;
    place.top = area.top + (area.height - place.height) / 2;
    MoveInside(area, place);
}

// Captions may have become longer than the window has room for.
void frmAccountNumber::GrowToFit() {
    Place place = Position();
    const Place area = services_.platform.screen.WorkAreaAt(place);
    place.width = std::max(place.width, MinimumWidth());
    place.height = std::max(place.height, MinimumHeight());
    MoveInside(area, place);
}

void frmAccountNumber::MoveInside(const Place& area, Place place) {
    place.width = std::min(place.width, area.width);
    place.height = std::min(place.height, area.height);
    place.left = std::clamp(place.left, area.left, area.Right() - place.width);
    place.top = std::clamp(place.top, area.top, area.Bottom() - place.height);
    Move(place);
}

void frmAccountNumber::OnDisplayChanged() {
    if (Shown()) {
        PlaceOnScreen();
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
    const Choice choice = TakeChoice(account);
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

frmAccountNumber::Choice frmAccountNumber::TakeChoice(const std::shared_ptr<clsAccount>& account) const {
    Choice choice;
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

void frmAccountNumber::Submit(const Choice& choice) {
    const std::shared_ptr<clsJobInfo> job = TakeHeadJob();
    ShowHide(false);
    LogErrors(services_.log, u"frmAccountNumber:Submit", [&] {
        const Notified notified = Notify(*job, choice);
        if (notified == Notified::NoServer) {
            ShowMessage(u"lblInternalErrorServerName");
        } else if (notified == Notified::No) {
            LogErrors(services_.log, u"frmAccountNumber:Submit", [this] { services_.log.Log(u"Upload file failed."); });
            ShowMessage(u"lblNotificationError", MessageIcon::Critical);
        }
    });
}

frmAccountNumber::Notified frmAccountNumber::Notify(const clsJobInfo& job, const Choice& choice) {
    try {
        const std::optional<std::u16string> server = PrinterName(job.FullPrinterName).Server();
        if (!server) {
            return Notified::NoServer;
        }
        const std::u16string path = Shares(*server).AccountNotificationFile(
            NotificationFileName(job.MachineName, job.PrinterHandle, job.JobID));
        return WriteNotification(path, job, choice) ? Notified::Yes : Notified::No;
    } catch (const std::exception&) {
        return Notified::No;
    }
}

// What it raises means that it failed, too.
bool frmAccountNumber::WriteNotification(const std::u16string& path, const clsJobInfo& job, const Choice& choice) {
    clsAccountNotification notification(services_.platform.clock, services_.errorReports);
    notification.JobID = job.JobID;
    notification.MachineName = OneLine(job.MachineName);
    notification.PrinterName = OneLine(job.PrinterName);
    notification.UserName = OneLine(job.UserName);
    notification.Document = OneLine(job.Document);
    notification.PrinterHandle = job.PrinterHandle;
    notification.AccountID = choice.account->AccountID;
    notification.AccountTitle = OneLine(choice.account->CompoundTitle());
    notification.Invoiceable = choice.invoiceable;
    notification.Comment = OneLine(choice.comment);
    notification.JobEventFilename = OneLine(job.JobEventFilename);
    notification.ChargeRateDescription = OneLine(choice.rateDescription);
    notification.ChargeRateValue = choice.rateValue;
    services_.log.Log(u"Uploading notification file to server: " + path);
    TextOutput file = TextOutput::OpenUtf16(services_.platform.files, path);
    const bool written = notification.WriteFile(file);
    file.Close();
    return written;
}

void frmAccountNumber::Cancel() {
    if (HeadJob() == nullptr || !showing_) {
        return;
    }
    const std::shared_ptr<clsJobInfo> job = TakeHeadJob();
    const bool errorCancel = errorCancel_;
    ShowHide(false);
    bool cancelled = false;
    LogErrors(services_.log, u"frmAccountNumber:Cancel", [&] { cancelled = services_.cancelPrintJob(*job); });
    ShowMessage(cancelled && !errorCancel ? u"lblJobCancelSuccess" : u"lblJobCancelError");
    services_.prefs.Save();
}

// A random active account, a comment and an invoice choice, then OK.
void frmAccountNumber::CompleteByItself() {
    const std::uint32_t offer = offer_;
    tabView.Selected(AccountViews::tabAll);
    // A remembered search must not limit the choice.
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
    // From here on nobody else knows of the job: nothing may be raised before its end.
    LogErrors(services_.log, u"frmAccountNumber:Queue", [this] { ShowQueueLength(); });
    return job;
}

void frmAccountNumber::ShowQueueLength() {
    lblJobsQueued.Caption(NumberText(jobs_.Length()));
}

// Without its message a job would end and nobody would know: memory that lacked for it is asked for once more.
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

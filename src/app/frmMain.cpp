#include "app/frmMain.h"

#include "app/basGUIAPI.h"
#include "common/Conversion.h"
#include "common/LogErrors.h"
#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::uint32_t trayIconIdentifier = 1;
constexpr std::uint32_t trayIconMessageIconTip = 7;
constexpr std::uint32_t mouseMoveMessage = 512;
constexpr std::uint32_t unloadPause = 500;
constexpr int iconWatched = 1;
constexpr int iconFailed = 2;

}  // namespace

frmMain::frmMain(const MainFormServices& services)
    : StatusForm(services.platform.textMeasure,
                 {services.platform.files, services.platform.codePage, services.platform.shell,
                  services.platform.textMeasure, services.registrySettings}),
      services_(services),
      heartbeat_(services.serverSettings.ClientSettings()) {
    ConnectControls();
}

// Windows calls every handler, and no exception may pass through Windows.
template <class Handler>
void frmMain::LogErrors(const char16_t* procedure, Handler handler) {
    korvanta::LogErrors(services_.log, procedure, handler);
}

void frmMain::ConnectControls() {
    tmrActivity.Tick.Connect([this] { ActivityTick(); });
    cmdRefresh.Click.Connect([this] { LogErrors(u"frmMain:cmdRefresh", [this] { ScheduleFullRefreshNow(); }); });
    cmdRefresh.RightClick.Connect([this] { LogErrors(u"frmMain:cmdRefresh", [this] { ShowPopup(mnuPopop); }); });
    cmdClose.Click.Connect([this] { LogErrors(u"frmMain:cmdClose", [this] { Hide(); }); });
    mnuLogging.Click.Connect([this] { LogErrors(u"frmMain:mnuLogging", [this] { TurnOnLogging(); }); });
    mnuAdvanced.Click.Connect([this] { LogErrors(u"frmMain:mnuAdvanced", [this] { ShowAdvancedStatus(); }); });
}

void frmMain::OnTranslate() {
    services_.translator.Translate(*this);
    ChooseSize();
}

void frmMain::OnLoad() {
    AddTrayIcon();
    SelectDetectionObject();
}

void frmMain::AddTrayIcon() {
    trayIcon_ = {Window(), trayIconIdentifier, trayIconMessageIconTip, mouseMoveMessage, ctlBanner1.Title()};
    services_.platform.shell.AddTrayIcon(*trayIcon_);
}

void frmMain::RemoveTrayIcon() {
    if (trayIcon_) {
        services_.platform.shell.DeleteTrayIcon(*trayIcon_);
        trayIcon_.reset();
    }
}

void frmMain::OnTaskbarCreated() {
    LogErrors(u"frmMain:TaskbarCreated", [this] {
        if (trayIcon_) {
            AddTrayIcon();
        }
    });
}

void frmMain::OnResize() {
    LogErrors(u"frmMain:Resize", [this] { StatusForm::OnResize(); });
}

void frmMain::Detach() {
    LogErrors(u"frmMain:Detach", [this] { RemoveTrayIcon(); });
    StatusForm::Detach();
}

void frmMain::SelectDetectionObject() {
    const DetectionMethod method = services_.serverSettings.EffectiveDetectionMethod();
    if (detector_ != nullptr && currentDetectionMethod_ == method) {
        return;
    }
    const std::shared_ptr<IJobDetectionObject> detector = services_.makeDetector(method);
    detector_ = detector;
    lblJobDetectionMethod.Caption(MethodText(method));
    currentDetectionMethod_ = method;
    detector->Start(*this);
}

const std::u16string& frmMain::MethodText(DetectionMethod method) const {
    switch (method) {
        case DetectionMethod::File:
            return texts.lblFileMonitoring.Caption();
        case DetectionMethod::Printer:
            return texts.lblPrinterMonitoring.Caption();
        default:
            return texts.lblHTTPMonitoring.Caption();
    }
}

void frmMain::Start() {
    services_.accountDialog.PreLoadAccounts();
    heartbeat_.Start(Now());
    ShowDueTimes();
    tmrActivity.Enabled(true);
}

void frmMain::ScheduleFullRefresh() {
    heartbeat_.ScheduleFullRefresh(Now());
    ShowDueTimes();
}

void frmMain::ScheduleServerDownFullRefresh() {
    heartbeat_.ScheduleServerDownFullRefresh(Now());
    ShowDueTimes();
}

void frmMain::ScheduleFullRefreshNow() {
    heartbeat_.ScheduleFullRefreshNow(Now());
    ShowDueTimes();
}

void frmMain::SchedulePrinterListScan() {
    heartbeat_.SchedulePrinterListScan(Now());
    ShowDueTimes();
}

void frmMain::ScheduleServerHealthTest() {
    heartbeat_.ScheduleServerHealthTest(Now());
    ShowDueTimes();
}

void frmMain::ShowDueTimes() {
    Clock& clock = services_.platform.clock;
    lblFullRefreshDue.Caption(GeneralDateText(FullRefreshDue(), clock));
    lblPrinterListScanDue.Caption(GeneralDateText(PrinterListScanDue(), clock));
    lblServerHealthTestDue.Caption(GeneralDateText(ServerHealthTestDue(), clock));
}

void frmMain::ActivityTick() {
    LogErrors(u"frmMain:tmrActivity", [this] {
        const DateTime now = Now();
        Pointer(MousePointer::Hourglass);
        if (heartbeat_.FollowClock(now)) {
            ShowDueTimes();
        }
        if (const std::optional<Heartbeat::Task> task = heartbeat_.TaskAt(now)) {
            const ReentryFlag::Scope running(heartbeat_.Running(*task));
            RunTask(*task);
        }
    });
    LogErrors(u"frmMain:tmrActivity", [this] { Pointer(MousePointer::Default); });
}

void frmMain::RunTask(Heartbeat::Task task) {
    switch (task) {
        case Heartbeat::Task::FullRefresh:
            ShowActivity(texts.lblFullRefreshActivity.Caption());
            FullRefresh();
            break;
        case Heartbeat::Task::PrinterListScan:
            ShowActivity(texts.lblPrinterListScanActivity.Caption());
            PrinterListScan();
            break;
        case Heartbeat::Task::ServerHealthTest:
            ShowActivity(texts.lblServerHealthTestActivity.Caption());
            ServerHealthTest();
            break;
        case Heartbeat::Task::ClockTick:
            ShowActivity(texts.lblIdleActivity.Caption());
            ClockTick();
            break;
    }
}

// The task keeps the detector alive: it lets messages run, and a refresh in between may replace the detector.
void frmMain::ClockTick() {
    const std::shared_ptr<IJobDetectionObject> detector = detector_;
    detector->MonitorClockTick();
}

void frmMain::FullRefresh() {
    Pointer(MousePointer::Hourglass);
    lblFullRefreshPerformed.Caption(NowText());
    lblFullRefreshResult.Caption(texts.lblRefreshExecuting.Caption());
    ScheduleFullRefresh();
    LetMessagesRun();
    services_.serverSettings.LoadClientSettings();
    services_.serverSettings.LoadChargeRates();
    SelectDetectionObject();
    lvwPrinters.Clear();
    services_.printersMonitored.RefreshPrinterLists();
    LetMessagesRun();
    const std::shared_ptr<IJobDetectionObject> detector = detector_;
    detector->FullRefresh();
    lblFullRefreshResult.Caption(texts.lblRefreshCompleted.Caption());
    LetMessagesRun();
    Pointer(MousePointer::Default);
}

void frmMain::PrinterListScan() {
    lblPrinterListScanPerformed.Caption(NowText());
    lblPrinterListScanResult.Caption(texts.lblExecuting.Caption());
    SchedulePrinterListScan();
    LetMessagesRun();
    services_.printersMonitored.RefreshPrinterLists();
    if (services_.printersMonitored.PrinterListChanged()) {
        lblPrinterListScanResult.Caption(texts.lblPrinterListChanged.Caption());
        LetMessagesRun();
        lvwPrinters.Clear();
        const std::shared_ptr<IJobDetectionObject> detector = detector_;
        detector->PrinterListChanged();
    } else {
        lblPrinterListScanResult.Caption(texts.lblPrinterListUnchanged.Caption());
    }
    LetMessagesRun();
}

void frmMain::ServerHealthTest() {
    lblServerHealthTestPerformed.Caption(NowText());
    lblServerHealthTestResult.Caption(texts.lblExecuting.Caption());
    ScheduleServerHealthTest();
    LetMessagesRun();
    const std::shared_ptr<IJobDetectionObject> detector = detector_;
    if (detector->TestServerHealth()) {
        lblServerHealthTestResult.Caption(texts.lblServersValid.Caption());
    } else {
        lblServerHealthTestResult.Caption(texts.lblServersInvalid.Caption());
        ScheduleFullRefreshNow();
    }
}

void frmMain::ShowActivity(const std::u16string& text) {
    lblActivity.Caption(NowText() + u" " + text);
    LetMessagesRun();
}

void frmMain::IJobDetectionEventSink_FoundPrinter(const std::u16string& fullPrinterName, bool blnMonitor) {
    LogErrors(u"frmMain:FoundPrinter", [&] {
        if (!blnMonitor) {
            ScheduleServerDownFullRefresh();
        }
        lvwPrinters.AddItem(fullPrinterName, fullPrinterName, blnMonitor ? iconWatched : iconFailed);
    });
}

void frmMain::IJobDetectionEventSink_FoundNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo) {
    const clsJobInfo& job = *objJobInfo;
    if (services_.jobMatcher.JobMatch(job.UserName, job.MachineName, job.FullPrinterName)) {
        // Built first, because it may fail: an error after AddJob would make the detector report the job again.
        const std::u16string line = u"Adding Job to pending list: " + job.Document + u"," + job.PrinterName;
        services_.accountDialog.AddJob(objJobInfo);
        services_.log.Log(line);
    }
}

void frmMain::IJobDetectionEventSink_Activity(const std::u16string& strActivity) {
    ShowActivity(texts.Activity(strActivity));
}

void frmMain::TurnOnLogging() {
    if (services_.platform.messageBoxes.Show(texts.lblLoggingQuestion.Caption(), Caption(), MessageButtons::OKCancel,
                                             MessageIcon::None) == MessageAnswer::OK) {
        services_.log.LoggingEnabled(true);
        for (const std::u16string& problem : services_.translator.Problems()) {
            services_.log.Log(problem);
        }
    }
}

void frmMain::ShowAdvancedStatus() {
    if (services_.platform.messageBoxes.Show(texts.lblAdvancedQuestion.Caption(), Caption(), MessageButtons::OKCancel,
                                             MessageIcon::None) == MessageAnswer::OK) {
        Place place = Position();
        place.height = advancedHeight;
        Move(place);
    }
}

void frmMain::OnTrayIconDoubleClick() {
    LogErrors(u"frmMain:TrayIcon", [this] { ShowOrHide(); });
}

void frmMain::ShowOrHide() {
    if (Shown()) {
        Hide();
        return;
    }
    CenterForm(*this, services_.platform.screen);
    ctlBanner1.Shown();
    Show();
    cmdClose.TakeFocus();
    SetFormTopMost(*this, true);
    BringToForeground();
}

bool frmMain::OnQueryUnload(CloseReason reason) {
    bool unload = reason == CloseReason::WindowsSession;
    LogErrors(u"frmMain:QueryUnload", [&] {
        Hide();
        unload = unload || (reason == CloseReason::TaskManager && ConfirmClose());
        if (unload) {
            services_.platform.system.Sleep(unloadPause);
            LetMessagesRun();
        }
    });
    return unload;
}

bool frmMain::ConfirmClose() {
    const ReentryFlag::Scope confirming(confirming_);
    return confirming.Entered() &&
           services_.platform.messageBoxes.Show(texts.lblCloseQuestion.Caption(), texts.lblCloseTitle.Caption(),
                                                MessageButtons::YesNo, MessageIcon::None) == MessageAnswer::Yes;
}

void frmMain::OnUnload() {
    LogErrors(u"frmMain:Unload", [this] {
        tmrActivity.Enabled(false);
        RemoveTrayIcon();
    });
    LogErrors(u"frmMain:Unload", [this] { services_.unloaded(); });
}

std::u16string frmMain::NowText() {
    return GeneralDateText(services_.platform.clock.Now(), services_.platform.clock);
}

void frmMain::LetMessagesRun() {
    services_.platform.messageLoop.RunPending();
}

}  // namespace korvanta

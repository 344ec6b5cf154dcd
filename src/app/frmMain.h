#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "app/Heartbeat.h"
#include "app/ServerSettings.h"
#include "app/StatusForm.h"
#include "app/basLog.h"
#include "controls/ReentryFlag.h"
#include "detection/IJobDetectionEventSink.h"
#include "detection/IJobDetectionObject.h"
#include "detection/clsPrintJobMatcher.h"
#include "detection/clsPrintersMonitored.h"
#include "platform/Platform.h"
#include "translation/Translator.h"
#include "ui/frmAccountNumber.h"

namespace korvanta {

// What the main form works with. All references must outlive the form.
struct MainFormServices {
    Platform& platform;
    basLog& log;
    Translator& translator;
    clsRegSettings& registrySettings;
    ServerSettings& serverSettings;
    clsPrintersMonitored& printersMonitored;
    clsPrintJobMatcher& jobMatcher;
    frmAccountNumber& accountDialog;
    std::function<std::shared_ptr<IJobDetectionObject>(DetectionMethod method)> makeDetector;
    // Called when the main form is unloaded: the program ends.
    std::function<void()> unloaded;
};

// The status form and the program's heartbeat: an icon in the notification area, and a timer that runs at most one
// scheduled task per second. Owns the job detection object.
class frmMain : public StatusForm, public IJobDetectionEventSink {
  public:
    explicit frmMain(const MainFormServices& services);

    void Start();
    // The detection object in use; null before the form is loaded.
    IJobDetectionObject* JobDetectionObject() const { return detector_.get(); }
    // Also removes the icon from the notification area if it is still there.
    void Detach() override;

    DateTime FullRefreshDue() const { return heartbeat_.FullRefreshDue(); }
    DateTime PrinterListScanDue() const { return heartbeat_.PrinterListScanDue(); }
    DateTime ServerHealthTestDue() const { return heartbeat_.ServerHealthTestDue(); }
    DetectionMethod CurrentDetectionMethod() const { return currentDetectionMethod_; }

  protected:
    void OnTranslate() override;
    void OnLoad() override;
    bool OnQueryUnload(CloseReason reason) override;
    void OnUnload() override;
    void OnResize() override;
    void OnTrayIconDoubleClick() override;
    void OnTaskbarCreated() override;

  private:
    void IJobDetectionEventSink_FoundPrinter(const std::u16string& fullPrinterName, bool blnMonitor) override;
    void IJobDetectionEventSink_FoundNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo) override;
    void IJobDetectionEventSink_Activity(const std::u16string& strActivity) override;

    void ConnectControls();
    template <class Handler>
    void LogErrors(const char16_t* procedure, Handler handler);
    void AddTrayIcon();
    void RemoveTrayIcon();
    void SelectDetectionObject();
    const std::u16string& MethodText(DetectionMethod method) const;
    void ScheduleFullRefresh();
    void ScheduleServerDownFullRefresh();
    void ScheduleFullRefreshNow();
    void SchedulePrinterListScan();
    void ScheduleServerHealthTest();
    void ShowDueTimes();
    void ActivityTick();
    void RunTask(Heartbeat::Task task);
    void FullRefresh();
    void PrinterListScan();
    void ServerHealthTest();
    void ClockTick();
    void ShowActivity(const std::u16string& text);
    void TurnOnLogging();
    void ShowAdvancedStatus();
    void ShowOrHide();
    bool ConfirmClose();
    DateTime Now() { return services_.platform.clock.Now(); }
    std::u16string NowText();
    void LetMessagesRun();

    MainFormServices services_;
    std::shared_ptr<IJobDetectionObject> detector_;
    DetectionMethod currentDetectionMethod_ = DetectionMethod::File;
    std::optional<TrayIcon> trayIcon_;
    Heartbeat heartbeat_;
    // Set while the question whether to close the program is on the screen.
    ReentryFlag confirming_;
};

}  // namespace korvanta

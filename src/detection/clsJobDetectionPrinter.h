#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/Services.h"
#include "detection/IJobDetectionObject.h"
#include "detection/JobHistories.h"
#include "detection/OneAtATime.h"
#include "platform/MessageLoop.h"
#include "platform/Mutex.h"
#include "platform/Spooler.h"
#include "platform/WaitableHandles.h"

namespace korvanta {

class clsClientSettings;
class clsPrintersMonitored;

// Finds jobs by asking this machine's spooler: on the Windows NT family whenever it signals that a job was added, on
// Windows 95/98/Me every so many ticks. A printer that was opened is never closed, since job records carry its handle.
class clsJobDetectionPrinter : public IJobDetectionObject {
  public:
    clsJobDetectionPrinter(Spooler& spooler, WaitableHandles& waitableHandles,
                           const clsPrintersMonitored& printersMonitored, const clsClientSettings& clientSettings,
                           MutexFactory& mutexes, MessageLoop& messageLoop, SystemInformation& systemInformation,
                           TraceLog& log);

  private:
    struct Printer {
        PrinterHandle handle = 0;
        ChangeHandle changeHandle = 0;  // 0 on Windows 95/98/Me
        std::u16string name;            // full printer name
    };
    // What one enumeration of a printer's jobs gave.
    struct Jobs {
        std::vector<std::uint32_t> words;
        std::uint32_t neededBytes = 0;
        std::uint32_t returned = 0;
        std::int32_t result = 0;
    };

    void IJobDetectionObject_MonitorClockTick() override;
    bool IJobDetectionObject_TestServerHealth() override;
    void IJobDetectionObject_Start(IJobDetectionEventSink& objEventSink) override;
    void IJobDetectionObject_PrinterListChanged() override;
    void IJobDetectionObject_FullRefresh() override;
    bool IJobDetectionObject_CancelJob(const clsJobInfo& objJobInfo) override;

    void OpenPrinters();
    std::u16string OpenPrinter(Printer& printer, bool isWindowsNT);
    void ProcessAllPrinters(bool silent);
    void ProcessNewJobs(const Printer& printer, bool silent);
    void EnumerateAndReport(const Printer& printer, bool silent);
    Jobs EnumerateAllJobs(const Printer& printer);
    void PollPrinters();
    void ServeSignalledPrinters();
    std::optional<std::size_t> SignalledPrinter();

    Spooler& spooler_;
    WaitableHandles& waitableHandles_;
    const clsPrintersMonitored& printersMonitored_;
    const clsClientSettings& clientSettings_;
    MessageLoop& messageLoop_;
    SystemInformation& systemInformation_;
    TraceLog& log_;
    IJobDetectionEventSink* eventSink_ = nullptr;
    std::vector<Printer> printers_;
    JobHistories jobHistories_;
    std::int32_t pollTickCount_ = 0;
    OneAtATime operations_;
};

}  // namespace korvanta

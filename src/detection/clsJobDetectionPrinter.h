#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "common/Services.h"
#include "detection/IJobDetectionObject.h"
#include "detection/JobHistories.h"
#include "detection/OneAtATime.h"
#include "detection/WatchedPrinter.h"
#include "platform/MessageLoop.h"
#include "platform/Mutex.h"
#include "platform/Spooler.h"
#include "platform/WaitableHandles.h"

namespace korvanta {

class clsClientSettings;
class clsPrintersMonitored;

// Finds jobs by asking this machine's spooler: on the Windows NT family whenever it signals that a job was added, on
// Windows 95/98/Me every so many ticks. Jobs that are reported keep their printer open, by the pointer that the sink is
// given, so that they can be cancelled by its handle.
//
// A printer whose signal breaks (after a restart of its spooler, say) is reported as not watched, once, and the others
// are watched as before; the next rebuild opens it again.
class clsJobDetectionPrinter : public IJobDetectionObject {
  public:
    clsJobDetectionPrinter(Spooler& spooler, WaitableHandles& waitableHandles,
                           const clsPrintersMonitored& printersMonitored, const clsClientSettings& clientSettings,
                           MutexFactory& mutexes, MessageLoop& messageLoop, SystemInformation& systemInformation,
                           TraceLog& log);

  private:
    using Printer = std::shared_ptr<WatchedPrinter>;
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
    void ProcessAllPrinters(bool silent);
    void ProcessNewJobs(const WatchedPrinter& printer, bool silent);
    void EnumerateAndReport(const WatchedPrinter& printer, bool silent);
    void ReportNew(const WatchedPrinter& printer, const Jobs& jobs, bool silent);
    Jobs EnumerateAllJobs(const WatchedPrinter& printer);
    void PollPrinters();
    void ServeSignalledPrinters();
    void Serve(std::size_t index);
    std::optional<std::size_t> SignalledPrinter();
    std::vector<std::size_t> WaitOrder() const;
    std::uint32_t Poll(std::span<const std::size_t> indices);
    bool StopWatchingInvalid(std::span<const std::size_t> indices);
    void StopWatching(std::size_t index, const std::u16string& reason);

    Spooler& spooler_;
    WaitableHandles& waitableHandles_;
    const clsPrintersMonitored& printersMonitored_;
    const clsClientSettings& clientSettings_;
    MessageLoop& messageLoop_;
    SystemInformation& systemInformation_;
    TraceLog& log_;
    IJobDetectionEventSink* eventSink_ = nullptr;
    std::vector<Printer> printers_;
    std::size_t firstToWaitFor_ = 0;  // index; the waits of a tick and of the next ones go round
    JobHistories jobHistories_;
    std::int32_t pollTickCount_ = 0;
    OneAtATime operations_;
};

}  // namespace korvanta

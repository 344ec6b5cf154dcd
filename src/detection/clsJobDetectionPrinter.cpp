#include "detection/clsJobDetectionPrinter.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "common/Error.h"
#include "common/Text.h"
#include "detection/Activities.h"
#include "detection/basPrinterUtil.h"
#include "detection/clsJobInfo.h"
#include "detection/clsPrintersMonitored.h"
#include "server/clsClientSettings.h"

namespace korvanta {

namespace {

constexpr std::uint32_t jobAdded = 0x100;
constexpr std::uint32_t allJobs = 0xFFFFFFFF;
constexpr std::size_t blockWords = 16;
// Room for jobs that arrive between the call that asks for the size and the one that asks for the jobs.
constexpr std::uint32_t spareBytes = 1000;
constexpr std::size_t healthTestWords = 1001;
constexpr std::uint32_t healthTestBytes = 4000;

// Signals served in one tick. A handle that stays signalled for good, as after a restart of its spooler, would
// otherwise never let the tick end.
constexpr int mostSignals = 1000;

constexpr std::uint32_t waitTimedOut = 258;
constexpr std::uint32_t waitFailed = 0xFFFFFFFF;
// WaitForMultipleObjects takes no more handles in one call.
constexpr std::size_t mostWaitHandles = 64;

std::vector<std::uint32_t> WordsFor(std::uint32_t bytes) {
    return std::vector<std::uint32_t>(bytes / 4 + 2);
}

std::u16string CodeText(std::uint32_t code) {
    return NumberText(static_cast<std::int64_t>(code));
}

}  // namespace

clsJobDetectionPrinter::clsJobDetectionPrinter(Spooler& spooler, WaitableHandles& waitableHandles,
                                               const clsPrintersMonitored& printersMonitored,
                                               const clsClientSettings& clientSettings, MutexFactory& mutexes,
                                               MessageLoop& messageLoop, SystemInformation& systemInformation,
                                               TraceLog& log)
    : spooler_(spooler),
      waitableHandles_(waitableHandles),
      printersMonitored_(printersMonitored),
      clientSettings_(clientSettings),
      messageLoop_(messageLoop),
      systemInformation_(systemInformation),
      log_(log),
      jobHistories_(mutexes, log),
      operations_([this] {
          OpenPrinters();
          ProcessAllPrinters(false);
      }) {}

void clsJobDetectionPrinter::IJobDetectionObject_Start(IJobDetectionEventSink& objEventSink) {
    eventSink_ = &objEventSink;
    operations_.Run([this] {
        OpenPrinters();
        ProcessAllPrinters(true);
    });
}

void clsJobDetectionPrinter::IJobDetectionObject_FullRefresh() {
    operations_.Rebuild();
}

void clsJobDetectionPrinter::IJobDetectionObject_PrinterListChanged() {
    operations_.Rebuild();
}

void clsJobDetectionPrinter::IJobDetectionObject_MonitorClockTick() {
    try {
        if (systemInformation_.IsWindowsNT()) {
            operations_.Run([this] { ServeSignalledPrinters(); });
        } else if (pollTickCount_ < clientSettings_.PrinterPollingInterval()) {
            eventSink_->Activity(activity::idle);
            ++pollTickCount_;
        } else {
            operations_.Run([this] { PollPrinters(); });
        }
    } catch (...) {
        // The jobs are still in their queues, and the next tick looks again.
        return;
    }
}

bool clsJobDetectionPrinter::IJobDetectionObject_TestServerHealth() {
    for (const Printer& printer : std::vector<Printer>(printers_)) {
        std::vector<std::uint32_t> words(healthTestWords);
        std::uint32_t neededBytes = 0;
        std::uint32_t returnedJobs = 0;
        std::int32_t result =
            spooler_.EnumJobs(printer.handle, 0, 1, words, healthTestBytes, neededBytes, returnedJobs);
        if (neededBytes > healthTestBytes) {
            const std::uint32_t bufferBytes = neededBytes;
            words = WordsFor(bufferBytes);
            result = spooler_.EnumJobs(printer.handle, 0, 1, words, bufferBytes, neededBytes, returnedJobs);
        }
        if (result == 0) {
            log_.Log(u"TestPrinterHandles found an invalid handle for :" + printer.name);
            return false;
        }
    }
    return true;
}

bool clsJobDetectionPrinter::IJobDetectionObject_CancelJob(const clsJobInfo& objJobInfo) {
    return CancelByHandle(spooler_, objJobInfo);
}

// The former printers stay in use until the new ones are complete: messages that run meanwhile may test them.
void clsJobDetectionPrinter::OpenPrinters() {
    const bool isWindowsNT = systemInformation_.IsWindowsNT();
    std::vector<Printer> printers;
    for (const Variant& name : printersMonitored_.PrinterList()->Items()) {
        Printer printer{0, 0, name.Text()};
        const std::u16string failure = OpenPrinter(printer, isWindowsNT);
        eventSink_->FoundPrinter(printer.name, failure.empty());
        if (failure.empty()) {
            printers.push_back(printer);
        } else {
            log_.Log(u"Warning - unable to open printer " + printer.name + u" (" + failure + u")");
        }
    }
    printers_ = std::move(printers);
}

// Returns why the printer cannot be watched; empty when it can.
std::u16string clsJobDetectionPrinter::OpenPrinter(Printer& printer, bool isWindowsNT) {
    if (!spooler_.OpenPrinter(printer.name, printer.handle)) {
        return u"OpenPrinter call failed: " + CodeText(spooler_.LastError());
    }
    if (isWindowsNT) {
        printer.changeHandle = spooler_.FindFirstChange(printer.handle, jobAdded);
        if (printer.changeHandle == 0 || printer.changeHandle == -1) {
            return u"invalid change handle returned. Error: " + CodeText(spooler_.LastError());
        }
    }
    return {};
}

void clsJobDetectionPrinter::ProcessAllPrinters(bool silent) {
    for (const Printer& printer : std::vector<Printer>(printers_)) {
        ProcessNewJobs(printer, silent);
    }
}

// A failure concerns this printer only; the log shows how far it came.
void clsJobDetectionPrinter::ProcessNewJobs(const Printer& printer, bool silent) {
    try {
        EnumerateAndReport(printer, silent);
    } catch (...) {
        return;
    }
}

void clsJobDetectionPrinter::EnumerateAndReport(const Printer& printer, bool silent) {
    messageLoop_.RunPending();
    log_.Log(u"ProcessNewJob - called");
    const Jobs jobs = EnumerateAllJobs(printer);
    log_.Log(u"ProcessNewJob: Enum Jobs return value: " + NumberText(jobs.result));
    if (jobs.result == 0) {
        return;
    }
    const auto count = static_cast<std::int32_t>(jobs.returned);
    log_.Log(u"ProcessNewJob: Number of jobs: " + NumberText(count));
    for (std::int32_t k = 0; k < count; ++k) {
        auto job = std::make_shared<clsJobInfo>();
        job->Load(spooler_, jobs.words, blockWords * static_cast<std::size_t>(k), printer.name, printer.handle);
        jobHistories_.Report(job, *eventSink_, silent);
    }
}

clsJobDetectionPrinter::Jobs clsJobDetectionPrinter::EnumerateAllJobs(const Printer& printer) {
    Jobs jobs;
    const auto enumerate = [this, &printer, &jobs](std::uint32_t bufferBytes) {
        jobs.result =
            spooler_.EnumJobs(printer.handle, 0, allJobs, jobs.words, bufferBytes, jobs.neededBytes, jobs.returned);
    };
    enumerate(0);
    const std::uint32_t bufferBytes = jobs.neededBytes;
    jobs.words = WordsFor(bufferBytes);
    enumerate(bufferBytes);
    if (jobs.result == 0) {
        const std::uint32_t enlargedBytes = std::max(bufferBytes, jobs.neededBytes) + spareBytes;
        jobs.words = WordsFor(enlargedBytes);
        enumerate(enlargedBytes);
    }
    return jobs;
}

// Windows 95/98/Me.
void clsJobDetectionPrinter::PollPrinters() {
    eventSink_->Activity(activity::pollingPrinters);
    pollTickCount_ = 0;
    for (const Printer& printer : std::vector<Printer>(printers_)) {
        messageLoop_.RunPending();
        ProcessNewJobs(printer, false);
    }
}

// The Windows NT family. Messages that run between two signals may ask for a rebuild, which then waits for the end of
// this tick.
void clsJobDetectionPrinter::ServeSignalledPrinters() {
    eventSink_->Activity(activity::checkingForJobs);
    for (int signals = 0; signals < mostSignals && !operations_.RebuildWaits(); ++signals) {
        const std::optional<std::size_t> signalled = SignalledPrinter();
        if (!signalled) {
            return;
        }
        const Printer printer = printers_[*signalled];
        log_.Log(u"MonitorPrintersCallback:WaitForMultipleObjects Succeeded handle triggered: " +
                 NumberText(static_cast<std::int64_t>(*signalled)));
        if (spooler_.FindNextChange(printer.changeHandle) == 0) {
            messageLoop_.RunPending();
            spooler_.FindNextChange(printer.changeHandle);
        }
        ProcessNewJobs(printer, false);
    }
}

// The index of a printer whose handle is signalled. None when no handle is, and after a failure, which is logged.
std::optional<std::size_t> clsJobDetectionPrinter::SignalledPrinter() {
    std::size_t first = 0;
    do {
        const std::size_t count = std::min(mostWaitHandles, printers_.size() - first);
        std::vector<ChangeHandle> handles;
        for (std::size_t i = 0; i < count; ++i) {
            handles.push_back(printers_[first + i].changeHandle);
        }
        const std::uint32_t result = waitableHandles_.PollAny(handles);
        if (result < count) {
            return first + result;
        }
        if (result != waitTimedOut) {
            log_.Log(result == waitFailed ? u"MonitorPrintersCallback:WaitForMultipleObjects Wait Failed"
                                          : u"MonitorPrintersCallback:WaitForMultipleObjects Case Else!");
            return std::nullopt;
        }
        first += count;
    } while (first < printers_.size());
    return std::nullopt;
}

}  // namespace korvanta

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
    for (const Printer& printer : std::vector(printers_)) {
        std::vector<std::uint32_t> words(healthTestWords);
        std::uint32_t neededBytes = 0;
        std::uint32_t returnedJobs = 0;
        std::int32_t result =
            spooler_.EnumJobs(printer->Handle(), 0, 1, words, healthTestBytes, neededBytes, returnedJobs);
        if (neededBytes > healthTestBytes) {
            const std::uint32_t bufferBytes = neededBytes;
            words = WordsFor(bufferBytes);
            result = spooler_.EnumJobs(printer->Handle(), 0, 1, words, bufferBytes, neededBytes, returnedJobs);
        }
        if (result == 0) {
            log_.Log(u"TestPrinterHandles found an invalid handle for :" + printer->Name());
            return false;
        }
    }
    return true;
}

bool clsJobDetectionPrinter::IJobDetectionObject_CancelJob(const clsJobInfo& objJobInfo) {
    return CancelByHandle(spooler_, objJobInfo);
}

// The former printers stay in use until the new ones are complete, since messages that run meanwhile may test them.
// Closing them comes last, when nothing refers to them any more.
void clsJobDetectionPrinter::OpenPrinters() {
    const bool isWindowsNT = systemInformation_.IsWindowsNT();
    std::vector<Printer> printers;
    for (const Variant& name : printersMonitored_.PrinterList()->Items()) {
        const auto printer = std::make_shared<WatchedPrinter>(spooler_, name.Text());
        const std::u16string failure = printer->Open(isWindowsNT);
        eventSink_->FoundPrinter(printer->Name(), failure.empty());
        if (failure.empty()) {
            printers.push_back(printer);
        } else {
            log_.Log(u"Warning - unable to open printer " + printer->Name() + u" (" + failure + u")");
        }
    }
    printers_.swap(printers);
    firstToWaitFor_ = 0;
}

void clsJobDetectionPrinter::ProcessAllPrinters(bool silent) {
    for (const Printer& printer : std::vector(printers_)) {
        ProcessNewJobs(*printer, silent);
    }
}

// A failure concerns this printer only; the log shows how far it came.
void clsJobDetectionPrinter::ProcessNewJobs(const WatchedPrinter& printer, bool silent) {
    try {
        EnumerateAndReport(printer, silent);
    } catch (...) {
        return;
    }
}

void clsJobDetectionPrinter::EnumerateAndReport(const WatchedPrinter& printer, bool silent) {
    messageLoop_.RunPending();
    log_.Log(u"ProcessNewJob - called");
    const Jobs jobs = EnumerateAllJobs(printer);
    log_.Log(u"ProcessNewJob: Enum Jobs return value: " + NumberText(jobs.result));
    if (jobs.result == 0) {
        return;
    }
    log_.Log(u"ProcessNewJob: Number of jobs: " + NumberText(static_cast<std::int32_t>(jobs.returned)));
    ReportNew(printer, jobs, silent);
}

// The last look is replaced when all jobs of this one are dealt with. Until then it grows, so that those that are dealt
// with are not new if a failure ends this one.
void clsJobDetectionPrinter::ReportNew(const WatchedPrinter& printer, const Jobs& jobs, bool silent) {
    JobHistories::Queue& lastLook = jobHistories_.LastLookAt(printer.Name());
    JobHistories::Queue look;
    for (std::int32_t k = 0; k < static_cast<std::int32_t>(jobs.returned); ++k) {
        const auto job = std::make_shared<clsJobInfo>();
        job->Load(spooler_, jobs.words, blockWords * static_cast<std::size_t>(k), printer.Name(), printer.Handle());
        const bool known = lastLook.contains(job);
        jobHistories_.Report(job, printer.KeepingOpen(job), *eventSink_, silent || known);
        lastLook.insert(job);
        look.insert(job);
    }
    lastLook.swap(look);
}

clsJobDetectionPrinter::Jobs clsJobDetectionPrinter::EnumerateAllJobs(const WatchedPrinter& printer) {
    Jobs jobs;
    const auto enumerate = [this, &printer, &jobs](std::uint32_t bufferBytes) {
        jobs.result =
            spooler_.EnumJobs(printer.Handle(), 0, allJobs, jobs.words, bufferBytes, jobs.neededBytes, jobs.returned);
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
    for (const Printer& printer : std::vector(printers_)) {
        messageLoop_.RunPending();
        ProcessNewJobs(*printer, false);
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
        Serve(*signalled);
    }
}

// A handle that cannot be armed again would stay signalled, or never be signalled again.
void clsJobDetectionPrinter::Serve(std::size_t index) {
    const Printer printer = printers_[index];
    log_.Log(u"MonitorPrintersCallback:WaitForMultipleObjects Succeeded handle triggered: " +
             NumberText(static_cast<std::int64_t>(index)));
    bool armed = spooler_.FindNextChange(printer->Signal()) != 0;
    if (!armed) {
        messageLoop_.RunPending();
        armed = spooler_.FindNextChange(printer->Signal()) != 0;
    }
    if (!armed) {
        StopWatching(index, u"change handle not armed again. Error: " +
                                NumberText(static_cast<std::int64_t>(spooler_.LastError())));
    }
    ProcessNewJobs(*printer, false);
}

// The index of a printer whose handle is signalled. None when no handle is, and after a failure, which is logged.
std::optional<std::size_t> clsJobDetectionPrinter::SignalledPrinter() {
    const std::vector<std::size_t> order = WaitOrder();
    std::size_t first = 0;
    do {
        const std::size_t count = std::min(mostWaitHandles, order.size() - first);
        const std::span<const std::size_t> group(order.data() + first, count);
        const std::uint32_t result = Poll(group);
        if (result < count) {
            firstToWaitFor_ = group[result] + 1;
            return group[result];
        }
        if (result != waitTimedOut) {
            log_.Log(result == waitFailed ? u"MonitorPrintersCallback:WaitForMultipleObjects Wait Failed"
                                          : u"MonitorPrintersCallback:WaitForMultipleObjects Case Else!");
            return result == waitFailed && StopWatchingInvalid(group) ? SignalledPrinter() : std::nullopt;
        }
        first += count;
    } while (first < order.size());
    return std::nullopt;
}

// The indices of the watched printers, those behind the one that was served last first: a handle that is signalled
// again and again must not keep the others from their turn.
std::vector<std::size_t> clsJobDetectionPrinter::WaitOrder() const {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < printers_.size(); ++i) {
        const std::size_t index = (firstToWaitFor_ + i) % printers_.size();
        if (printers_[index]->Signal() != 0) {
            order.push_back(index);
        }
    }
    return order;
}

std::uint32_t clsJobDetectionPrinter::Poll(std::span<const std::size_t> indices) {
    std::vector<ChangeHandle> handles;
    for (const std::size_t index : indices) {
        handles.push_back(printers_[index]->Signal());
    }
    return waitableHandles_.PollAny(handles);
}

// One bad handle fails the wait for all. True when there was one, and the others can be waited for again.
bool clsJobDetectionPrinter::StopWatchingInvalid(std::span<const std::size_t> indices) {
    std::vector<std::size_t> invalid;
    for (std::size_t i = 0; i < indices.size(); ++i) {
        if (Poll(indices.subspan(i, 1)) == waitFailed) {
            invalid.push_back(indices[i]);
        }
    }
    for (const std::size_t index : invalid) {
        StopWatching(index, u"invalid change handle");
    }
    return !invalid.empty();
}

// The sink brings the next full refresh forward, which opens the printer again.
void clsJobDetectionPrinter::StopWatching(std::size_t index, const std::u16string& reason) {
    const Printer printer = printers_[index];
    log_.Log(u"Warning - unable to watch printer " + printer->Name() + u" any longer (" + reason + u")");
    printer->CloseSignal();
    eventSink_->FoundPrinter(printer->Name(), false);
}

}  // namespace korvanta

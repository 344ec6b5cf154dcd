#include "detection/clsJobDetectionFile.h"

#include <set>

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"
#include "detection/clsPrintersMonitored.h"
#include "server/basJobNotificationFile.h"
#include "server/clsClientSettings.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {

namespace {

// Files are numbered 0 to 999.
constexpr std::int32_t fileNumbers = 1000;
constexpr std::uint32_t readRetryMilliseconds = 200;

// The lower-cased server of a full printer name.
std::u16string ServerOf(const std::u16string& fullPrinterName) {
    const PrinterNameParts parts = SplitPrinterName(fullPrinterName);
    if (!parts.hasServer) {
        throw Error(errorNumber::invalidCall, u"clsJobDetectionFile", u"Invalid procedure call or argument");
    }
    return Lower(parts.server);
}

// The number in a server's counter file, which may end with a line break. A number that no file can have is none: it
// would set the client off reading files for ever. What has just reached the end of the range is about to start again.
std::int32_t CounterFrom(std::u16string_view text) {
    while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n')) {
        text.remove_suffix(1);
    }
    const std::int32_t counter = ToInteger32(text);
    if (counter < 0 || counter > fileNumbers) {
        throw Error(errorNumber::overflow, u"clsJobDetectionFile", u"Overflow");
    }
    return counter % fileNumbers;
}

}  // namespace

clsJobDetectionFile::clsJobDetectionFile(clsServerInterfaces& serverInterfaces,
                                         const clsPrintersMonitored& printersMonitored,
                                         const clsClientSettings& clientSettings, MutexFactory& mutexes, System& system,
                                         TraceLog& log, const std::u16string& windowsUserName)
    : serverInterfaces_(serverInterfaces),
      printersMonitored_(printersMonitored),
      clientSettings_(clientSettings),
      system_(system),
      log_(log),
      windowsUserName_(windowsUserName),
      jobHistories_(mutexes, log),
      operations_([this] { Rebuild(); }) {}

void clsJobDetectionFile::IJobDetectionObject_Start(IJobDetectionEventSink& objEventSink) {
    eventSink_ = &objEventSink;
    operations_.Rebuild();
}

void clsJobDetectionFile::IJobDetectionObject_FullRefresh() {
    operations_.Rebuild();
}

void clsJobDetectionFile::IJobDetectionObject_PrinterListChanged() {
    operations_.Rebuild();
}

bool clsJobDetectionFile::IJobDetectionObject_TestServerHealth() {
    for (const Variant& server : printersMonitored_.ServerList()->Items()) {
        if (!serverInterfaces_.Interface(server.Text())->TestHealth()) {
            return false;
        }
    }
    return true;
}

void clsJobDetectionFile::IJobDetectionObject_MonitorClockTick() {
    if (tickCount_ < clientSettings_.FilePollingInterval()) {
        ++tickCount_;
        return;
    }
    operations_.Run([this] {
        tickCount_ = 1;
        eventSink_->Activity(u"Polling servers");
        if (pollPhase_ >= 2) {
            pollPhase_ = 0;
            GetServerCounters();
        } else {
            pollPhase_ += 2;
            PollAllServers();
        }
    });
}

void clsJobDetectionFile::PollServers() {
    operations_.Run([this] { PollAllServers(); });
}

void clsJobDetectionFile::Rebuild() {
    FindPrinters();
    GetServerCounters();
}

// A printer name without a server ends the pass: which server it was meant for, nobody knows.
void clsJobDetectionFile::FindPrinters() {
    log_.Log(u"clsJobDetectionFile: Finding printers");
    for (const Variant& server : printersMonitored_.ServerList()->Items()) {
        ServerHealth(server.Text(), false);
    }
    try {
        ReportPrinters();
    } catch (...) {
        log_.Log(u"clsJobDetectionFile:FindPrinters Error: " + Error::Current().NumberAndDescription());
    }
}

void clsJobDetectionFile::ReportPrinters() {
    std::set<std::u16string> tested;
    for (const Variant& printer : printersMonitored_.PrinterList()->Items()) {
        const std::u16string server = ServerOf(printer.Text());
        if (tested.insert(server).second) {
            ServerHealth(server, serverInterfaces_.Interface(server)->TestHealth());
        }
        eventSink_->FoundPrinter(printer.Text(), ServerHealth(server));
    }
}

void clsJobDetectionFile::GetServerCounters() {
    log_.Log(u"clsJobDetectionFile: Getting server counters");
    for (const Variant& server : printersMonitored_.ServerList()->Items()) {
        if (!ServerHealth(server.Text())) {
            continue;
        }
        try {
            ProcessServerCounter(server.Text());
        } catch (...) {
            // A user without jobs has no counter on this server: nothing that anybody needs to be told.
            continue;
        }
    }
}

// Files from before the first look are left alone, and so are those around the end of the range, where older files of
// the same numbers may still lie: PollServers finds the new ones.
void clsJobDetectionFile::ProcessServerCounter(const std::u16string& serverName) {
    const std::int32_t counter = CounterFrom(serverInterfaces_.Interface(serverName)->GetJobCounter());
    const auto held = jobCounters_.find(Lower(serverName));
    if (held != jobCounters_.end()) {
        for (std::int32_t number = held->second; number < counter; ++number) {
            if (const std::shared_ptr<clsJobInfo> job = ReadJobFile(number, serverName)) {
                ReportJob(job);
            }
        }
    }
    JobCounter(serverName, counter);
}

void clsJobDetectionFile::PollAllServers() {
    for (const Variant& server : printersMonitored_.ServerList()->Items()) {
        log_.Log(u"Checking server for print jobs: " + server.Text());
        if (ServerHealth(server.Text())) {
            PollServer(server.Text());
        }
    }
}

void clsJobDetectionFile::PollServer(const std::u16string& serverName) {
    const std::shared_ptr<IServerInterface> server = serverInterfaces_.Interface(serverName);
    log_.Log(u"Testing for job notification file " + NumberText(JobCounter(serverName)));
    // Once around is enough: a web server that says yes to every file would be asked for ever.
    for (std::int32_t i = 0; i < fileNumbers; ++i) {
        const std::int32_t number = JobCounter(serverName);
        if (!server->TestJobNotificationFile(number)) {
            return;
        }
        log_.Log(u"Reading job event file " + NumberText(number));
        if (const std::shared_ptr<clsJobInfo> job = ReadJobFile(number, serverName)) {
            log_.Log(u"Valid job event file processed");
            ReportJob(job);
        } else {
            log_.Log(u"Invalid job event file processed");
            if (!server->TestJobNotificationFile(number)) {
                return;
            }
        }
        IncrementJobCounter(serverName);
    }
}

// None for a file that cannot be read twice: the server may have been writing it the first time.
std::shared_ptr<clsJobInfo> clsJobDetectionFile::ReadJobFile(std::int32_t number, const std::u16string& serverName) {
    const std::shared_ptr<IServerInterface> server = serverInterfaces_.Interface(serverName);
    auto job = std::make_shared<clsJobInfo>();
    bool valid = job->ReadFromString(server->GetJobNotificationFile(number));
    job->JobEventFilename = JobNotificationFileName(windowsUserName_, number);
    if (!valid) {
        system_.Sleep(readRetryMilliseconds);
        valid = job->ReadFromString(server->GetJobNotificationFile(number));
    }
    return valid ? job : nullptr;
}

void clsJobDetectionFile::ReportJob(const std::shared_ptr<clsJobInfo>& job) {
    if (jobHistories_.HistoryForPrinter(job->FullPrinterName).CheckNewJob(job)) {
        eventSink_->FoundNewJob(job);
    }
}

bool clsJobDetectionFile::ServerHealth(const std::u16string& serverName) const {
    const auto found = serverHealth_.find(Lower(serverName));
    return found != serverHealth_.end() && found->second;
}

void clsJobDetectionFile::ServerHealth(const std::u16string& serverName, bool healthy) {
    serverHealth_[Lower(serverName)] = healthy;
}

// 0 for a server that none was held for, from now on.
std::int32_t clsJobDetectionFile::JobCounter(const std::u16string& serverName) {
    return jobCounters_[Lower(serverName)];
}

void clsJobDetectionFile::JobCounter(const std::u16string& serverName, std::int32_t counter) {
    jobCounters_[Lower(serverName)] = counter;
}

void clsJobDetectionFile::IncrementJobCounter(const std::u16string& serverName) {
    JobCounter(serverName, (JobCounter(serverName) + 1) % fileNumbers);
}

}  // namespace korvanta

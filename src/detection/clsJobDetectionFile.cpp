#include "detection/clsJobDetectionFile.h"

#include <optional>
#include <set>

#include "common/Conversion.h"
#include "common/Error.h"
#include "common/Text.h"
#include "detection/Activities.h"
#include "detection/clsPrintersMonitored.h"
#include "server/PrinterName.h"
#include "server/basJobNotificationFile.h"
#include "server/clsClientSettings.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {

namespace {

// Files are numbered 0 to 999.
constexpr std::int32_t fileNumbers = 1000;
// So many files in a row that are there but empty are a web server that does not answer, or that has a page for every
// address: it is asked for no more of them in one poll.
constexpr int mostEmptyFiles = 5;
// A server that takes longer over an empty file is not there: each further question would keep the user waiting as
// long.
constexpr std::int64_t longestEmptyAnswer = 5;  // seconds
constexpr std::uint32_t readRetryMilliseconds = 200;

// The lower-cased server of a full printer name.
std::u16string ServerOf(const std::u16string& fullPrinterName) {
    const std::optional<std::u16string> server = PrinterName(fullPrinterName).Server();
    if (!server) {
        throw Error(errorNumber::invalidCall, u"clsJobDetectionFile", u"Invalid procedure call or argument");
    }
    return Lower(*server);
}

// The number in a server's counter file, which may end with a line break. A number that no file can have is none: it
// would set the client off reading files for ever. The one behind the last file is taken, 0 coming next.
std::int32_t CounterFrom(std::u16string_view text) {
    while (!text.empty() && (text.back() == u'\r' || text.back() == u'\n')) {
        text.remove_suffix(1);
    }
    const std::int32_t counter = ToInteger32(text);
    if (counter < 0 || counter > fileNumbers) {
        throw Error(errorNumber::overflow, u"clsJobDetectionFile", u"Overflow");
    }
    return counter;
}

}  // namespace

clsJobDetectionFile::clsJobDetectionFile(clsServerInterfaces& serverInterfaces,
                                         const clsPrintersMonitored& printersMonitored,
                                         const clsClientSettings& clientSettings, MutexFactory& mutexes, Clock& clock,
                                         System& system, TraceLog& log, const std::u16string& windowsUserName)
    : serverInterfaces_(serverInterfaces),
      printersMonitored_(printersMonitored),
      clientSettings_(clientSettings),
      clock_(clock),
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
        eventSink_->Activity(activity::pollingServers);
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

// Files from before the first look are left alone. So are all files when the numbers have started again, since older
// ones of the same numbers may still lie there; PollServers has read the new ones by then.
void clsJobDetectionFile::ProcessServerCounter(const std::u16string& serverName) {
    const std::int32_t counter = CounterFrom(serverInterfaces_.Interface(serverName)->GetJobCounter());
    const auto held = jobCounters_.find(Lower(serverName));
    if (held != jobCounters_.end()) {
        for (std::int32_t number = held->second; number < counter; ++number) {
            if (const JobFile file = ReadJobFile(number, serverName); file.job) {
                ReportJob(file.job);
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
    log_.Log(u"Testing for job notification file " + NumberText(NextFile(serverName)));
    int emptyFiles = 0;
    // Once around is enough, whatever a server has under all these numbers.
    for (std::int32_t i = 0; i < fileNumbers && emptyFiles < mostEmptyFiles; ++i) {
        const std::int32_t number = NextFile(serverName);
        const DateTime asked = clock_.Now();
        if (!server->TestJobNotificationFile(number)) {
            break;
        }
        log_.Log(u"Reading job event file " + NumberText(number));
        const JobFile file = ReadJobFile(number, serverName);
        if (file.job) {
            log_.Log(u"Valid job event file processed");
            ReportFilesBefore(number, emptyFiles, serverName);
            ReportJob(file.job);
        } else {
            log_.Log(u"Invalid job event file processed");
            if (!server->TestJobNotificationFile(number)) {
                break;
            }
        }
        IncrementJobCounter(serverName);
        emptyFiles = !file.job && file.empty ? emptyFiles + 1 : 0;
        if (emptyFiles != 0 && clock_.Now() > asked.PlusSeconds(longestEmptyAnswer)) {
            break;
        }
    }
    if (emptyFiles != 0) {
        // With nothing behind them they may be read yet, once the server answers.
        JobCounter(serverName, (NextFile(serverName) - emptyFiles + fileNumbers) % fileNumbers);
    }
}

// Empty files are read again when there turns out to be a job behind them: their own may have come since they were
// read, or their server may have come back. From here on nobody would ask for them any more.
void clsJobDetectionFile::ReportFilesBefore(std::int32_t number, int files, const std::u16string& serverName) {
    for (int before = files; before > 0; --before) {
        const std::int32_t earlier = (number - before + fileNumbers) % fileNumbers;
        if (const JobFile file = ReadJobFile(earlier, serverName); file.job) {
            ReportJob(file.job);
        }
    }
}

// A file that cannot be read is tried once more: the server may have been writing it the first time. One that gave
// something at one time alone has only just come.
clsJobDetectionFile::JobFile clsJobDetectionFile::ReadJobFile(std::int32_t number, const std::u16string& serverName) {
    const std::shared_ptr<IServerInterface> server = serverInterfaces_.Interface(serverName);
    auto job = std::make_shared<clsJobInfo>();
    std::u16string text = server->GetJobNotificationFile(number);
    bool empty = text.empty();
    bool valid = job->ReadFromString(text);
    job->JobEventFilename = JobNotificationFileName(windowsUserName_, number);
    if (!valid) {
        system_.Sleep(readRetryMilliseconds);
        text = server->GetJobNotificationFile(number);
        empty = empty || text.empty();
        valid = job->ReadFromString(text);
    }
    return {valid ? job : nullptr, empty};
}

void clsJobDetectionFile::ReportJob(const std::shared_ptr<clsJobInfo>& job) {
    jobHistories_.Report(job, *eventSink_);
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

// A counter that stands behind the last file means the first one.
std::int32_t clsJobDetectionFile::NextFile(const std::u16string& serverName) {
    return JobCounter(serverName) % fileNumbers;
}

void clsJobDetectionFile::IncrementJobCounter(const std::u16string& serverName) {
    JobCounter(serverName, (NextFile(serverName) + 1) % fileNumbers);
}

}  // namespace korvanta

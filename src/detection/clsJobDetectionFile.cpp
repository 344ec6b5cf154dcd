#include "detection/clsJobDetectionFile.h"

#include <optional>
#include <set>

#include "common/Error.h"
#include "common/Text.h"
#include "detection/Activities.h"
#include "detection/basPrinterUtil.h"
#include "detection/clsPrintersMonitored.h"
#include "server/PrinterName.h"
#include "server/clsClientSettings.h"
#include "server/clsServerInterfaces.h"

namespace korvanta {

namespace {

// The lower-cased server of a full printer name.
std::u16string ServerOf(const std::u16string& fullPrinterName) {
    const std::optional<std::u16string> server = PrinterName(fullPrinterName).Server();
    if (!server) {
        throw StandardError(errorNumber::invalidCall, u"clsJobDetectionFile");
    }
    return Lower(*server);
}

}  // namespace

clsJobDetectionFile::clsJobDetectionFile(clsServerInterfaces& serverInterfaces,
                                         const clsPrintersMonitored& printersMonitored,
                                         const clsClientSettings& clientSettings, MutexFactory& mutexes, Clock& clock,
                                         System& system, Spooler& spooler, TraceLog& log,
                                         const std::u16string& windowsUserName)
    : serverInterfaces_(serverInterfaces),
      printersMonitored_(printersMonitored),
      clientSettings_(clientSettings),
      spooler_(spooler),
      log_(log),
      jobHistories_(mutexes, log),
      fileSurroundings_{serverInterfaces,
                        clock,
                        system,
                        log,
                        windowsUserName,
                        [this](const std::shared_ptr<clsJobInfo>& job) { jobHistories_.Report(job, job, *eventSink_); }},
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

// No handle of the printer is held here.
bool clsJobDetectionFile::IJobDetectionObject_CancelJob(const clsJobInfo& objJobInfo) {
    return CancelByName(spooler_, objJobInfo);
}

void clsJobDetectionFile::PollServers() {
    operations_.Run([this] { PollAllServers(); });
}

void clsJobDetectionFile::Rebuild() {
    FindPrinters();
    GetServerCounters();
}

// A printer name without a server ends the pass with an error in the log.
void clsJobDetectionFile::FindPrinters() {
    log_.Log(u"clsJobDetectionFile: Finding printers");
    for (const Variant& server : printersMonitored_.ServerList()->Items()) {
        FilesOf(server.Text()).Healthy(false);
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
            FilesOf(server).Healthy(serverInterfaces_.Interface(server)->TestHealth());
        }
        eventSink_->FoundPrinter(printer.Text(), FilesOf(server).Healthy());
    }
}

void clsJobDetectionFile::GetServerCounters() {
    log_.Log(u"clsJobDetectionFile: Getting server counters");
    JobFiles::Pauses pauses;
    for (const Variant& server : printersMonitored_.ServerList()->Items()) {
        JobFiles& files = FilesOf(server.Text());
        if (!files.Healthy()) {
            continue;
        }
        try {
            files.CatchUp(pauses);
        } catch (...) {
            // A user who has never printed here has no counter, so a failure is nothing unusual.
            continue;
        }
    }
}

void clsJobDetectionFile::PollAllServers() {
    JobFiles::Pauses pauses;
    for (const Variant& server : printersMonitored_.ServerList()->Items()) {
        log_.Log(u"Checking server for print jobs: " + server.Text());
        if (JobFiles& files = FilesOf(server.Text()); files.Healthy()) {
            files.Poll(pauses);
        }
    }
}

JobFiles& clsJobDetectionFile::FilesOf(const std::u16string& serverName) {
    std::unique_ptr<JobFiles>& files = filesByServer_[Lower(serverName)];
    if (!files) {
        files = std::make_unique<JobFiles>(fileSurroundings_, Lower(serverName));
    }
    return *files;
}

}  // namespace korvanta

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "common/Services.h"
#include "detection/IJobDetectionObject.h"
#include "detection/JobFiles.h"
#include "detection/JobHistories.h"
#include "detection/OneAtATime.h"
#include "platform/Clock.h"
#include "platform/Mutex.h"
#include "platform/Spooler.h"
#include "platform/System.h"

namespace korvanta {

class clsClientSettings;
class clsPrintersMonitored;
class clsServerInterfaces;

// Finds jobs by the numbered notification files that the print servers write for the user.
class clsJobDetectionFile : public IJobDetectionObject {
  public:
    // `windowsUserName` is the user's name in the letter case in which Windows keeps it.
    clsJobDetectionFile(clsServerInterfaces& serverInterfaces, const clsPrintersMonitored& printersMonitored,
                        const clsClientSettings& clientSettings, MutexFactory& mutexes, Clock& clock, System& system,
                        Spooler& spooler, TraceLog& log, const std::u16string& windowsUserName);

    // Reads every file that has come since the last poll from every healthy server, and reports the jobs.
    void PollServers();

  private:
    void IJobDetectionObject_MonitorClockTick() override;
    bool IJobDetectionObject_TestServerHealth() override;
    void IJobDetectionObject_Start(IJobDetectionEventSink& objEventSink) override;
    void IJobDetectionObject_PrinterListChanged() override;
    void IJobDetectionObject_FullRefresh() override;
    bool IJobDetectionObject_CancelJob(const clsJobInfo& objJobInfo) override;

    void Rebuild();
    void FindPrinters();
    void ReportPrinters();
    void GetServerCounters();
    void PollAllServers();
    JobFiles& FilesOf(const std::u16string& serverName);

    clsServerInterfaces& serverInterfaces_;
    const clsPrintersMonitored& printersMonitored_;
    const clsClientSettings& clientSettings_;
    Spooler& spooler_;
    TraceLog& log_;
    IJobDetectionEventSink* eventSink_ = nullptr;
    JobHistories jobHistories_;
    const JobFiles::Surroundings fileSurroundings_;
    std::map<std::u16string, std::unique_ptr<JobFiles>> filesByServer_;  // by lower-cased name, kept for good
    std::int32_t tickCount_ = 0;
    std::int32_t pollPhase_ = 0;
    OneAtATime operations_;
};

}  // namespace korvanta

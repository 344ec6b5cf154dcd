#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "common/Services.h"
#include "detection/IJobDetectionObject.h"
#include "detection/JobHistories.h"
#include "detection/OneAtATime.h"
#include "detection/clsJobInfo.h"
#include "platform/Clock.h"
#include "platform/Mutex.h"
#include "platform/System.h"

namespace korvanta {

class clsClientSettings;
class clsPrintersMonitored;
class clsServerInterfaces;

// Finds jobs by the numbered notification files that the print servers write for the user. File numbers run from 0 to
// 999 and start again at 0.
class clsJobDetectionFile : public IJobDetectionObject {
  public:
    // `windowsUserName` is the user's name in the letter case in which Windows keeps it.
    clsJobDetectionFile(clsServerInterfaces& serverInterfaces, const clsPrintersMonitored& printersMonitored,
                        const clsClientSettings& clientSettings, MutexFactory& mutexes, Clock& clock, System& system,
                        TraceLog& log, const std::u16string& windowsUserName);

    // Reads every file that has come since the last poll from every healthy server, and reports the jobs.
    void PollServers();

  private:
    struct JobFile {
        std::shared_ptr<clsJobInfo> job;  // none when the file could not be read as one
        bool empty = false;               // it gave nothing, at least once
    };

    void IJobDetectionObject_MonitorClockTick() override;
    bool IJobDetectionObject_TestServerHealth() override;
    void IJobDetectionObject_Start(IJobDetectionEventSink& objEventSink) override;
    void IJobDetectionObject_PrinterListChanged() override;
    void IJobDetectionObject_FullRefresh() override;

    void Rebuild();
    void FindPrinters();
    void ReportPrinters();
    void GetServerCounters();
    void ProcessServerCounter(const std::u16string& serverName);
    void PollAllServers();
    void PollServer(const std::u16string& serverName);
    void ReportFilesBefore(std::int32_t number, int files, const std::u16string& serverName);
    JobFile ReadJobFile(std::int32_t number, const std::u16string& serverName);
    void ReportJob(const std::shared_ptr<clsJobInfo>& job);

    bool ServerHealth(const std::u16string& serverName) const;
    void ServerHealth(const std::u16string& serverName, bool healthy);
    std::int32_t JobCounter(const std::u16string& serverName);
    void JobCounter(const std::u16string& serverName, std::int32_t counter);
    std::int32_t NextFile(const std::u16string& serverName);
    void IncrementJobCounter(const std::u16string& serverName);

    clsServerInterfaces& serverInterfaces_;
    const clsPrintersMonitored& printersMonitored_;
    const clsClientSettings& clientSettings_;
    Clock& clock_;
    System& system_;
    TraceLog& log_;
    const std::u16string windowsUserName_;
    IJobDetectionEventSink* eventSink_ = nullptr;
    std::map<std::u16string, bool> serverHealth_;         // by lower-cased name
    std::map<std::u16string, std::int32_t> jobCounters_;  // number of the next file to read, by lower-cased name
    JobHistories jobHistories_;
    std::int32_t tickCount_ = 0;
    std::int32_t pollPhase_ = 0;
    OneAtATime operations_;
};

}  // namespace korvanta

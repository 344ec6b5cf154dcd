#pragma once

#include <map>
#include <memory>
#include <string>

#include "common/Services.h"
#include "detection/IJobDetectionEventSink.h"
#include "detection/clsJobHistory.h"
#include "platform/Mutex.h"

namespace korvanta {

// A detector's job histories, one per full printer name. They are made when first asked for and stay for good, so that
// no job is reported again after the printers have been looked up anew.
class JobHistories {
  public:
    JobHistories(MutexFactory& mutexes, TraceLog& log);

    clsJobHistory& HistoryForPrinter(const std::u16string& fullPrinterName);
    // Tells the sink of a job that its printer's history does not know, or enters it silently. When memory runs out
    // over it the job stays unknown, so that it is found once more.
    void Report(const std::shared_ptr<clsJobInfo>& job, IJobDetectionEventSink& sink, bool silent = false);

  private:
    MutexFactory& mutexes_;
    TraceLog& log_;
    std::map<std::u16string, std::unique_ptr<clsJobHistory>> histories_;
};

}  // namespace korvanta

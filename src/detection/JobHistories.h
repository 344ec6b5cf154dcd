#pragma once

#include <map>
#include <memory>
#include <string>

#include "common/Services.h"
#include "detection/IJobDetectionEventSink.h"
#include "detection/clsJobHistory.h"
#include "platform/Mutex.h"

namespace korvanta {

// A detector's job histories, one per full printer name. A history is created on first use and kept as long as the
// detector, so that no job is reported again when the printers are looked up anew.
class JobHistories {
  public:
    JobHistories(MutexFactory& mutexes, TraceLog& log);

    clsJobHistory& HistoryForPrinter(const std::u16string& fullPrinterName);
    // Reports the job to the sink unless the history of its printer holds it; `silent` enters it without reporting.
    // Raises what the sink raises. When memory runs out the job is forgotten, so that the next look finds it again.
    void Report(const std::shared_ptr<clsJobInfo>& job, IJobDetectionEventSink& sink, bool silent = false);

  private:
    MutexFactory& mutexes_;
    TraceLog& log_;
    std::map<std::u16string, std::unique_ptr<clsJobHistory>> histories_;
};

}  // namespace korvanta

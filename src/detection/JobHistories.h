#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include "common/Services.h"
#include "detection/IJobDetectionEventSink.h"
#include "detection/clsJobHistory.h"
#include "platform/Mutex.h"

namespace korvanta {

// A detector's job histories, one per full printer name, and what was in each print queue when it was looked at last.
// Both are created on first use and kept as long as the detector, so that no job is reported again when the printers
// are looked up anew.
class JobHistories {
  public:
    using Job = std::shared_ptr<clsJobInfo>;
    // The jobs that were in a print queue, told apart as the history does.
    struct IsLess {
        bool operator()(const Job& a, const Job& b) const;
    };
    using Queue = std::set<Job, IsLess>;

    JobHistories(MutexFactory& mutexes, TraceLog& log);

    clsJobHistory& HistoryForPrinter(const std::u16string& fullPrinterName);
    // A history forgets all but 100 jobs, and a queue may be longer: what was in the queue at the last look at it is
    // not new at the next, whatever the history says.
    Queue& LastLookAt(const std::u16string& fullPrinterName) { return lastLooks_[fullPrinterName]; }

    // Enters the job into the history of its printer, and reports it to the sink if it was not there; `silent` leaves
    // the report out. The sink gets `reported`, which points to the same record. Raises what the sink raises. When
    // memory runs out the job is forgotten, so that the next look finds it again.
    void Report(const Job& job, const Job& reported, IJobDetectionEventSink& sink, bool silent = false);

  private:
    MutexFactory& mutexes_;
    TraceLog& log_;
    std::map<std::u16string, std::unique_ptr<clsJobHistory>> histories_;
    std::map<std::u16string, Queue> lastLooks_;
};

}  // namespace korvanta

#include "detection/JobHistories.h"

namespace korvanta {

JobHistories::JobHistories(MutexFactory& mutexes, TraceLog& log) : mutexes_(mutexes), log_(log) {}

clsJobHistory& JobHistories::HistoryForPrinter(const std::u16string& fullPrinterName) {
    auto found = histories_.find(fullPrinterName);
    if (found == histories_.end()) {
        found = histories_.emplace(fullPrinterName, std::make_unique<clsJobHistory>(mutexes_, log_)).first;
    }
    return *found->second;
}

void JobHistories::Report(const std::shared_ptr<clsJobInfo>& job, IJobDetectionEventSink& sink, bool silent) {
    clsJobHistory& history = HistoryForPrinter(job->FullPrinterName);
    try {
        if (history.CheckNewJob(job) && !silent) {
            sink.FoundNewJob(job);
        }
    } catch (const std::bad_alloc&) {
        history.Forget(job);
        throw;
    }
}

}  // namespace korvanta

#include "detection/JobHistories.h"

#include <new>
#include <tuple>

namespace korvanta {

bool JobHistories::IsLess::operator()(const Job& a, const Job& b) const {
    const auto identity = [](const clsJobInfo& job) {
        return std::tie(job.Time3, job.Time2, job.Time1, job.Document, job.UserName, job.FullPrinterName);
    };
    return identity(*a) < identity(*b);
}

JobHistories::JobHistories(MutexFactory& mutexes, TraceLog& log) : mutexes_(mutexes), log_(log) {}

clsJobHistory& JobHistories::HistoryForPrinter(const std::u16string& fullPrinterName) {
    auto found = histories_.find(fullPrinterName);
    if (found == histories_.end()) {
        found = histories_.emplace(fullPrinterName, std::make_unique<clsJobHistory>(mutexes_, log_)).first;
    }
    return *found->second;
}

void JobHistories::Report(const Job& job, const Job& reported, IJobDetectionEventSink& sink, bool silent) {
    clsJobHistory& history = HistoryForPrinter(job->FullPrinterName);
    try {
        if (history.CheckNewJob(job) && !silent) {
            sink.FoundNewJob(reported);
        }
    } catch (const std::bad_alloc&) {
        history.Forget(job);
        throw;
    }
}

}  // namespace korvanta

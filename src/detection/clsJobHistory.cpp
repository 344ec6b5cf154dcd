#include "detection/clsJobHistory.h"

#include <algorithm>

#include "common/Text.h"

namespace korvanta {

namespace {

constexpr std::int32_t capacity = 100;

bool SameJob(const clsJobInfo& a, const clsJobInfo& b) {
    return a.UserName == b.UserName && a.FullPrinterName == b.FullPrinterName && a.Document == b.Document &&
           a.Time1 == b.Time1 && a.Time2 == b.Time2 && a.Time3 == b.Time3;
}

}  // namespace

clsJobHistory::clsJobHistory(MutexFactory& mutexes, TraceLog& log) : log_(log), jobs_(mutexes) {}

bool clsJobHistory::CheckNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo) {
    log_.Log(u"clsJobHistory:CheckNewJob - called for job " + objJobInfo->FullPrinterName + u", " +
             objJobInfo->UserName + u", " + objJobInfo->Document);
    const std::vector<Variant> jobs = jobs_.Items();
    const bool found = std::any_of(jobs.begin(), jobs.end(), [&objJobInfo](const Variant& job) {
        return SameJob(*job.Peek<clsJobInfo>(), *objJobInfo);
    });
    if (!found) {
        jobs_.Append(objJobInfo);
        if (jobs_.Length() > capacity) {
            jobs_.Delete(0);
        }
    }
    log_.Log(u"clsJobHistory:CheckNewJob - blnFound = " + BooleanText(found));
    return !found;
}

void clsJobHistory::Forget(const std::shared_ptr<clsJobInfo>& job) {
    for (std::int32_t i = jobs_.Length() - 1; i >= 0; --i) {
        if (jobs_.Item(i).As<clsJobInfo>() == job) {
            jobs_.Delete(i);
        }
    }
}

}  // namespace korvanta

#pragma once

#include <memory>

#include "common/List.h"
#include "common/Services.h"
#include "detection/clsJobInfo.h"
#include "platform/Mutex.h"

namespace korvanta {

// The last 100 jobs seen on one printer. Jobs are the same when user, printer, document and the three time words are;
// the job identifier is not asked, since the spooler gives it again.
class clsJobHistory {
  public:
    clsJobHistory(MutexFactory& mutexes, TraceLog& log);

    // True for a job that is not remembered; it is from now on.
    bool CheckNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo);
    // Takes back that this very record was remembered. Needs no memory.
    void Forget(const std::shared_ptr<clsJobInfo>& job);

  private:
    TraceLog& log_;
    List jobs_;  // oldest first
};

}  // namespace korvanta

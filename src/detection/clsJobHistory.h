#pragma once

#include <memory>

#include "common/List.h"
#include "common/Services.h"
#include "detection/clsJobInfo.h"
#include "platform/Mutex.h"

namespace korvanta {

// The last 100 jobs seen on one printer. Two records are the same job when user, printer, document and the three time
// words are equal. The job identifier is not compared, since the spooler uses it again for other jobs.
class clsJobHistory {
  public:
    clsJobHistory(MutexFactory& mutexes, TraceLog& log);

    // True for a job that is not in the history; it is added then.
    bool CheckNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo);
    // Removes this very record again, if it is there. Allocates no memory.
    void Forget(const std::shared_ptr<clsJobInfo>& job);

  private:
    TraceLog& log_;
    List jobs_;  // oldest first
};

}  // namespace korvanta

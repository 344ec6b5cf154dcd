#pragma once

#include "detection/IJobDetectionObject.h"
#include "detection/clsJobInfo.h"
#include "platform/Spooler.h"

namespace korvanta {

// Cancels the job in the spooler; true when the spooler did. With file-based detection active no handle of the job's
// printer is held, and one is opened by name for the call. `activeDetector` may be null.
bool CancelPrintJob(Spooler& spooler, const IJobDetectionObject* activeDetector, const clsJobInfo& job);

}  // namespace korvanta

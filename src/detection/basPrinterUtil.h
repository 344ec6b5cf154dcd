#pragma once

#include "detection/IJobDetectionObject.h"
#include "detection/clsJobInfo.h"
#include "platform/Spooler.h"

namespace korvanta {

// Cancels the job in the way of the active detector, or as the job itself allows when there is none; true when the
// spooler did it.
bool CancelPrintJob(Spooler& spooler, IJobDetectionObject* activeDetector, const clsJobInfo& job);

// Opens the job's printer by name for the call. Only a result above 0 counts as success.
bool CancelByName(Spooler& spooler, const clsJobInfo& job);
// Uses the printer handle that the job carries; any result but 0 counts as success. A job that was read from a file
// carries a handle of its server, which means nothing here: it is cancelled by name.
bool CancelByHandle(Spooler& spooler, const clsJobInfo& job);

}  // namespace korvanta

#include "detection/basPrinterUtil.h"

namespace korvanta {

bool CancelPrintJob(Spooler& spooler, IJobDetectionObject* activeDetector, const clsJobInfo& job) {
    return activeDetector != nullptr ? activeDetector->CancelJob(job) : CancelByHandle(spooler, job);
}

bool CancelByName(Spooler& spooler, const clsJobInfo& job) {
    PrinterHandle handle = 0;
    const bool cancelled =
        spooler.OpenPrinter(job.FullPrinterName, handle) && spooler.SetJob(handle, job.JobID, cancelJobCommand) > 0;
    spooler.ClosePrinter(handle);
    return cancelled;
}

bool CancelByHandle(Spooler& spooler, const clsJobInfo& job) {
    if (!job.JobEventFilename.empty()) {
        return CancelByName(spooler, job);
    }
    return spooler.SetJob(job.PrinterHandle, job.JobID, cancelJobCommand) != 0;
}

}  // namespace korvanta

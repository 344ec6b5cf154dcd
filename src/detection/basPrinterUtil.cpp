#include "detection/basPrinterUtil.h"

#include "detection/clsJobDetectionFile.h"

namespace korvanta {

namespace {

bool CancelByName(Spooler& spooler, const clsJobInfo& job) {
    PrinterHandle handle = 0;
    const bool cancelled =
        spooler.OpenPrinter(job.FullPrinterName, handle) && spooler.SetJob(handle, job.JobID, cancelJobCommand) > 0;
    spooler.ClosePrinter(handle);
    return cancelled;
}

}  // namespace

bool CancelPrintJob(Spooler& spooler, const IJobDetectionObject* activeDetector, const clsJobInfo& job) {
    if (dynamic_cast<const clsJobDetectionFile*>(activeDetector) != nullptr) {
        return CancelByName(spooler, job);
    }
    return spooler.SetJob(job.PrinterHandle, job.JobID, cancelJobCommand) != 0;
}

}  // namespace korvanta

#pragma once

#include <memory>
#include <string>

namespace korvanta {

class clsJobInfo;

// What a detector reports to its owner. Every call may let messages run, which may call the detector again.
class IJobDetectionEventSink {
  public:
    virtual ~IJobDetectionEventSink() = default;

    // Called once for each monitored printer whenever the printers are looked up anew. `blnMonitor` is false for a
    // printer that could not be opened or whose server is not healthy.
    void FoundPrinter(const std::u16string& fullPrinterName, bool blnMonitor) {
        IJobDetectionEventSink_FoundPrinter(fullPrinterName, blnMonitor);
    }
    // Called once for each job that was not seen before; the record is shared.
    void FoundNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo) { IJobDetectionEventSink_FoundNewJob(objJobInfo); }
    // A short text saying what the detector is doing, one of Activities.h.
    void Activity(const std::u16string& strActivity) { IJobDetectionEventSink_Activity(strActivity); }

  private:
    virtual void IJobDetectionEventSink_FoundPrinter(const std::u16string& fullPrinterName, bool blnMonitor) = 0;
    virtual void IJobDetectionEventSink_FoundNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo) = 0;
    virtual void IJobDetectionEventSink_Activity(const std::u16string& strActivity) = 0;
};

}  // namespace korvanta

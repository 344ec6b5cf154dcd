#pragma once

#include <memory>
#include <string>

#include "detection/clsJobInfo.h"
#include "platform/Spooler.h"

namespace korvanta {

// A monitored printer that is open in the spooler. Its change handle is closed with this object, the printer's own
// handle with the last who needs it: this object, or a job that carries the handle.
class WatchedPrinter {
  public:
    WatchedPrinter(Spooler& spooler, const std::u16string& fullPrinterName);
    ~WatchedPrinter();
    WatchedPrinter(const WatchedPrinter&) = delete;
    WatchedPrinter& operator=(const WatchedPrinter&) = delete;

    // Opens the printer and, where wanted, asks the spooler for a signal when a job is added. Returns why the printer
    // cannot be watched; empty when it can.
    std::u16string Open(bool wantsSignal);

    const std::u16string& Name() const { return name_; }
    PrinterHandle Handle() const;
    // 0 without a signal.
    ChangeHandle Signal() const { return signal_; }
    void CloseSignal();

    // The same record, by a pointer that also keeps the printer open: its handle stays good for as long as the job
    // waits somewhere.
    std::shared_ptr<clsJobInfo> KeepingOpen(const std::shared_ptr<clsJobInfo>& job) const;

  private:
    class OpenHandle;

    Spooler& spooler_;
    const std::u16string name_;
    std::shared_ptr<OpenHandle> handle_;
    ChangeHandle signal_ = 0;
};

}  // namespace korvanta

#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "fakes/FakeWaitableHandles.h"
#include "fakes/FaultPlan.h"
#include "platform/Spooler.h"

namespace korvanta::fakes {

struct FakeJob {
    std::int32_t id = 0;
    std::u16string machine = {};  // as the spooler gives it, like "\\WS01"
    std::u16string user = {};
    std::u16string document = {};
    // The submission time stamp: year and month, day of week and day, hour and minute, second and milliseconds, each
    // pair in one word with the first in its low half.
    std::uint32_t time[4] = {0x000B07EA, 0x00140005, 0x0003000E, 0x00000009};
};

// Printers and their jobs in memory. Adding a job signals the printer's change handles until FindNextChange re-arms
// them. Printer names are compared without regard to letter case.
//
// EnumJobs puts its blocks and texts into the caller's buffer; AddressSanitizer reports a TextAt after the buffer is
// gone. A buffer that is too small returns 0 with LastError 122, a handle that is not open (or broken) LastError 6, an
// unknown printer 1801. SetJob with the cancel command removes the job; an unknown job returns 87.
class FakeSpooler : public Spooler {
  public:
    explicit FakeSpooler(FakeWaitableHandles& handles) : handles_(handles) {}

    void AddPrinter(const std::u16string& name);
    void RemovePrinter(const std::u16string& name);
    // Signals.
    void AddJob(const std::u16string& printer, FakeJob job);
    void RemoveJob(const std::u16string& printer, std::int32_t id);
    std::vector<FakeJob> Jobs(const std::u16string& printer) const;
    // Breaks all open handles to the printer.
    void BreakHandles(const std::u16string& printer);
    std::size_t OpenHandles() const { return printerHandles_.size(); }
    std::size_t OpenChangeHandles() const { return changeHandles_.size(); }

    // A fault makes the call fail; LastError returns its code.
    FaultPlan faults;
    // Every call with its arguments, for example "OpenPrinter \\srv\laser", "ClosePrinter 4096",
    // "EnumJobs 4096 0 4294967295 4000" (handle, first job, job count, buffer bytes), "SetJob 4096 17 3" (handle, job,
    // command), "FindFirstChange 4096 256" (handle, filter), "FindNextChange 8192",
    // "FindCloseChange 8192".
    std::vector<std::u16string> log;
    // Called at the start of each EnumJobs, so that a job can come or go between two calls.
    std::function<void()> onEnumJobs;
    // Called at the end of each EnumJobs with its arguments and the jobs that it returned, null when it failed.
    std::function<void(std::uint32_t jobCount, std::uint32_t bufferBytes, const std::vector<FakeJob>* jobs)>
        onEnumerated;
    std::function<void(const std::u16string& printer, const FakeJob& job)> onCancelled;
    // What a failing FindFirstChange returns; the other possible value is 0.
    ChangeHandle failedChangeHandle = -1;
    std::uint32_t lastError = 0;

    bool OpenPrinter(const std::u16string& name, PrinterHandle& handle) override;
    bool ClosePrinter(PrinterHandle handle) override;
    std::int32_t EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                          std::vector<std::uint32_t>& words, std::uint32_t bufferBytes, std::uint32_t& neededBytes,
                          std::uint32_t& returnedJobs) override;
    std::u16string TextAt(std::uint32_t address) override;
    std::int32_t SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) override;
    ChangeHandle FindFirstChange(PrinterHandle handle, std::uint32_t filter) override;
    std::int32_t FindNextChange(ChangeHandle handle) override;
    std::int32_t FindCloseChange(ChangeHandle handle) override;
    std::uint32_t LastError() override { return lastError; }

  private:
    // Puts the jobs into the caller's buffer if there is room for them.
    bool Enumerate(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                   std::vector<std::uint32_t>& words, std::uint32_t bufferBytes, std::uint32_t& neededBytes,
                   std::vector<FakeJob>& jobs);
    // A caller's buffer, and the addresses of its texts.
    struct Region {
        const std::uint32_t* words;
        std::uint32_t firstAddress;
        std::uint32_t size;
    };
    bool Fails(std::string_view call, const std::u16string& arguments);
    // The jobs of an open handle, or null with LastError set.
    std::vector<FakeJob>* JobsOf(PrinterHandle handle);
    void Lay(const std::u16string& printer, const std::vector<FakeJob>& jobs, std::vector<std::uint32_t>& words,
             std::uint32_t size);

    FakeWaitableHandles& handles_;
    std::map<std::u16string, std::vector<FakeJob>> printers_;
    std::map<PrinterHandle, std::u16string> printerHandles_;
    std::map<ChangeHandle, std::u16string> changeHandles_;
    std::set<PrinterHandle> brokenHandles_;
    std::deque<Region> regions_;
    PrinterHandle nextPrinterHandle_ = 0x1000;
    ChangeHandle nextChangeHandle_ = 0x2000;
    std::uint32_t nextAddress_ = 0x10000;
};

}  // namespace korvanta::fakes

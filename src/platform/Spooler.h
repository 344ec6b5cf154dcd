#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace korvanta {

// The spooler's own handles, in the 32 bits that job records have for them; 0 is none.
using PrinterHandle = std::int32_t;
using ChangeHandle = std::int32_t;

// The Windows print spooler of this machine, through its single-byte calls. Numeric results are the spooler's own; 0
// and false are failures, and LastError then gives the Windows error code of the calling thread's last call.
class Spooler {
  public:
    virtual ~Spooler() = default;

    // OpenPrinterA without a defaults structure. False leaves `handle` 0.
    virtual bool OpenPrinter(const std::u16string& name, PrinterHandle& handle) = 0;
    virtual bool ClosePrinter(PrinterHandle handle) = 0;

    // EnumJobsA at level 1. It fills at most `bufferBytes` bytes of `words`, and never more than `words` holds. Job k
    // (from 0) has the 16 words from 16*k on; a text in them is an address, to be read with TextAt while `words` lives.
    virtual std::int32_t EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                                  std::vector<std::uint32_t>& words, std::uint32_t bufferBytes,
                                  std::uint32_t& neededBytes, std::uint32_t& returnedJobs) = 0;
    // The zero-terminated text at an address that EnumJobs gave, decoded from the machine's code page. Empty when the
    // address is 0 or no text can be read there.
    virtual std::u16string TextAt(std::uint32_t address) = 0;

    // SetJobA at level 0 without job information.
    virtual std::int32_t SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) = 0;

    // FindFirstPrinterChangeNotification with options 0 and no option block. 0 or -1 is failure; on a Windows without
    // the call the result is 0 and LastError is 120 (not implemented).
    virtual ChangeHandle FindFirstChange(PrinterHandle handle, std::uint32_t filter) = 0;
    // FindNextPrinterChangeNotification, which re-arms the handle.
    virtual std::int32_t FindNextChange(ChangeHandle handle) = 0;
    // FindClosePrinterChangeNotification; the printer must still be open.
    virtual std::int32_t FindCloseChange(ChangeHandle handle) = 0;

    virtual std::uint32_t LastError() = 0;
};

inline constexpr std::uint32_t cancelJobCommand = 3;

}  // namespace korvanta

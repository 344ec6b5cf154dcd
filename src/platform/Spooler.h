#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace korvanta {

// Handles are those of the spooler itself, cut to the 32 bits in which job records carry them; 0 is none.
using PrinterHandle = std::int32_t;
using ChangeHandle = std::int32_t;

// The Windows print spooler of this machine, by its single-byte calls. Results are as the spooler gives them (0 is
// failure); LastError then has the Windows error code of the calling thread's last call.
class Spooler {
  public:
    virtual ~Spooler() = default;

    // OpenPrinterA without a defaults structure. False leaves `handle` 0.
    virtual bool OpenPrinter(const std::u16string& name, PrinterHandle& handle) = 0;
    virtual bool ClosePrinter(PrinterHandle handle) = 0;

    // EnumJobsA at level 1 into `words`, of which `bufferBytes` bytes may be used (never more than `words` holds).
    // The block of job k begins at word 16*k; text words are addresses, to be read with TextAt while `words` lives.
    virtual std::int32_t EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                                  std::vector<std::uint32_t>& words, std::uint32_t bufferBytes,
                                  std::uint32_t& neededBytes, std::uint32_t& returnedJobs) = 0;
    // The zero-terminated text at the address in a block's word, decoded from the machine's code page; empty for an
    // address of 0, and for one at which no text can be read.
    virtual std::u16string TextAt(std::uint32_t address) = 0;

    // SetJobA at level 0 without job information.
    virtual std::int32_t SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) = 0;

    // FindFirstPrinterChangeNotification with options 0 and no option block. 0 or -1 is failure; where the print
    // library lacks the call the result is 0 and LastError is 120 (not implemented).
    virtual ChangeHandle FindFirstChange(PrinterHandle handle, std::uint32_t filter) = 0;
    // FindNextPrinterChangeNotification, which re-arms the handle.
    virtual std::int32_t FindNextChange(ChangeHandle handle) = 0;

    virtual std::uint32_t LastError() = 0;
};

inline constexpr std::uint32_t cancelJobCommand = 3;

}  // namespace korvanta

#pragma once

#include "platform/Spooler.h"

namespace korvanta {

class WindowsSpooler : public Spooler {
  public:
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
    std::uint32_t LastError() override;
};

}  // namespace korvanta

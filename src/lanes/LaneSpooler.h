#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lanes/ServerLanes.h"
#include "platform/Spooler.h"

namespace korvanta {

// The print spooler, with what concerns printers of servers asked for on their lanes. A question that gets no answer in
// time has failed, with 1722 (the server is unavailable) as LastError; a job's cancelling is waited for as long as
// Windows waits.
class LaneSpooler : public Spooler {
  public:
    static constexpr std::uint32_t serverUnavailable = 1722;

    // `direct` is called by several threads.
    LaneSpooler(Spooler& direct, ServerLanes& lanes) : direct_(direct), lanes_(lanes) {}

    bool OpenPrinter(const std::u16string& name, PrinterHandle& handle) override;
    // Waits for nothing, and so cannot fail.
    bool ClosePrinter(PrinterHandle handle) override;
    std::int32_t EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                          std::vector<std::uint32_t>& words, std::uint32_t bufferBytes, std::uint32_t& neededBytes,
                          std::uint32_t& returnedJobs) override;
    std::u16string TextAt(std::uint32_t address) override { return direct_.TextAt(address); }
    std::int32_t SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) override;
    ChangeHandle FindFirstChange(PrinterHandle handle, std::uint32_t filter) override;
    std::int32_t FindNextChange(ChangeHandle handle) override;
    // Waits for nothing, and so cannot fail.
    std::int32_t FindCloseChange(ChangeHandle handle) override;
    std::uint32_t LastError() override { return lastError_; }

  private:
    std::u16string ServerOf(PrinterHandle handle) const;
    // The result of a call, whose error code is LastError then; none when it was given up.
    std::optional<std::int32_t> Ask(const std::u16string& server, Patience patience,
                                    std::function<std::int32_t()> question, std::function<void()> undo = {});

    Spooler& direct_;
    ServerLanes& lanes_;
    std::map<PrinterHandle, std::u16string> printers_;  // the servers of those that are open
    std::map<ChangeHandle, std::u16string> changes_;
    std::uint32_t lastError_ = 0;
};

}  // namespace korvanta

#include "lanes/LaneSpooler.h"

#include <memory>
#include <utility>

#include "lanes/ServerName.h"

namespace korvanta {

std::u16string LaneSpooler::ServerOf(PrinterHandle handle) const {
    const auto found = printers_.find(handle);
    return found != printers_.end() ? found->second : std::u16string();
}

std::optional<std::int32_t> LaneSpooler::Ask(const std::u16string& server, Patience patience,
                                             std::function<std::int32_t()> question, std::function<void()> undo) {
    struct Answer {
        std::int32_t result = 0;
        std::uint32_t error = 0;  // the calling thread's own, so it is fetched there
    };
    const auto answer = std::make_shared<Answer>();
    const bool answered = lanes_.Ask(
        server, patience,
        [&direct = direct_, question = std::move(question), answer] {
            answer->result = question();
            answer->error = direct.LastError();
        },
        std::move(undo));
    lastError_ = answered ? answer->error : serverUnavailable;
    return answered ? std::optional(answer->result) : std::nullopt;
}

bool LaneSpooler::OpenPrinter(const std::u16string& name, PrinterHandle& handle) {
    const std::u16string server = ServerOfPath(name);
    const auto opened = std::make_shared<PrinterHandle>(0);
    const bool done = Ask(
                          server, Patience::Limited,
                          [&direct = direct_, name, opened] { return direct.OpenPrinter(name, *opened) ? 1 : 0; },
                          [&direct = direct_, opened] {
                              if (*opened != 0) {
                                  direct.ClosePrinter(*opened);
                              }
                          })
                          .value_or(0) != 0;
    handle = done ? *opened : 0;
    if (done) {
        printers_[handle] = server;
    }
    return done;
}

bool LaneSpooler::ClosePrinter(PrinterHandle handle) {
    const std::u16string server = ServerOf(handle);
    printers_.erase(handle);
    lanes_.Leave(server, [&direct = direct_, handle] { direct.ClosePrinter(handle); });
    lastError_ = 0;
    return true;
}

std::int32_t LaneSpooler::EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                                   std::vector<std::uint32_t>& words, std::uint32_t bufferBytes,
                                   std::uint32_t& neededBytes, std::uint32_t& returnedJobs) {
    struct Jobs {
        std::vector<std::uint32_t> words;
        std::uint32_t neededBytes = 0;
        std::uint32_t returned = 0;
    };
    // Moving leaves the words where they are, and the jobs' texts in them at their addresses.
    const auto jobs = std::make_shared<Jobs>();
    const std::size_t size = words.size();
    jobs->words = std::move(words);
    const std::optional<std::int32_t> result =
        Ask(ServerOf(handle), Patience::Limited, [&direct = direct_, handle, firstJob, jobCount, bufferBytes, jobs] {
            return direct.EnumJobs(handle, firstJob, jobCount, jobs->words, bufferBytes, jobs->neededBytes,
                                   jobs->returned);
        });
    if (!result) {
        words.assign(size, 0);
        neededBytes = 0;
        returnedJobs = 0;
        return 0;
    }
    words = std::move(jobs->words);
    neededBytes = jobs->neededBytes;
    returnedJobs = jobs->returned;
    return *result;
}

std::int32_t LaneSpooler::SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) {
    return Ask(ServerOf(handle), Patience::Endless,
               [&direct = direct_, handle, jobId, command] { return direct.SetJob(handle, jobId, command); })
        .value_or(0);
}

ChangeHandle LaneSpooler::FindFirstChange(PrinterHandle handle, std::uint32_t filter) {
    const std::u16string server = ServerOf(handle);
    const auto isValid = [](ChangeHandle change) { return change != 0 && change != -1; };
    const auto found = std::make_shared<ChangeHandle>(0);
    const ChangeHandle change =
        Ask(
            server, Patience::Limited,
            [&direct = direct_, handle, filter, found] { return *found = direct.FindFirstChange(handle, filter); },
            [&direct = direct_, found, isValid] {
                if (isValid(*found)) {
                    direct.FindCloseChange(*found);
                }
            })
            .value_or(0);
    if (isValid(change)) {
        changes_[change] = server;
    }
    return change;
}

std::int32_t LaneSpooler::FindNextChange(ChangeHandle handle) {
    const auto found = changes_.find(handle);
    return Ask(found != changes_.end() ? found->second : std::u16string(), Patience::Limited,
               [&direct = direct_, handle] { return direct.FindNextChange(handle); })
        .value_or(0);
}

std::int32_t LaneSpooler::FindCloseChange(ChangeHandle handle) {
    const auto found = changes_.find(handle);
    const std::u16string server = found != changes_.end() ? found->second : std::u16string();
    changes_.erase(handle);
    lanes_.Leave(server, [&direct = direct_, handle] { direct.FindCloseChange(handle); });
    lastError_ = 0;
    return 1;
}

}  // namespace korvanta

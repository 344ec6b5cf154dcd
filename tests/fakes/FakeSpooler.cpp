#include "fakes/FakeSpooler.h"

#include <algorithm>
#include <cstring>

#include "common/Text.h"
#include "fakes/FakeCodePage.h"

namespace korvanta::fakes {

namespace {

constexpr std::uint32_t invalidHandle = 6;
constexpr std::uint32_t invalidParameter = 87;
constexpr std::uint32_t insufficientBuffer = 122;
constexpr std::uint32_t invalidPrinterName = 1801;
constexpr std::size_t blockWords = 16;
constexpr std::size_t rememberedRegions = 64;

std::u16string Arguments(std::initializer_list<std::int64_t> numbers) {
    std::vector<std::u16string> pieces;
    for (const std::int64_t number : numbers) {
        pieces.push_back(NumberText(number));
    }
    return Join(pieces, u" ");
}

// The texts of a job, in their order in memory.
std::vector<std::string> TextsOf(const std::u16string& printer, const FakeJob& job) {
    const FakeCodePage codePage;
    return {codePage.Encode(printer), codePage.Encode(job.machine), codePage.Encode(job.user),
            codePage.Encode(job.document), "RAW"};
}

std::uint32_t SizeOf(const std::u16string& printer, const std::vector<FakeJob>& jobs) {
    std::size_t size = 0;
    for (const FakeJob& job : jobs) {
        size += blockWords * sizeof(std::uint32_t);
        for (const std::string& text : TextsOf(printer, job)) {
            size += text.size() + 1;
        }
    }
    return static_cast<std::uint32_t>(size);
}

}  // namespace

bool FakeSpooler::Fails(std::string_view call, const std::u16string& arguments) {
    log.push_back(FromAscii(call) + u" " + arguments);
    const std::uint32_t fault = faults.Check(call, arguments);
    if (fault != 0) {
        lastError = fault;
    }
    return fault != 0;
}

void FakeSpooler::AddPrinter(const std::u16string& name) {
    printers_[Lower(name)];
}

void FakeSpooler::RemovePrinter(const std::u16string& name) {
    BreakHandles(name);
    printers_.erase(Lower(name));
}

void FakeSpooler::AddJob(const std::u16string& printer, FakeJob job) {
    printers_[Lower(printer)].push_back(std::move(job));
    for (const auto& [handle, name] : changeHandles_) {
        if (name == Lower(printer)) {
            handles_.Signal(handle);
        }
    }
}

void FakeSpooler::RemoveJob(const std::u16string& printer, std::int32_t id) {
    std::erase_if(printers_[Lower(printer)], [id](const FakeJob& job) { return job.id == id; });
}

std::vector<FakeJob> FakeSpooler::Jobs(const std::u16string& printer) const {
    const auto found = printers_.find(Lower(printer));
    return found == printers_.end() ? std::vector<FakeJob>() : found->second;
}

void FakeSpooler::BreakHandles(const std::u16string& printer) {
    for (const auto& [handle, name] : printerHandles_) {
        if (name == Lower(printer)) {
            brokenHandles_.insert(handle);
        }
    }
}

std::vector<FakeJob>* FakeSpooler::JobsOf(PrinterHandle handle) {
    const auto found = printerHandles_.find(handle);
    if (found == printerHandles_.end() || brokenHandles_.contains(handle)) {
        lastError = invalidHandle;
        return nullptr;
    }
    return &printers_[found->second];
}

bool FakeSpooler::OpenPrinter(const std::u16string& name, PrinterHandle& handle) {
    handle = 0;
    if (Fails("OpenPrinter", name)) {
        return false;
    }
    if (!printers_.contains(Lower(name))) {
        lastError = invalidPrinterName;
        return false;
    }
    handle = nextPrinterHandle_++;
    printerHandles_[handle] = Lower(name);
    return true;
}

bool FakeSpooler::ClosePrinter(PrinterHandle handle) {
    if (Fails("ClosePrinter", Arguments({handle}))) {
        return false;
    }
    if (printerHandles_.erase(handle) == 0) {
        lastError = invalidHandle;
        return false;
    }
    brokenHandles_.erase(handle);
    return true;
}

std::int32_t FakeSpooler::EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                                   std::vector<std::uint32_t>& words, std::uint32_t bufferBytes,
                                   std::uint32_t& neededBytes, std::uint32_t& returnedJobs) {
    neededBytes = 0;
    returnedJobs = 0;
    if (onEnumJobs) {
        onEnumJobs();
    }
    std::vector<FakeJob> jobs;
    const bool given = Enumerate(handle, firstJob, jobCount, words, bufferBytes, neededBytes, jobs);
    if (given) {
        returnedJobs = static_cast<std::uint32_t>(jobs.size());
    }
    if (onEnumerated) {
        onEnumerated(jobCount, bufferBytes, given ? &jobs : nullptr);
    }
    return given ? 1 : 0;
}

bool FakeSpooler::Enumerate(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                            std::vector<std::uint32_t>& words, std::uint32_t bufferBytes, std::uint32_t& neededBytes,
                            std::vector<FakeJob>& jobs) {
    if (Fails("EnumJobs", Arguments({handle, firstJob, jobCount, bufferBytes}))) {
        return false;
    }
    const std::vector<FakeJob>* all = JobsOf(handle);
    if (all == nullptr) {
        return false;
    }
    const std::size_t first = std::min<std::size_t>(firstJob, all->size());
    const std::size_t count = std::min<std::size_t>(jobCount, all->size() - first);
    jobs.assign(all->begin() + static_cast<std::ptrdiff_t>(first),
                all->begin() + static_cast<std::ptrdiff_t>(first + count));
    const std::u16string printer = printerHandles_[handle];
    neededBytes = SizeOf(printer, jobs);
    if (neededBytes > std::min<std::size_t>(bufferBytes, words.size() * sizeof(std::uint32_t))) {
        lastError = insufficientBuffer;
        return false;
    }
    Lay(printer, jobs, words, neededBytes);
    return true;
}

void FakeSpooler::Lay(const std::u16string& printer, const std::vector<FakeJob>& jobs,
                      std::vector<std::uint32_t>& words, std::uint32_t size) {
    std::erase_if(regions_, [&words](const Region& region) { return region.words == words.data(); });
    if (regions_.size() == rememberedRegions) {
        regions_.pop_front();
    }
    const Region region{words.data(), nextAddress_, size};
    regions_.push_back(region);
    nextAddress_ += size + 16;

    std::size_t textAt = jobs.size() * blockWords * sizeof(std::uint32_t);
    for (std::size_t k = 0; k < jobs.size(); ++k) {
        std::uint32_t* const block = words.data() + k * blockWords;
        std::uint32_t addresses[5] = {};
        std::size_t next = 0;
        for (const std::string& text : TextsOf(printer, jobs[k])) {
            std::memcpy(reinterpret_cast<char*>(words.data()) + textAt, text.c_str(), text.size() + 1);
            addresses[next++] = region.firstAddress + static_cast<std::uint32_t>(textAt);
            textAt += text.size() + 1;
        }
        const std::uint32_t laid[blockWords] = {static_cast<std::uint32_t>(jobs[k].id),
                                                addresses[0],
                                                addresses[1],
                                                addresses[2],
                                                addresses[3],
                                                addresses[4],
                                                0,
                                                0,
                                                1,
                                                static_cast<std::uint32_t>(k + 1),
                                                1,
                                                0,
                                                jobs[k].time[0],
                                                jobs[k].time[1],
                                                jobs[k].time[2],
                                                jobs[k].time[3]};
        std::copy(std::begin(laid), std::end(laid), block);
    }
}

std::u16string FakeSpooler::TextAt(std::uint32_t address) {
    for (const Region& region : regions_) {
        if (address >= region.firstAddress && address < region.firstAddress + region.size) {
            const char* const bytes = reinterpret_cast<const char*>(region.words);
            return FakeCodePage().Decode(bytes + (address - region.firstAddress));
        }
    }
    return {};
}

std::int32_t FakeSpooler::SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) {
    if (Fails("SetJob", Arguments({handle, jobId, command}))) {
        return 0;
    }
    std::vector<FakeJob>* jobs = JobsOf(handle);
    if (jobs == nullptr) {
        return 0;
    }
    const auto found =
        std::find_if(jobs->begin(), jobs->end(), [jobId](const FakeJob& job) { return job.id == jobId; });
    if (found == jobs->end()) {
        lastError = invalidParameter;
        return 0;
    }
    if (command == cancelJobCommand) {
        const FakeJob job = *found;
        jobs->erase(found);
        if (onCancelled) {
            onCancelled(printerHandles_[handle], job);
        }
    }
    return 1;
}

ChangeHandle FakeSpooler::FindFirstChange(PrinterHandle handle, std::uint32_t filter) {
    if (Fails("FindFirstChange", Arguments({handle, filter})) || JobsOf(handle) == nullptr) {
        return failedChangeHandle;
    }
    const ChangeHandle change = nextChangeHandle_++;
    changeHandles_[change] = printerHandles_[handle];
    return change;
}

std::int32_t FakeSpooler::FindNextChange(ChangeHandle handle) {
    if (Fails("FindNextChange", Arguments({handle}))) {
        return 0;
    }
    if (!changeHandles_.contains(handle)) {
        lastError = invalidHandle;
        return 0;
    }
    handles_.Reset(handle);
    return 1;
}

std::int32_t FakeSpooler::FindCloseChange(ChangeHandle handle) {
    if (Fails("FindCloseChange", Arguments({handle}))) {
        return 0;
    }
    if (changeHandles_.erase(handle) == 0) {
        lastError = invalidHandle;
        return 0;
    }
    handles_.Reset(handle);
    handles_.invalid.insert(handle);
    return 1;
}

}  // namespace korvanta::fakes

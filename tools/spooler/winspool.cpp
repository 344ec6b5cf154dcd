// The library winspool.drv with the calls that the client uses, on the played spooler. Wine's own knows no jobs and no
// change notifications.
#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <sstream>

#include "spooler/PlayedSpooler.h"

namespace {

using spooler::Fault;
using spooler::Files;
using spooler::Job;
using spooler::Turn;
namespace fault = spooler::fault;

struct OpenedPrinter {
    std::string name;
    int life = 0;
};

struct ChangeWatch {
    std::string printer;
    int life = 0;
};

// What this process holds; looked at in one's turn only.
struct Process {
    HMODULE library = nullptr;
    std::map<HANDLE, OpenedPrinter> printers;
    std::map<HANDLE, ChangeWatch> watches;
    unsigned handles = 0;
};

Process& TheProcess() {
    static Process process;
    return process;
}

// One call of a program: its line of the log, and the error code that it leaves.
class Call {
  public:
    explicit Call(const char* name) : files_(Files::UsualFolder(TheProcess().library)) { text_ << name; }

    const Files& TheFiles() const { return files_; }

    template <class Value>
    Call& With(const char* what, const Value& value) {
        text_ << (first_ ? " " : ", ") << what << (*what ? " " : "") << value;
        first_ = false;
        return *this;
    }
    Call& WithHandle(HANDLE handle, const std::string& printer) {
        text_ << " 0x" << std::hex << reinterpret_cast<std::uintptr_t>(handle) << std::dec << " (" << printer << ")";
        first_ = false;
        return *this;
    }
    // Whether this goes wrong; the call then fails with the fault's error code.
    bool Refused(const char* name, const std::string& printer) {
        const std::optional<Fault> found = files_.Take(name, printer);
        if (found) {
            error_ = found->number;
        }
        return found.has_value();
    }
    BOOL Fail(DWORD error) {
        error_ = error;
        return FALSE;
    }
    template <class Result>
    Result End(Result result, const std::string& more = {}) {
        text_ << " = " << result << more;
        if (error_ != ERROR_SUCCESS) {
            text_ << ", error " << error_;
        }
        files_.Log(text_.str());
        ::SetLastError(error_);
        return result;
    }

  private:
    Files files_;
    std::ostringstream text_;
    bool first_ = true;
    DWORD error_ = ERROR_SUCCESS;
};

std::string NameOf(HANDLE handle) {
    const auto found = TheProcess().printers.find(handle);
    return found == TheProcess().printers.end() ? std::string("unknown") : found->second.name;
}

// Whether the call may go on with the printer's handle.
bool IsValid(Call& call, HANDLE handle) {
    const auto found = TheProcess().printers.find(handle);
    if (found == TheProcess().printers.end() || found->second.life != call.TheFiles().Life() ||
        call.TheFiles().Take(fault::handle, found->second.name)) {
        return call.Fail(ERROR_INVALID_HANDLE);
    }
    return true;
}

std::vector<Job> JobsOf(const Files& files, const std::string& printer, DWORD first, DWORD count) {
    std::vector<Job> jobs = files.Jobs();
    std::erase_if(jobs, [&](const Job& job) { return job.printer != printer; });
    jobs.erase(jobs.begin(), jobs.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(first, jobs.size())));
    jobs.resize(std::min<std::size_t>(count, jobs.size()));
    return jobs;
}

using Texts = std::array<std::optional<std::string>, 5>;

Texts TextsOf(const Job& job) {
    return {job.printer, job.machine, job.user, job.document, "RAW"};
}

DWORD BytesOf(const std::vector<Job>& jobs) {
    std::size_t bytes = 0;
    for (const Job& job : jobs) {
        bytes += sizeof(JOB_INFO_1A);
        for (const std::optional<std::string>& text : TextsOf(job)) {
            bytes += text ? text->size() + 1 : 0;
        }
    }
    return static_cast<DWORD>(bytes);
}

// Blocks from the front of the buffer, their texts from its end.
void Fill(const std::vector<Job>& jobs, BYTE* buffer, DWORD size) {
    auto* block = reinterpret_cast<JOB_INFO_1A*>(buffer);
    char* end = reinterpret_cast<char*>(buffer) + size;
    DWORD position = 0;
    for (const Job& job : jobs) {
        *block = {};
        block->JobId = static_cast<DWORD>(job.id);
        char** const pointers[] = {&block->pPrinterName, &block->pMachineName, &block->pUserName, &block->pDocument,
                                   &block->pDatatype};
        const Texts texts = TextsOf(job);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (texts[i]) {
                end -= texts[i]->size() + 1;
                std::memcpy(end, texts[i]->c_str(), texts[i]->size() + 1);
                *pointers[i] = end;
            }
        }
        block->Position = ++position;
        block->Submitted = job.submitted;
        ++block;
    }
}

BOOL Enumerate(Call& call, HANDLE handle, DWORD first, DWORD count, DWORD level, BYTE* buffer, DWORD size,
               DWORD* needed, DWORD* returned) {
    const std::string printer = NameOf(handle);
    if (!IsValid(call, handle) || call.Refused(fault::enumerate, printer)) {
        return FALSE;
    }
    if (level != 1) {
        return call.Fail(ERROR_INVALID_LEVEL);
    }
    std::vector<Job> jobs = JobsOf(call.TheFiles(), printer, first, count);
    if (size == 0 && !jobs.empty() && call.TheFiles().Take(fault::grow, printer)) {
        jobs.pop_back();
    }
    *needed = BytesOf(jobs);
    if (size < *needed) {
        return call.Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    if (buffer) {
        Fill(jobs, buffer, size);
    }
    *returned = static_cast<DWORD>(jobs.size());
    if (const std::optional<Fault> overclaim = call.TheFiles().Take(fault::overclaim, printer)) {
        *returned += overclaim->number;
    }
    return TRUE;
}

BOOL Control(Call& call, HANDLE handle, DWORD jobId, DWORD level, DWORD command) {
    const std::string printer = NameOf(handle);
    if (!IsValid(call, handle) || call.Refused(fault::setJob, printer)) {
        return FALSE;
    }
    if (level != 0) {
        return call.Fail(ERROR_INVALID_LEVEL);
    }
    const Files& files = call.TheFiles();
    const std::vector<Job> jobs = files.Jobs();
    if (std::none_of(jobs.begin(), jobs.end(),
                     [&](const Job& job) { return job.printer == printer && static_cast<DWORD>(job.id) == jobId; })) {
        return call.Fail(ERROR_INVALID_PARAMETER);
    }
    files.Add({printer, static_cast<int>(jobId), static_cast<int>(command)});
    if (command == JOB_CONTROL_CANCEL) {
        files.RemoveJob(printer, static_cast<int>(jobId));
    }
    return TRUE;
}

HANDLE Watch(Call& call, HANDLE handle, DWORD filter, DWORD options, const void* notifyOptions) {
    const std::string printer = NameOf(handle);
    if (!IsValid(call, handle) || call.Refused(fault::watch, printer)) {
        return INVALID_HANDLE_VALUE;
    }
    if (call.Refused(fault::watchNull, printer)) {
        return nullptr;
    }
    if (filter != PRINTER_CHANGE_ADD_JOB || options != 0 || notifyOptions) {
        call.Fail(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    Process& process = TheProcess();
    const std::string eventName =
        "KorvantaPlayedSpooler " + std::to_string(::GetCurrentProcessId()) + " " + std::to_string(++process.handles);
    const HANDLE event = ::CreateEventA(nullptr, TRUE, FALSE, eventName.c_str());
    HANDLE given = event;
    call.TheFiles().AddWatcher(eventName, printer);
    if (call.TheFiles().Take(fault::wait, printer)) {
        // Not the closed event itself, whose value Windows would give to the next one.
        constexpr std::uintptr_t noHandle = 0x7F000000;
        ::CloseHandle(event);
        given = reinterpret_cast<HANDLE>(noHandle + 4 * std::uintptr_t{process.handles});
    }
    process.watches[given] = {printer, call.TheFiles().Life()};
    return given;
}

BOOL Rearm(Call& call, HANDLE change) {
    const auto found = TheProcess().watches.find(change);
    if (found == TheProcess().watches.end() || found->second.life != call.TheFiles().Life()) {
        return call.Fail(ERROR_INVALID_HANDLE);
    }
    if (call.Refused(fault::rearm, found->second.printer)) {
        return FALSE;
    }
    return ::ResetEvent(change) ? TRUE : call.Fail(::GetLastError());
}

}  // namespace

extern "C" {

BOOL WINAPI PlayOpenPrinter(LPSTR name, HANDLE* handle, void* defaults) {
    const Turn turn;
    Call call("OpenPrinterA");
    const std::string printer = name ? name : "";
    call.With("", printer).With("defaults", defaults != nullptr);
    const std::vector<std::string> printers = call.TheFiles().Printers();
    if (!call.TheFiles().Running()) {
        return call.End(call.Fail(RPC_S_SERVER_UNAVAILABLE));
    }
    if (call.Refused(fault::open, printer)) {
        return call.End(FALSE);
    }
    if (std::find(printers.begin(), printers.end(), printer) == printers.end()) {
        return call.End(call.Fail(ERROR_INVALID_PRINTER_NAME));
    }
    constexpr std::uintptr_t beforeFirst = 0x10000;
    Process& process = TheProcess();
    *handle = reinterpret_cast<HANDLE>(beforeFirst + 4 * std::uintptr_t{++process.handles});
    process.printers[*handle] = {printer, call.TheFiles().Life()};
    std::ostringstream given;
    given << ", handle 0x" << std::hex << reinterpret_cast<std::uintptr_t>(*handle);
    return call.End(TRUE, given.str());
}

BOOL WINAPI PlayClosePrinter(HANDLE handle) {
    const Turn turn;
    Call call("ClosePrinter");
    const std::string printer = NameOf(handle);
    call.WithHandle(handle, printer);
    if (!IsValid(call, handle) || call.Refused(fault::close, printer)) {
        return call.End(FALSE);
    }
    TheProcess().printers.erase(handle);
    return call.End(TRUE);
}

BOOL WINAPI PlayEnumJobs(HANDLE handle, DWORD first, DWORD count, DWORD level, BYTE* buffer, DWORD size, DWORD* needed,
                         DWORD* returned) {
    const Turn turn;
    Call call("EnumJobsA");
    call.WithHandle(handle, NameOf(handle)).With("first", first).With("count", count).With("level", level);
    call.With("size", size);
    *needed = 0;
    *returned = 0;
    const BOOL result = Enumerate(call, handle, first, count, level, buffer, size, needed, returned);
    return call.End(result, ", needed " + std::to_string(*needed) + ", returned " + std::to_string(*returned));
}

BOOL WINAPI PlaySetJob(HANDLE handle, DWORD jobId, DWORD level, BYTE* information, DWORD command) {
    const Turn turn;
    Call call("SetJobA");
    call.WithHandle(handle, NameOf(handle)).With("job", jobId).With("level", level);
    call.With("information", information != nullptr).With("command", command);
    return call.End(Control(call, handle, jobId, level, command));
}

HANDLE WINAPI PlayFindFirstChange(HANDLE handle, DWORD filter, DWORD options, void* notifyOptions) {
    const Turn turn;
    Call call("FindFirstPrinterChangeNotification");
    call.WithHandle(handle, NameOf(handle)).With("filter", filter).With("options", options);
    call.With("information", notifyOptions != nullptr);
    const HANDLE event = Watch(call, handle, filter, options, notifyOptions);
    call.End(reinterpret_cast<std::intptr_t>(event));
    return event;
}

BOOL WINAPI PlayFindNextChange(HANDLE change, DWORD* changed, void* notifyOptions, void** information) {
    const Turn turn;
    Call call("FindNextPrinterChangeNotification");
    const auto found = TheProcess().watches.find(change);
    call.With("", reinterpret_cast<std::intptr_t>(change));
    call.With("of", found == TheProcess().watches.end() ? std::string("unknown") : found->second.printer);
    call.With("changes", changed != nullptr).With("options", notifyOptions != nullptr);
    call.With("information", information != nullptr);
    return call.End(Rearm(call, change));
}

BOOL WINAPI PlayFindCloseChange(HANDLE change) {
    const Turn turn;
    Call call("FindClosePrinterChangeNotification");
    const auto found = TheProcess().watches.find(change);
    call.With("", reinterpret_cast<std::intptr_t>(change));
    call.With("of", found == TheProcess().watches.end() ? std::string("unknown") : found->second.printer);
    if (found == TheProcess().watches.end()) {
        return call.End(call.Fail(ERROR_INVALID_HANDLE));
    }
    TheProcess().watches.erase(found);
    return call.End(::CloseHandle(change) ? TRUE : call.Fail(::GetLastError()));
}

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        TheProcess().library = library;
    }
    return TRUE;
}

}  // extern "C"

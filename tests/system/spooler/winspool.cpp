// The library winspool.drv with the calls that the client uses, on the played spooler. Wine's own knows no jobs and no
// change notifications.
#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

#include "PlayedSpooler.h"

namespace {

using spooler::Files;
using spooler::Job;

constexpr std::uintptr_t firstHandle = 0x10000;

Files TheFiles() {
    std::array<char, MAX_PATH> folder{};
    ::GetEnvironmentVariableA(spooler::folderVariable, folder.data(), MAX_PATH);
    return Files(folder.data());
}

BOOL Fail(DWORD error) {
    ::SetLastError(error);
    return FALSE;
}

// A handle is the printer's place in the list; it goes bad with the printer.
HANDLE HandleOf(std::size_t place) {
    return reinterpret_cast<HANDLE>(firstHandle + place);
}

std::optional<spooler::Printer> PrinterOf(HANDLE handle) {
    const std::vector<spooler::Printer> printers = TheFiles().Printers();
    const std::size_t place = reinterpret_cast<std::uintptr_t>(handle) - firstHandle;
    return place < printers.size() ? std::optional(printers[place]) : std::nullopt;
}

std::vector<Job> JobsOf(const std::string& printer, DWORD first, DWORD count) {
    std::vector<Job> jobs = TheFiles().Jobs();
    std::erase_if(jobs, [&](const Job& job) { return job.printer != printer; });
    jobs.erase(jobs.begin(), jobs.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(first, jobs.size())));
    jobs.resize(std::min<std::size_t>(count, jobs.size()));
    return jobs;
}

std::vector<std::string> Texts(const Job& job) {
    return {job.printer, job.machine, job.user, job.document, "RAW"};
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
        const std::vector<std::string> texts = Texts(job);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            end -= texts[i].size() + 1;
            std::memcpy(end, texts[i].c_str(), texts[i].size() + 1);
            *pointers[i] = end;
        }
        block->Position = ++position;
        block->Submitted = {2004, 2, 0, 29, 23, static_cast<WORD>(job.minute), 5, 678};
        ++block;
    }
}

}  // namespace

extern "C" {

BOOL WINAPI PlayOpenPrinter(LPSTR name, HANDLE* handle, void*) {
    const std::vector<spooler::Printer> printers = TheFiles().Printers();
    const auto found = std::find_if(printers.begin(), printers.end(),
                                    [&](const spooler::Printer& printer) { return name && printer.name == name; });
    if (found == printers.end()) {
        return Fail(ERROR_INVALID_PRINTER_NAME);
    }
    *handle = HandleOf(static_cast<std::size_t>(found - printers.begin()));
    return TRUE;
}

BOOL WINAPI PlayClosePrinter(HANDLE handle) {
    return PrinterOf(handle) ? TRUE : Fail(ERROR_INVALID_HANDLE);
}

BOOL WINAPI PlayEnumJobs(HANDLE handle, DWORD first, DWORD count, DWORD level, BYTE* buffer, DWORD size, DWORD* needed,
                         DWORD* returned) {
    *needed = 0;
    *returned = 0;
    const std::optional<spooler::Printer> printer = PrinterOf(handle);
    if (!printer) {
        return Fail(ERROR_INVALID_HANDLE);
    }
    if (level != 1) {
        return Fail(ERROR_INVALID_LEVEL);
    }
    const std::vector<Job> jobs = JobsOf(printer->name, first, count);
    for (const Job& job : jobs) {
        *needed += sizeof(JOB_INFO_1A);
        for (const std::string& text : Texts(job)) {
            *needed += static_cast<DWORD>(text.size() + 1);
        }
    }
    if (size < *needed) {
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    Fill(jobs, buffer, size);
    *returned = static_cast<DWORD>(jobs.size());
    return TRUE;
}

BOOL WINAPI PlaySetJob(HANDLE handle, DWORD jobId, DWORD level, BYTE*, DWORD command) {
    const std::optional<spooler::Printer> printer = PrinterOf(handle);
    if (!printer || level != 0) {
        return Fail(ERROR_INVALID_HANDLE);
    }
    const Files files = TheFiles();
    std::vector<Job> jobs = files.Jobs();
    const std::size_t removed = std::erase_if(
        jobs, [&](const Job& job) { return job.printer == printer->name && static_cast<DWORD>(job.id) == jobId; });
    if (removed == 0) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    files.Add({printer->name, static_cast<int>(jobId), static_cast<int>(command)});
    if (command == JOB_CONTROL_CANCEL) {
        files.SetJobs(jobs);
    }
    return TRUE;
}

HANDLE WINAPI PlayFindFirstChange(HANDLE handle, DWORD filter, DWORD options, void* notifyOptions) {
    const std::optional<spooler::Printer> printer = PrinterOf(handle);
    if (!printer || !printer->canNotify || filter != PRINTER_CHANGE_ADD_JOB || options != 0 || notifyOptions) {
        ::SetLastError(printer ? ERROR_INVALID_PARAMETER : ERROR_INVALID_HANDLE);
        return INVALID_HANDLE_VALUE;
    }
    return ::CreateEventA(nullptr, TRUE, FALSE, Files::EventName(printer->name).c_str());
}

BOOL WINAPI PlayFindNextChange(HANDLE change, DWORD*, void*, void**) {
    return ::ResetEvent(change);
}

}  // extern "C"

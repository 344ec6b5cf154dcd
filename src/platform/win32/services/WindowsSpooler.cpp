#include <windows.h>

#include <winspool.h>

// The header of Windows defines these names of ours as macros.
#undef OpenPrinter
#undef EnumJobs
#undef SetJob

#include <algorithm>
#include <cstring>

#include "platform/win32/calls/LateCall.h"
#include "platform/win32/calls/SystemHandle.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/services/WindowsSpooler.h"

namespace korvanta {

namespace {

constexpr char printLibrary[] = "winspool.drv";

using FindFirstCall = HANDLE(WINAPI*)(HANDLE printer, DWORD filter, DWORD options, void* notifyOptions);
using FindNextCall = BOOL(WINAPI*)(HANDLE change, DWORD* changed, void* notifyOptions, void** information);
using FindCloseCall = BOOL(WINAPI*)(HANDLE change);

// How many bytes can be read from the address on without an access violation.
std::size_t ReadableBytes(std::uintptr_t address) {
    constexpr DWORD readable = PAGE_READONLY | PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READ |
                               PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
    MEMORY_BASIC_INFORMATION region{};
    if (::VirtualQuery(reinterpret_cast<const void*>(address), &region, sizeof region) == 0 ||
        region.State != MEM_COMMIT || (region.Protect & readable) == 0 || (region.Protect & PAGE_GUARD) != 0) {
        return 0;
    }
    return reinterpret_cast<std::uintptr_t>(region.BaseAddress) + region.RegionSize - address;
}

}  // namespace

bool WindowsSpooler::OpenPrinter(const std::u16string& name, PrinterHandle& handle) {
    std::string bytes = textCalls::ToCodePage(name);
    HANDLE opened = nullptr;
    const bool done = ::OpenPrinterA(bytes.data(), &opened, nullptr) != 0;
    handle = done ? FromSystemHandle(opened) : 0;
    return done;
}

bool WindowsSpooler::ClosePrinter(PrinterHandle handle) {
    return ::ClosePrinter(ToSystemHandle(handle)) != 0;
}

std::int32_t WindowsSpooler::EnumJobs(PrinterHandle handle, std::uint32_t firstJob, std::uint32_t jobCount,
                                      std::vector<std::uint32_t>& words, std::uint32_t bufferBytes,
                                      std::uint32_t& neededBytes, std::uint32_t& returnedJobs) {
    const auto room = static_cast<DWORD>(std::min<std::size_t>(bufferBytes, words.size() * sizeof(words[0])));
    DWORD needed = 0;
    DWORD returned = 0;
    const BOOL result = ::EnumJobsA(ToSystemHandle(handle), firstJob, jobCount, 1,
                                    reinterpret_cast<BYTE*>(words.data()), room, &needed, &returned);
    neededBytes = needed;
    returnedJobs = returned;
    return result;
}

// A print library that reports more jobs than it has filled in leaves random bytes where an address should be.
std::u16string WindowsSpooler::TextAt(std::uint32_t address) {
    std::string bytes;
    auto next = static_cast<std::uintptr_t>(address);
    while (const std::size_t size = ReadableBytes(next)) {
        const auto* part = reinterpret_cast<const char*>(next);
        if (const void* end = std::memchr(part, '\0', size)) {
            bytes.append(part, static_cast<const char*>(end));
            return textCalls::FromCodePage(bytes);
        }
        bytes.append(part, size);
        next += size;
    }
    return {};
}

std::int32_t WindowsSpooler::SetJob(PrinterHandle handle, std::int32_t jobId, std::uint32_t command) {
    return ::SetJobA(ToSystemHandle(handle), static_cast<DWORD>(jobId), 0, nullptr, command);
}

ChangeHandle WindowsSpooler::FindFirstChange(PrinterHandle handle, std::uint32_t filter) {
    // The print library of Windows 95 lacks the call; a program that linked it would not start there.
    const auto findFirst = LateCall<FindFirstCall>(printLibrary, "FindFirstPrinterChangeNotification");
    if (!findFirst) {
        ::SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
        return 0;
    }
    return FromSystemHandle(findFirst(ToSystemHandle(handle), filter, 0, nullptr));
}

std::int32_t WindowsSpooler::FindNextChange(ChangeHandle handle) {
    const auto findNext = LateCall<FindNextCall>(printLibrary, "FindNextPrinterChangeNotification");
    if (!findNext) {
        ::SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
        return 0;
    }
    return findNext(ToSystemHandle(handle), nullptr, nullptr, nullptr);
}

std::int32_t WindowsSpooler::FindCloseChange(ChangeHandle handle) {
    const auto findClose = LateCall<FindCloseCall>(printLibrary, "FindClosePrinterChangeNotification");
    if (!findClose) {
        ::SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
        return 0;
    }
    return findClose(ToSystemHandle(handle));
}

std::uint32_t WindowsSpooler::LastError() {
    return ::GetLastError();
}

}  // namespace korvanta

#include "driver/ProcessCounts.h"

#include <psapi.h>
#include <tlhelp32.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "driver/Files.h"

namespace driver {
namespace {

class ProcessHandle {
  public:
    explicit ProcessHandle(DWORD processId)
        : handle_(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId)) {}
    ~ProcessHandle() {
        if (handle_ != nullptr) {
            CloseHandle(handle_);
        }
    }
    ProcessHandle(const ProcessHandle&) = delete;
    ProcessHandle& operator=(const ProcessHandle&) = delete;
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

std::int64_t CountWindows(DWORD processId) {
    std::int64_t count = 0;
    for (const Window& window : TopLevelWindows(processId, L"")) {
        count += 1 + static_cast<std::int64_t>(window.Descendants().size());
    }
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;) {
        count += Window(window).ProcessId() == processId ? 1 : 0;
    }
    return count;
}

// Takes every free place of the table, and then some: what lies below the last one and is not ours is in use.
std::int64_t CountUserObjects() {
    constexpr unsigned firstHandle = 0x20;
    constexpr unsigned step = 2;
    constexpr std::size_t enough = 2048;  // places that were left free beyond these would count as used
    std::vector<HMENU> own;
    std::int64_t places = 0;
    while (own.size() < enough) {
        const HMENU menu = CreateMenu();
        if (menu == nullptr) {
            break;
        }
        own.push_back(menu);
        const auto handle = static_cast<unsigned>(reinterpret_cast<ULONG_PTR>(menu) & 0xFFFFU);
        places = std::max<std::int64_t>(places, (handle - firstHandle) / step + 1);
    }
    for (const HMENU menu : own) {
        DestroyMenu(menu);
    }
    return own.size() < enough ? -1 : places - static_cast<std::int64_t>(own.size());
}

// Each process has its table of GDI objects, and the process's own block says where.
std::int64_t CountGdiObjects(HANDLE process) {
    constexpr std::size_t tablePointer = 0x94;
    constexpr std::size_t entries = 16384;
    constexpr std::size_t entrySize = 24;
    constexpr std::size_t typeOffset = 14;
    struct BasicInformation {
        LONG exitStatus;
        char* block;
        ULONG_PTR rest[4];
    };
    using Query = LONG(WINAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQueryInformationProcess")));
    BasicInformation information{};
    char* table = nullptr;
    std::vector<char> bytes(entries * entrySize);
    if (query == nullptr || query(process, 0, &information, sizeof information, nullptr) != 0 ||
        !ReadProcessMemory(process, information.block + tablePointer, &table, sizeof table, nullptr) ||
        !ReadProcessMemory(process, table, bytes.data(), bytes.size(), nullptr)) {
        return -1;
    }
    std::int64_t count = 0;
    for (std::size_t entry = 0; entry < entries; ++entry) {
        count += bytes[entry * entrySize + typeOffset] != 0 ? 1 : 0;
    }
    return count;
}

std::int64_t CountThreads(DWORD processId) {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    if (snapshot == INVALID_HANDLE_VALUE) {
        return -1;
    }
    std::int64_t count = 0;
    THREADENTRY32 thread{};
    thread.dwSize = sizeof thread;
    for (BOOL more = Thread32First(snapshot, &thread); more; more = Thread32Next(snapshot, &thread)) {
        count += thread.th32OwnerProcessID == processId ? 1 : 0;
    }
    CloseHandle(snapshot);
    return count;
}

// The kilobytes behind a name such as "RssAnon:" in Linux's own table of a process.
std::int64_t Kilobytes(const std::string& status, const std::string& name) {
    const std::size_t at = status.find(name);
    return at == std::string::npos ? 0 : std::atoll(status.c_str() + at + name.size());
}

// What Linux knows of the process: the one that runs the program and was started in this very Wine prefix.
std::int64_t CountPrivateBytesByLinux() {
    const wchar_t* shares = _wgetenv(L"KORVANTA_SHARES");
    const std::string mark = shares == nullptr ? "?" : "KORVANTA_SHARES=" + Utf8Bytes(shares);
    for (const std::wstring& process : FolderNames(L"Z:\\proc")) {
        const std::wstring folder = L"Z:\\proc\\" + process;
        if (process.find_first_not_of(L"0123456789") == std::wstring::npos &&
            TryReadBytes(folder + L"\\cmdline").value_or("").find("KorvantaClient.exe") != std::string::npos &&
            TryReadBytes(folder + L"\\environ").value_or("").find(mark) != std::string::npos) {
            const std::string status = TryReadBytes(folder + L"\\status").value_or("");
            return (Kilobytes(status, "RssAnon:") + Kilobytes(status, "VmSwap:")) * 1024;
        }
    }
    return -1;
}

std::int64_t CountPrivateBytes(HANDLE process) {
    PROCESS_MEMORY_COUNTERS_EX counters{};
    counters.cb = sizeof counters;
    const bool known =
        GetProcessMemoryInfo(process, reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters), sizeof counters) != 0;
    return known && counters.PrivateUsage != 0 ? static_cast<std::int64_t>(counters.PrivateUsage)
                                               : CountPrivateBytesByLinux();
}

}  // namespace

ProcessCounts ProcessCounts::Of(const RunningClient& client) {
    const ProcessHandle process(client.ProcessId());
    ProcessCounts counts;
    counts.windows = CountWindows(client.ProcessId());
    counts.userObjects = CountUserObjects();
    counts.gdiObjects = CountGdiObjects(process.Get());
    counts.kernelHandles = client.HandleCount();
    counts.threads = CountThreads(client.ProcessId());
    counts.privateBytes = CountPrivateBytes(process.Get());
    return counts;
}

}  // namespace driver

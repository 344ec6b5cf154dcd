#include "driver/Client.h"

#include <shellapi.h>

#include <algorithm>
#include <cstring>
#include <cwctype>
#include <stdexcept>
#include <vector>

#include "driver/Files.h"

namespace driver {
namespace {

constexpr UINT iconMessage = WM_MOUSEMOVE;
constexpr WPARAM iconIdentifier = 1;
constexpr WPARAM firstMenuEntry = 0x9000;
const std::wstring programName = L"\\KorvantaClient.exe";

// The environment of this process with the two variables that name the temporary folder.
std::wstring EnvironmentWith(const std::wstring& temporaryFolder) {
    std::wstring block;
    wchar_t* own = GetEnvironmentStringsW();
    for (const wchar_t* entry = own; *entry != L'\0'; entry += std::wstring(entry).size() + 1) {
        const std::wstring text = entry;
        const std::wstring name = text.substr(0, text.find(L'=', 1));
        if (_wcsicmp(name.c_str(), L"TEMP") != 0 && _wcsicmp(name.c_str(), L"TMP") != 0) {
            block.append(text).push_back(L'\0');
        }
    }
    FreeEnvironmentStringsW(own);
    for (const wchar_t* name : {L"TEMP=", L"TMP="}) {
        block.append(name).append(temporaryFolder).push_back(L'\0');
    }
    block.push_back(L'\0');
    return block;
}

template <typename Query>
std::wstring SystemName(Query query) {
    wchar_t name[256];
    DWORD size = 256;
    return query(name, &size) ? std::wstring(name) : std::wstring();
}

}  // namespace

Client::Client(const std::wstring& program, const std::wstring& folder)
    : folder_(folder), temporaryFolder_(folder + L"\\temp") {
    MakeFolders(temporaryFolder_);
    if (!FileExists(folder_ + programName)) {
        CopyOver(program, folder_ + programName);
    }
}

Client::~Client() {
    Kill();
}

void Client::Start(const std::wstring& arguments) {
    Forget();
    std::wstring commandLine = L"\"" + folder_ + programName + L"\"";
    if (!arguments.empty()) {
        commandLine += L" " + arguments;
    }
    std::wstring environment = EnvironmentWith(temporaryFolder_);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, CREATE_UNICODE_ENVIRONMENT,
                        environment.data(), folder_.c_str(), &startup, &process)) {
        throw std::runtime_error("cannot start the client: error " + std::to_string(GetLastError()));
    }
    CloseHandle(process.hThread);
    Watch(process.hProcess, process.dwProcessId);
}

void Client::Kill() {
    if (Running()) {
        TerminateProcess(Process(), 0);
        WaitForSingleObject(Process(), 5000);
    }
    Forget();
}

bool RunningClient::Find() {
    // The one that asks for the primary server comes first, and the main form only after its answer.
    std::vector<Window> windows = TopLevelWindows(0, FormClass(L"frmMain"));
    if (windows.empty()) {
        windows = TopLevelWindows(0, FormClass(L"frmPrimaryServer"));
    }
    if (windows.empty()) {
        return false;
    }
    const DWORD processId = windows.front().ProcessId();
    Watch(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, processId), processId);
    return process_ != nullptr;
}

void RunningClient::Watch(HANDLE process, DWORD processId) {
    Forget();
    process_ = process;
    processId_ = processId;
}

void RunningClient::Forget() {
    if (process_ != nullptr) {
        CloseHandle(process_);
    }
    process_ = nullptr;
    processId_ = 0;
}

bool RunningClient::Running() const {
    return process_ != nullptr && WaitForSingleObject(process_, 0) == WAIT_TIMEOUT;
}

bool RunningClient::WaitForEnd(std::chrono::milliseconds limit) const {
    return process_ != nullptr && WaitForSingleObject(process_, static_cast<DWORD>(limit.count())) == WAIT_OBJECT_0;
}

DWORD RunningClient::ExitCode() const {
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process_, &code);
    return code;
}

Window RunningClient::Form(const std::wstring& name) const {
    const std::vector<Window> windows =
        processId_ != 0 ? TopLevelWindows(processId_, FormClass(name)) : std::vector<Window>();
    return windows.empty() ? Window() : windows.front();
}

Window RunningClient::Control(const std::wstring& form, const std::wstring& control) const {
    return Form(form).Control(control);
}

bool RunningClient::WaitForVisible(const std::wstring& form, std::chrono::milliseconds limit) const {
    return WaitFor([&] { return Form(form).Visible() || !Running(); }, limit) && Form(form).Visible();
}

bool RunningClient::WaitForHidden(const std::wstring& form, std::chrono::milliseconds limit) const {
    return WaitFor([&] { return !Form(form).Visible(); }, limit);
}

std::optional<MessageWindow> RunningClient::WaitForMessage(std::chrono::milliseconds limit) const {
    std::vector<MessageWindow> boxes;
    WaitFor(
        [&] {
            boxes = MessageWindowsOf(processId_);
            return !boxes.empty() || !Running();
        },
        limit);
    return boxes.empty() ? std::nullopt : std::optional<MessageWindow>(boxes.front());
}

bool RunningClient::WaitForMonitoring(std::chrono::milliseconds limit) const {
    std::wstring first;
    const auto beats = [&] {
        const std::wstring activity = Control(L"frmMain", L"lblActivity").Text();
        // In any language: the start is through when something is due, and a beat writes a text with another time.
        if (first.empty() && !Control(L"frmMain", L"lblFullRefreshDue").Text().empty()) {
            first = activity;
        }
        if (!first.empty() && activity != first) {
            return true;
        }
        for (const wchar_t* text :
             {L" Idle.", L" Idle", L" Polling servers", L" Polling printers", L" Checking for new jobs"}) {
            if (activity.ends_with(text)) {
                return true;
            }
        }
        return false;
    };
    return WaitFor([&] { return beats() || !Running(); }, limit) && Running();
}

// The calls that count a process's handles are stubs in Wine; the list of all handles of the system is not.
int RunningClient::HandleCount() const {
    struct Entry {
        ULONG processId;
        UCHAR type;
        UCHAR flags;
        USHORT handle;
        void* object;
        ULONG access;
    };
    constexpr ULONG systemHandleInformation = 16;
    constexpr LONG tooSmall = static_cast<LONG>(0xC0000004);
    using Query = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<char> buffer(65536);
    LONG status = tooSmall;
    while (query != nullptr && buffer.size() < (std::size_t{1} << 26U)) {
        status = query(systemHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()), nullptr);
        if (status != tooSmall) {
            break;
        }
        buffer.resize(buffer.size() * 2);
    }
    if (status != 0) {
        return -1;
    }
    ULONG count = 0;
    std::memcpy(&count, buffer.data(), sizeof count);
    int own = 0;
    for (ULONG i = 0; i < count; ++i) {
        Entry entry;
        std::memcpy(&entry, buffer.data() + sizeof count + i * sizeof entry, sizeof entry);
        own += entry.processId == processId_ ? 1 : 0;
    }
    return own;
}

bool RunningClient::Answers() const {
    const std::vector<Window> windows = TopLevelWindows(processId_, L"");
    return !windows.empty() && std::all_of(windows.begin(), windows.end(),
                                           [](const Window& window) { return window.Answers() || !window.Exists(); });
}

void RunningClient::DoubleClickIcon() const {
    Form(L"frmMain").Post(iconMessage, iconIdentifier, WM_LBUTTONDBLCLK);
}

bool RunningClient::RemoveIcon() const {
    NOTIFYICONDATAW icon{};
    icon.cbSize = sizeof icon;
    icon.hWnd = Form(L"frmMain").Handle();
    icon.uID = iconIdentifier;
    return Shell_NotifyIconW(NIM_DELETE, &icon) != 0;
}

void RunningClient::ChooseMenuEntry(int position) const {
    Form(L"frmMain").Post(WM_COMMAND, firstMenuEntry + static_cast<WPARAM>(position));
}

bool RunningClient::EndSession() const {
    const std::vector<Window> windows = TopLevelWindows(processId_, L"");
    bool agreed = true;
    for (const Window& window : windows) {
        DWORD_PTR answer = TRUE;
        window.Send(WM_QUERYENDSESSION, 0, static_cast<LPARAM>(ENDSESSION_LOGOFF), &answer);
        agreed = agreed && answer != FALSE;
    }
    for (const Window& window : windows) {
        window.Send(WM_ENDSESSION, agreed ? TRUE : FALSE, static_cast<LPARAM>(ENDSESSION_LOGOFF));
    }
    return agreed;
}

bool NotificationAreaHasIcon() {
    const std::vector<Window> areas = TopLevelWindows(0, L"__winex11_standalone_tray");
    return std::any_of(areas.begin(), areas.end(), [](const Window& area) { return area.Visible(); });
}

std::wstring FormClass(const std::wstring& form) {
    return L"Korvanta." + form;
}

std::wstring CurrentUser() {
    return SystemName([](wchar_t* buffer, DWORD* size) { return GetUserNameW(buffer, size); });
}

std::wstring CurrentUserLowerCase() {
    std::wstring name = CurrentUser();
    std::transform(name.begin(), name.end(), name.begin(),
                   [](wchar_t letter) { return static_cast<wchar_t>(std::towlower(letter)); });
    return name;
}

std::wstring CurrentMachine() {
    return SystemName([](wchar_t* buffer, DWORD* size) { return GetComputerNameW(buffer, size); });
}

}  // namespace driver

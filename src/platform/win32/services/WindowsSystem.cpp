#include "platform/win32/services/WindowsSystem.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/calls/LateCall.h"
#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr char16_t eventSource[] = u"Korvanta Costbridge Client";

bool IsBlank(char16_t character) {
    return character == u' ' || character == u'\t';
}

}  // namespace

// Named objects by which other processes see that this one is running.
struct WindowsSystem::Claims {
    std::vector<KernelHandle> held;
};

WindowsSystem::WindowsSystem() : claims_(std::make_unique<Claims>()) {}

WindowsSystem::~WindowsSystem() = default;

bool WindowsSystem::VersionPlatform(std::uint32_t& platformId) {
    OSVERSIONINFOA version{};
    static_assert(sizeof(version) == 148);
    version.dwOSVersionInfoSize = sizeof(version);
    if (!::GetVersionExA(&version)) {
        return false;
    }
    platformId = version.dwPlatformId;
    return true;
}

std::uint32_t WindowsSystem::ComputerName(std::u16string& name) {
    return textCalls::ComputerName(name);
}

std::uint32_t WindowsSystem::UserName(std::u16string& name) {
    return textCalls::UserName(name);
}

std::u16string WindowsSystem::CommandLine() {
    const std::u16string line = textCalls::CommandLine();
    auto end = line.begin();
    if (end != line.end() && *end == u'"') {
        end = std::find(end + 1, line.end(), u'"');
        end += end != line.end() ? 1 : 0;
    } else {
        end = std::find_if(end, line.end(), IsBlank);
    }
    return {std::find_if_not(end, line.end(), IsBlank), line.end()};
}

std::u16string WindowsSystem::ProgramFolder() {
    const std::u16string file = textCalls::ProgramFile();
    const std::size_t separator = file.rfind(u'\\');
    return separator == std::u16string::npos ? std::u16string() : file.substr(0, separator);
}

void WindowsSystem::Sleep(std::uint32_t milliseconds) {
    ::Sleep(milliseconds);
}

void WindowsSystem::WriteEventLog(const std::u16string& text) {
    textCalls::ReportApplicationEvent(eventSource, EVENTLOG_ERROR_TYPE, text);
}

void WindowsSystem::InitializeControls() {
    ::InitCommonControls();
}

void WindowsSystem::HideFromTaskList() {
    using RegisterCall = DWORD(WINAPI*)(DWORD process, DWORD type);
    const auto registerServiceProcess =
        textCalls::IsWindows9x() ? LateCall<RegisterCall>("kernel32.dll", "RegisterServiceProcess") : nullptr;
    if (registerServiceProcess) {
        constexpr DWORD thisProcess = 0;
        constexpr DWORD simpleService = 1;
        registerServiceProcess(thisProcess, simpleService);
    }
}

bool WindowsSystem::ClaimInstance(const std::u16string& name) {
    KernelHandle claim(textCalls::MakeMutex(false, name));
    if (!claim || ::GetLastError() == ERROR_ALREADY_EXISTS) {
        return false;
    }
    claims_->held.push_back(std::move(claim));
    return true;
}

}  // namespace korvanta

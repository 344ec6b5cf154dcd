#include "driver/MachineSettings.h"

#include <windows.h>

#include <stdexcept>

namespace driver {
namespace {

constexpr const wchar_t* settingsKey = L"SOFTWARE\\Korvanta";
constexpr const wchar_t* programKey = L"Software\\Wine\\AppDefaults\\KorvantaClient.exe";

void Write(HKEY hive, const wchar_t* key, const std::wstring& name, DWORD type, const void* bytes, std::size_t size) {
    HKEY opened = nullptr;
    LONG result = RegCreateKeyExW(hive, key, 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened, nullptr);
    if (result == ERROR_SUCCESS) {
        result =
            RegSetValueExW(opened, name.c_str(), 0, type, static_cast<const BYTE*>(bytes), static_cast<DWORD>(size));
        RegCloseKey(opened);
    }
    if (result != ERROR_SUCCESS) {
        throw std::runtime_error("cannot write the registry: error " + std::to_string(result));
    }
}

void WriteText(HKEY hive, const wchar_t* key, const std::wstring& name, const std::wstring& value) {
    Write(hive, key, name, REG_SZ, value.c_str(), (value.size() + 1) * sizeof(wchar_t));
}

}  // namespace

void SetMachineSetting(const std::wstring& name, const std::wstring& value) {
    WriteText(HKEY_LOCAL_MACHINE, settingsKey, name, value);
}

void SetMachineSetting(const std::wstring& name, unsigned long number) {
    Write(HKEY_LOCAL_MACHINE, settingsKey, name, REG_DWORD, &number, sizeof number);
}

std::optional<std::wstring> MachineSetting(const std::wstring& name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, settingsKey, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    wchar_t buffer[1024];
    DWORD size = sizeof buffer - sizeof(wchar_t);
    DWORD type = 0;
    const LONG result = RegQueryValueExW(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(buffer), &size);
    RegCloseKey(key);
    if (result != ERROR_SUCCESS || type != REG_SZ) {
        return std::nullopt;
    }
    buffer[size / sizeof(wchar_t)] = L'\0';
    return std::wstring(buffer);
}

void ClearMachineSettings() {
    RegDeleteKeyW(HKEY_LOCAL_MACHINE, settingsKey);
}

void PretendWindows98(bool pretend) {
    WriteText(HKEY_CURRENT_USER, programKey, L"Version", pretend ? L"win98" : L"win10");
}

}  // namespace driver

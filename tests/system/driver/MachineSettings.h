#pragma once

#include <optional>
#include <string>

namespace driver {

// The machine-wide settings that the installation keeps, and what the tests set about the machine itself.

void SetMachineSetting(const std::wstring& name, const std::wstring& value);
void SetMachineSetting(const std::wstring& name, unsigned long number);
// None when there is no such text value.
std::optional<std::wstring> MachineSetting(const std::wstring& name);
// Removes all of them.
void ClearMachineSettings();

// Which Windows the client program finds when it next starts: the Windows 98 family, or the NT family.
void PretendWindows98(bool pretend);

}  // namespace driver

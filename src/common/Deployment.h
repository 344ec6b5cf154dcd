#pragma once

namespace korvanta {

// Addresses to change for an installation of one's own.
inline constexpr const char16_t* supportAddress = u"support@korvanta.example";
inline constexpr const char16_t* productWebSite = u"http://www.korvanta.example";

// The machine-wide settings of the installation, under HKEY_LOCAL_MACHINE.
inline constexpr const char16_t* registrySubKey = u"SOFTWARE\\Korvanta";

}  // namespace korvanta

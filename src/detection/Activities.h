#pragma once

namespace korvanta::activity {

// What a detector can tell its event sink that it is doing. The sink may show it in another language.
inline constexpr const char16_t* pollingServers = u"Polling servers";
inline constexpr const char16_t* pollingPrinters = u"Polling printers";
inline constexpr const char16_t* checkingForJobs = u"Checking for new jobs";
inline constexpr const char16_t* idle = u"Idle";

}  // namespace korvanta::activity

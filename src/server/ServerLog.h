#pragma once

#include <string>
#include <string_view>

#include "common/Error.h"

namespace korvanta {

// Lines of the trace log that both transports write.
namespace serverLog {

inline constexpr const char16_t* printersObtained =
    u"IServerInterface_GetPrintersFile: Successfully obtained list of printer names.";
// `place` says what `address` is: "file" or "URL".
std::u16string PrintersFailed(const Error& error, std::u16string_view place, const std::u16string& address);
std::u16string CounterFailed(const std::u16string& serverName);
std::u16string JobFileFailed(const std::u16string& serverName);

}  // namespace serverLog

}  // namespace korvanta

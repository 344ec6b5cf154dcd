#pragma once

namespace korvanta::taskResult {

// What the status form says of its tasks.
inline constexpr const char16_t* refreshExecuting = u"Executing.....";
inline constexpr const char16_t* refreshCompleted = u"Completed.";
inline constexpr const char16_t* executing = u"Executing...";
inline constexpr const char16_t* listChanged = u"Printer list changed.";
inline constexpr const char16_t* listUnchanged = u"Printer list unchanged.";
inline constexpr const char16_t* serversValid = u"All handles / servers valid.";
inline constexpr const char16_t* serversInvalid = u"Some handles / servers invalid.";

}  // namespace korvanta::taskResult

#include "platform/win32/services/WindowsClock.h"

#include <windows.h>

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr std::int64_t unitsPerMillisecond = 10000;  // a FILETIME counts 100 ns

SYSTEMTIME SystemTime(DateTime time) {
    const auto units = static_cast<std::uint64_t>(time.milliseconds * unitsPerMillisecond);
    const FILETIME fileTime{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    // Where the conversion fails, before 1601, the first day there is stands for it.
    SYSTEMTIME systemTime{1601, 1, 1, 1, 0, 0, 0, 0};
    ::FileTimeToSystemTime(&fileTime, &systemTime);
    return systemTime;
}

}  // namespace

DateTime WindowsClock::Now() {
    SYSTEMTIME local{};
    ::GetLocalTime(&local);
    FILETIME fileTime{};
    ::SystemTimeToFileTime(&local, &fileTime);
    const auto units =
        static_cast<std::int64_t>((static_cast<std::uint64_t>(fileTime.dwHighDateTime) << 32) | fileTime.dwLowDateTime);
    return {units / unitsPerMillisecond};
}

CalendarTime WindowsClock::Calendar(DateTime time) {
    const SYSTEMTIME systemTime = SystemTime(time);
    return {systemTime.wYear, systemTime.wMonth,  systemTime.wDay,
            systemTime.wHour, systemTime.wMinute, systemTime.wSecond};
}

std::u16string WindowsClock::ShortDate(DateTime time) {
    return textCalls::DateText(SystemTime(time), DATE_SHORTDATE);
}

std::u16string WindowsClock::LongTime(DateTime time) {
    return textCalls::TimeText(SystemTime(time), 0);
}

std::u16string WindowsClock::DecimalSeparator() {
    return textCalls::LocaleText(LOCALE_SDECIMAL);
}

}  // namespace korvanta

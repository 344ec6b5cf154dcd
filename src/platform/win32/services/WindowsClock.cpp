#include "platform/win32/services/WindowsClock.h"

#include <windows.h>

#include "platform/win32/calls/TextCalls.h"

namespace korvanta {

namespace {

constexpr std::int64_t unitsPerMillisecond = 10000;  // a FILETIME counts 100 ns

SYSTEMTIME SystemTime(DateTime time) {
    const auto units = static_cast<std::uint64_t>(time.milliseconds * unitsPerMillisecond);
    const FILETIME fileTime{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    // The first day of the calendar stands for times before it, where the conversion fails.
    SYSTEMTIME systemTime{};
    systemTime.wYear = 1601;
    systemTime.wMonth = 1;
    systemTime.wDayOfWeek = 1;
    systemTime.wDay = 1;
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
    return {.year = systemTime.wYear,
            .month = systemTime.wMonth,
            .day = systemTime.wDay,
            .hour = systemTime.wHour,
            .minute = systemTime.wMinute,
            .second = systemTime.wSecond};
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

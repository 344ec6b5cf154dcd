#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace korvanta {

// A local date and time, in milliseconds since 1601-01-01 00:00 of the local calendar.
struct DateTime {
    std::int64_t milliseconds = 0;

    auto operator<=>(const DateTime&) const = default;
    DateTime PlusSeconds(std::int64_t seconds) const { return {milliseconds + seconds * 1000}; }
    DateTime PlusMinutes(std::int64_t minutes) const { return PlusSeconds(minutes * 60); }
};

struct CalendarTime {
    int year = 1601;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// The wall clock and the user's regional settings.
class Clock {
  public:
    virtual ~Clock() = default;
    // Local time; jumps forward or back when somebody sets the clock.
    virtual DateTime Now() = 0;
    virtual CalendarTime Calendar(DateTime time) = 0;
    virtual std::u16string ShortDate(DateTime time) = 0;
    virtual std::u16string LongTime(DateTime time) = 0;
    // As in the user's regional settings, such as ".".
    virtual std::u16string DecimalSeparator() = 0;
};

}  // namespace korvanta

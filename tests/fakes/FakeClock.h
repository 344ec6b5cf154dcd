#pragma once

#include "fakes/FaultPlan.h"
#include "platform/Clock.h"

namespace korvanta::fakes {

// Stands still until a test moves it. Starts at 2026-11-20 14:03:09.
class FakeClock : public Clock {
  public:
    FakeClock() { Set(2026, 11, 20, 14, 3, 9); }

    static DateTime At(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
    void Set(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        now = At(year, month, day, hour, minute, second);
    }
    void Set(DateTime time) { now = time; }
    void AdvanceMilliseconds(std::int64_t milliseconds) { now.milliseconds += milliseconds; }
    void AdvanceSeconds(std::int64_t seconds) { now = now.PlusSeconds(seconds); }
    void AdvanceMinutes(std::int64_t minutes) { now = now.PlusMinutes(minutes); }

    DateTime now;
    std::u16string decimalSeparator = u".";

    FaultPlan faults;  // "Now": somebody sets the clock by `jump` before it is read
    std::int64_t jumpMilliseconds = 0;

    DateTime Now() override {
        if (faults.Check("Now") != 0) {
            AdvanceMilliseconds(jumpMilliseconds);
        }
        return now;
    }
    CalendarTime Calendar(DateTime time) override;
    // "2026-11-20"
    std::u16string ShortDate(DateTime time) override;
    // "14:03:09"
    std::u16string LongTime(DateTime time) override;
    std::u16string DecimalSeparator() override { return decimalSeparator; }
};

}  // namespace korvanta::fakes

#pragma once

#include "platform/Clock.h"

namespace korvanta {

class WindowsClock : public Clock {
  public:
    DateTime Now() override;
    CalendarTime Calendar(DateTime time) override;
    std::u16string ShortDate(DateTime time) override;
    std::u16string LongTime(DateTime time) override;
    std::u16string DecimalSeparator() override;
};

}  // namespace korvanta

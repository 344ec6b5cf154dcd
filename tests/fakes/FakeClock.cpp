#include "fakes/FakeClock.h"

#include <chrono>

#include "common/Text.h"

namespace korvanta::fakes {

namespace {

using std::chrono::floor;
using std::chrono::milliseconds;
using std::chrono::sys_days;
using Days = std::chrono::days;

const sys_days firstDay{std::chrono::year{1601} / 1 / 1};

}  // namespace

DateTime FakeClock::At(int year, int month, int day, int hour, int minute, int second) {
    const sys_days date{std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} /
                        std::chrono::day{static_cast<unsigned>(day)}};
    const std::int64_t seconds = ((date - firstDay).count() * 24LL + hour) * 3600LL + minute * 60LL + second;
    return {seconds * 1000};
}

CalendarTime FakeClock::Calendar(DateTime time) {
    const milliseconds whole{time.milliseconds};
    const Days days = floor<Days>(whole);
    const std::chrono::year_month_day date{firstDay + days};
    const auto seconds = static_cast<int>(floor<std::chrono::seconds>(whole - days).count());
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            seconds / 3600,
            seconds / 60 % 60,
            seconds % 60};
}

std::u16string FakeClock::ShortDate(DateTime time) {
    const CalendarTime parts = Calendar(time);
    return PaddedNumberText(parts.year, 4) + u"-" + PaddedNumberText(parts.month, 2) + u"-" +
           PaddedNumberText(parts.day, 2);
}

std::u16string FakeClock::LongTime(DateTime time) {
    const CalendarTime parts = Calendar(time);
    return PaddedNumberText(parts.hour, 2) + u":" + PaddedNumberText(parts.minute, 2) + u":" +
           PaddedNumberText(parts.second, 2);
}

}  // namespace korvanta::fakes

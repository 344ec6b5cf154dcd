#include "common/Variant.h"

#include <algorithm>
#include <cstdio>

#include "common/Text.h"

namespace korvanta {

namespace {

Error TypeMismatch() {
    return StandardError(errorNumber::typeMismatch, u"Variant");
}

std::u16string PlainNumber(double number, int digits) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.*g", digits, number == 0.0 ? 0.0 : number);  // no "-0"
    return Replace(FromAscii(buffer), u"e", u"E");
}

std::u16string CurrencyText(std::int64_t tenThousandths) {
    std::u16string text = PaddedNumberText(tenThousandths, 5);
    text.insert(text.size() - 4, 1, u'.');
    return text.substr(0, text.ends_with(u".0000") ? text.size() - 5 : text.find_last_not_of(u'0') + 1);
}

struct Date {
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;
};

// 1601 begins a cycle of 400 years. In each group of four years the last is a leap year, except in the last group of
// the first three centuries.
Date DateOfDay(std::int64_t daysSince1601) {
    constexpr std::int64_t cycleDays = 146'097;
    constexpr std::int64_t centuryDays = 36'524;
    constexpr std::int64_t fourYearsDays = 1'461;
    const std::int64_t cycle = (daysSince1601 >= 0 ? daysSince1601 : daysSince1601 - cycleDays + 1) / cycleDays;
    std::int64_t day = daysSince1601 - cycle * cycleDays;
    const std::int64_t century = std::min<std::int64_t>(day / centuryDays, 3);
    day -= century * centuryDays;
    const std::int64_t group = day / fourYearsDays;
    day -= group * fourYearsDays;
    const std::int64_t year = std::min<std::int64_t>(day / 365, 3);
    day -= year * 365;

    const bool leapYear = year == 3 && (group != 24 || century == 3);
    const int lengths[] = {31, leapYear ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    std::int64_t month = 1;
    for (; day >= lengths[month - 1]; ++month) {
        day -= lengths[month - 1];
    }
    return {1601 + cycle * 400 + century * 100 + group * 4 + year, month, day + 1};
}

// "yyyy-mm-dd", and the time behind it unless it is midnight.
std::u16string DateText(DateTime time) {
    constexpr std::int64_t dayMilliseconds = 86'400'000;
    std::int64_t days = time.milliseconds / dayMilliseconds;
    std::int64_t rest = time.milliseconds % dayMilliseconds;
    if (rest < 0) {
        --days;
        rest += dayMilliseconds;
    }
    const Date date = DateOfDay(days);
    const std::int64_t seconds = rest / 1000;
    std::u16string text =
        PaddedNumberText(date.year, 4) + u"-" + PaddedNumberText(date.month, 2) + u"-" + PaddedNumberText(date.day, 2);
    if (seconds != 0) {
        text += u" " + PaddedNumberText(seconds / 3600, 2) + u":" + PaddedNumberText(seconds / 60 % 60, 2) + u":" +
                PaddedNumberText(seconds % 60, 2);
    }
    return text;
}

}  // namespace

bool Variant::IsNumber() const {
    return std::holds_alternative<bool>(value_) || std::holds_alternative<std::uint8_t>(value_) ||
           std::holds_alternative<std::int16_t>(value_) || std::holds_alternative<std::int32_t>(value_) ||
           std::holds_alternative<float>(value_) || std::holds_alternative<double>(value_) ||
           std::holds_alternative<Currency>(value_);
}

std::int32_t Variant::Integer() const {
    if (const auto* number = std::get_if<std::int32_t>(&value_)) {
        return *number;
    }
    if (const auto* number = std::get_if<std::int16_t>(&value_)) {
        return *number;
    }
    if (const auto* number = std::get_if<std::uint8_t>(&value_)) {
        return *number;
    }
    throw TypeMismatch();
}

double Variant::Number() const {
    if (const auto* number = std::get_if<double>(&value_)) {
        return *number;
    }
    if (const auto* number = std::get_if<float>(&value_)) {
        return static_cast<double>(*number);
    }
    if (const auto* money = std::get_if<Currency>(&value_)) {
        return static_cast<double>(money->tenThousandths) / 10000.0;
    }
    if (const auto* boolean = std::get_if<bool>(&value_)) {
        return *boolean ? -1.0 : 0.0;
    }
    return Integer();
}

const std::u16string& Variant::Text() const {
    if (const auto* text = std::get_if<TextReference>(&value_)) {
        return **text;
    }
    throw TypeMismatch();
}

bool Variant::Boolean() const {
    if (const auto* boolean = std::get_if<bool>(&value_)) {
        return *boolean;
    }
    throw TypeMismatch();
}

const std::shared_ptr<Object>& Variant::Reference() const {
    if (const auto* object = std::get_if<ObjectReference>(&value_)) {
        return *object;
    }
    throw TypeMismatch();
}

bool Variant::Equals(const Variant& other) const {
    if (IsObject() || other.IsObject()) {
        return IsObject() && other.IsObject() && Reference() == other.Reference();
    }
    if (IsText() && other.IsText()) {
        return Text() == other.Text();
    }
    if (value_.index() == other.value_.index()) {
        return !std::holds_alternative<Null>(value_) && !std::holds_alternative<ArrayReference>(value_) &&
               value_ == other.value_;
    }
    if (IsEmpty() || other.IsEmpty()) {
        const Variant& value = IsEmpty() ? other : *this;
        return value.IsText() ? value.Text().empty() : value.IsNumber() && value.Number() == 0.0;
    }
    return IsNumber() && other.IsNumber() && Number() == other.Number();
}

std::u16string Variant::Rendering() const {
    struct Renderer {
        std::u16string operator()(std::monostate) const { return u"Empty"; }
        std::u16string operator()(Null) const { return u"Null"; }
        std::u16string operator()(ErrorValue) const { return u"Error"; }
        std::u16string operator()(Currency money) const { return CurrencyText(money.tenThousandths); }
        std::u16string operator()(bool boolean) const { return BooleanText(boolean); }
        std::u16string operator()(std::uint8_t number) const { return NumberText(number); }
        std::u16string operator()(std::int16_t number) const { return NumberText(number); }
        std::u16string operator()(std::int32_t number) const { return NumberText(number); }
        std::u16string operator()(float number) const { return PlainNumber(static_cast<double>(number), 7); }
        std::u16string operator()(double number) const { return PlainNumber(number, 15); }
        std::u16string operator()(DateTime time) const { return DateText(time); }
        std::u16string operator()(const TextReference& text) const { return u"\"" + *text + u"\""; }
        std::u16string operator()(const ArrayReference&) const { return u"Array"; }
        std::u16string operator()(const ObjectReference&) const { return u"Object"; }
    };
    return std::visit(Renderer(), value_);
}

}  // namespace korvanta

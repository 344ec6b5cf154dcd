#include "common/Variant.h"

#include <cstdio>

#include "common/Text.h"

namespace korvanta {

namespace {

Error TypeMismatch() {
    return {errorNumber::typeMismatch, u"Variant", u"Type mismatch"};
}

std::u16string PlainNumber(double number, int digits) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.*g", digits, number);
    return Replace(FromAscii(buffer), u"e", u"E");
}

std::u16string CurrencyText(std::int64_t tenThousandths) {
    return PlainNumber(static_cast<double>(tenThousandths) / 10000.0, 19);
}

// Day, time or both, in the order that sorts.
std::u16string DateText(DateTime time) {
    std::int64_t days = time.milliseconds / 86'400'000;
    const std::int64_t seconds = time.milliseconds % 86'400'000 / 1000;
    int year = 1601;
    const auto daysOfYear = [&] { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0) ? 366 : 365; };
    for (; days >= daysOfYear(); ++year) {
        days -= daysOfYear();
    }
    int month = 1;
    const auto daysOfMonth = [&] {
        constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        return lengths[month - 1] + (month == 2 && daysOfYear() == 366 ? 1 : 0);
    };
    for (; days >= daysOfMonth(); ++month) {
        days -= daysOfMonth();
    }
    std::u16string text =
        PaddedNumberText(year, 4) + u"-" + PaddedNumberText(month, 2) + u"-" + PaddedNumberText(days + 1, 2);
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
    if (IsNumber() && other.IsNumber()) {
        return Number() == other.Number();
    }
    if (IsText() && other.IsText()) {
        return Text() == other.Text();
    }
    if (value_.index() != other.value_.index() || std::holds_alternative<Null>(value_) ||
        std::holds_alternative<ArrayReference>(value_)) {
        return false;
    }
    return value_ == other.value_;
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

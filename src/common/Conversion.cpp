#include "common/Conversion.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "common/Error.h"
#include "common/Text.h"

namespace korvanta {

namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

Error TypeMismatch() {
    return StandardError(errorNumber::typeMismatch, u"Conversion");
}
Error Overflow() {
    return StandardError(errorNumber::overflow, u"Conversion");
}

std::int64_t ToInteger(std::u16string_view text, std::int64_t lowest, std::int64_t highest) {
    const std::u16string trimmed = Trim(text);
    std::size_t at = 0;
    const bool negative = !trimmed.empty() && trimmed[0] == u'-';
    if (negative || (!trimmed.empty() && trimmed[0] == u'+')) {
        at = 1;
    }
    if (at == trimmed.size()) {
        throw TypeMismatch();
    }
    std::int64_t value = 0;
    bool tooLarge = false;
    for (; at < trimmed.size(); ++at) {
        if (!IsDigit(trimmed[at])) {
            throw TypeMismatch();
        }
        value = value * 10 + (trimmed[at] - u'0');
        if (value > std::numeric_limits<std::int32_t>::max() + std::int64_t{1}) {
            tooLarge = true;
            value = 0;
        }
    }
    value = negative ? -value : value;
    if (tooLarge || value < lowest || value > highest) {
        throw Overflow();
    }
    return value;
}

// The number at the start of `text`, as ASCII; empty when there is none.
std::string NumberAtStart(std::u16string_view text) {
    std::string number;
    std::size_t at = 0;
    const auto current = [&] { return at < text.size() ? text[at] : u'\0'; };
    const auto take = [&] { number += static_cast<char>(text[at++]); };
    if (current() == u'-' || current() == u'+') {
        take();
    }
    bool digits = false;
    for (; IsDigit(current()); digits = true) {
        take();
    }
    if (current() == u'.') {
        take();
        for (; IsDigit(current()); digits = true) {
            take();
        }
    }
    if (!digits) {
        return {};
    }
    if (current() == u'e' || current() == u'E') {
        const std::size_t sign = at + 1 < text.size() && (text[at + 1] == u'-' || text[at + 1] == u'+') ? 1 : 0;
        if (at + 1 + sign < text.size() && IsDigit(text[at + 1 + sign])) {
            take();
            if (sign == 1) {
                take();
            }
            while (IsDigit(current())) {
                take();
            }
        }
    }
    return number;
}

// Infinite when the number is too large.
double ValueOf(const std::string& number) {
    return std::strtod(number.c_str(), nullptr);
}

}  // namespace

std::int32_t ToInteger32(std::u16string_view text) {
    return static_cast<std::int32_t>(
        ToInteger(text, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

std::int16_t ToInteger16(std::u16string_view text) {
    return static_cast<std::int16_t>(
        ToInteger(text, std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max()));
}

bool ToBoolean(std::u16string_view text) {
    const std::u16string trimmed = Trim(text);
    if (EqualNoCase(trimmed, u"True")) {
        return true;
    }
    if (EqualNoCase(trimmed, u"False")) {
        return false;
    }
    const std::string number = NumberAtStart(trimmed);
    if (number.empty() || number.size() != trimmed.size()) {
        throw TypeMismatch();
    }
    const double value = ValueOf(number);
    if (!std::isfinite(value)) {
        throw Overflow();
    }
    return value != 0.0;
}

bool IsNumeric(std::u16string_view text) {
    const std::u16string trimmed = Trim(text);
    return !trimmed.empty() && NumberAtStart(trimmed).size() == trimmed.size();
}

double LeadingNumber(std::u16string_view text) {
    const std::size_t start = text.find_first_not_of(u" \t");
    if (start == std::u16string_view::npos) {
        return 0.0;
    }
    const double value = ValueOf(NumberAtStart(text.substr(start)));
    return std::isfinite(value) ? value : 0.0;
}

std::u16string LocaleNumberText(double number, Clock& clock) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.15g", number == 0.0 ? 0.0 : number);
    std::u16string text = Replace(FromAscii(buffer), u"e", u"E");
    const std::size_t point = text.find(u'.');
    if (point != std::u16string::npos) {
        text.replace(point, 1, clock.DecimalSeparator());
    }
    return text;
}

std::u16string GeneralDateText(DateTime time, Clock& clock) {
    const CalendarTime parts = clock.Calendar(time);
    if (parts.hour == 0 && parts.minute == 0 && parts.second == 0) {
        return clock.ShortDate(time);
    }
    return clock.ShortDate(time) + u" " + clock.LongTime(time);
}

std::u16string SortableDateText(DateTime time, Clock& clock) {
    const CalendarTime parts = clock.Calendar(time);
    return PaddedNumberText(parts.year, 4) + u"-" + PaddedNumberText(parts.month, 2) + u"-" +
           PaddedNumberText(parts.day, 2) + u" " + PaddedNumberText(parts.hour, 2) + u":" +
           PaddedNumberText(parts.minute, 2) + u":" + PaddedNumberText(parts.second, 2);
}

}  // namespace korvanta

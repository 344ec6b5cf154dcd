#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace korvanta {

// Conversions between values and their texts in files and settings. A text that cannot be converted raises Error 13
// "Type mismatch", a number that is too large Error 6 "Overflow". Blanks around numbers are ignored.

// Decimal digits with an optional sign.
std::int32_t ToInteger32(std::u16string_view text);
std::int16_t ToInteger16(std::u16string_view text);
// Any number (non-zero is true), or the words True and False in any letter case.
bool ToBoolean(std::u16string_view text);
// Whether the whole text, without the blanks around it, is a decimal number.
bool IsNumeric(std::u16string_view text);

// The number at the start of the text, behind blanks and tabs, with "." as the decimal point. 0 when there is none or
// it is too large. Never raises.
double LeadingNumber(std::u16string_view text);
// At most 15 significant digits, without trailing zeros, with the user's decimal separator.
std::u16string LocaleNumberText(double number, Clock& clock);

// Date and time in the short date and long time format of the user's regional settings; the date alone when the time is
// exactly midnight.
std::u16string GeneralDateText(DateTime time, Clock& clock);
// "yyyy-mm-dd HH:mm:ss", 24-hour clock.
std::u16string SortableDateText(DateTime time, Clock& clock);

}  // namespace korvanta

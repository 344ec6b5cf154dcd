#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace korvanta {

// Conversions between texts and values as files and settings write them. What cannot be converted raises Error 13
// "Type mismatch"; a number that does not fit raises Error 6 "Overflow". Blanks around numbers are tolerated.

// Decimal digits with an optional sign.
std::int32_t ToInteger32(std::u16string_view text);
std::int16_t ToInteger16(std::u16string_view text);
// Any number (non-zero is true), or the words True and False in any letter case.
bool ToBoolean(std::u16string_view text);
// Whether the whole text is a decimal number, blanks around it aside.
bool IsNumeric(std::u16string_view text);

// The number that the text starts with, "." being the decimal point; 0 when it starts with none. Never raises.
double LeadingNumber(std::u16string_view text);
// At most 15 significant digits, without trailing zeros, with the user's decimal separator.
std::u16string LocaleNumberText(double number, Clock& clock);

// Short date and long time of the user's regional settings; the date alone at midnight exactly.
std::u16string GeneralDateText(DateTime time, Clock& clock);
// "yyyy-mm-dd HH:mm:ss", 24-hour clock.
std::u16string SortableDateText(DateTime time, Clock& clock);

}  // namespace korvanta

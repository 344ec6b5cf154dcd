#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta {

// Fields of a record are joined by this character.
inline constexpr char16_t fieldSeparator = u'\u0001';
inline constexpr std::u16string_view lineBreak = u"\r\n";

// Letter case is changed unit by unit, the same under every locale. A unit stays when its other case is not a single
// unit. A letter's upper case is the unit whose lower case it is.
char16_t LowerUnit(char16_t unit);
std::u16string Lower(std::u16string_view text);
std::u16string Upper(std::u16string_view text);
bool EqualNoCase(std::u16string_view a, std::u16string_view b);
// Whether `text` contains `part`, whatever the letter case; every text contains the empty one.
bool ContainsNoCase(std::u16string_view text, std::u16string_view part);
// -1, 0 or 1 by the units' lower-case forms.
int CompareNoCase(std::u16string_view a, std::u16string_view b);

// Without the blanks (U+0020 only) at both ends.
std::u16string Trim(std::u16string_view text);
std::u16string Replace(std::u16string_view text, std::u16string_view what, std::u16string_view with);
// The pieces between separators, empty ones included. The empty text has no pieces; with an empty separator the whole
// text is one piece.
std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator);
// The text with "%1" replaced by the first value, "%2" by the second, and so on up to "%9". A "%" and digit without a
// value stay.
std::u16string FillIn(std::u16string_view text, const std::vector<std::u16string>& values);
std::u16string Join(const std::vector<std::u16string>& pieces, std::u16string_view separator);

// Decimal, with a minus sign where needed.
std::u16string NumberText(std::int64_t number);
// Decimal, filled up with zeros on the left to at least so many digits; the minus sign does not count.
std::u16string PaddedNumberText(std::int64_t number, int digits);
// "True" or "False", for log lines.
std::u16string BooleanText(bool value);
// "1" or "0", for files.
std::u16string BooleanDigit(bool value);

// `text` must be ASCII.
std::u16string FromAscii(std::string_view text);

}  // namespace korvanta

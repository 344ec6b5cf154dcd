#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvanta {

// Fields of a record are joined by this character.
inline constexpr char16_t fieldSeparator = u'\u0001';
inline constexpr std::u16string_view lineBreak = u"\r\n";

// Letter case, unit by unit and the same under every locale. A unit without another single-unit form stays; upper case
// is where a small letter's lower-casing comes from.
char16_t LowerUnit(char16_t unit);
std::u16string Lower(std::u16string_view text);
std::u16string Upper(std::u16string_view text);
bool EqualNoCase(std::u16string_view a, std::u16string_view b);
// Whether `part` occurs in `text` whatever the letter case; the empty text occurs in every text.
bool ContainsNoCase(std::u16string_view text, std::u16string_view part);
// -1, 0 or 1 by the units' lower-case forms.
int CompareNoCase(std::u16string_view a, std::u16string_view b);

// Without the blanks (U+0020 only) at both ends.
std::u16string Trim(std::u16string_view text);
std::u16string Replace(std::u16string_view text, std::u16string_view what, std::u16string_view with);
// The pieces between separators, empty ones included; the empty text has no pieces at all. An empty separator does not
// separate.
std::vector<std::u16string> Split(std::u16string_view text, std::u16string_view separator);
// The text with "%1" replaced by the first value, "%2" by the second, and so on up to "%9"; where there is no such
// value it stays.
std::u16string FillIn(std::u16string_view text, const std::vector<std::u16string>& values);
std::u16string Join(const std::vector<std::u16string>& pieces, std::u16string_view separator);

// Decimal, with a minus sign where needed.
std::u16string NumberText(std::int64_t number);
// Decimal with at least so many digits, zero-padded on the left.
std::u16string PaddedNumberText(std::int64_t number, int digits);
// "True" or "False", as log lines have it.
std::u16string BooleanText(bool value);
// "1" or "0", as files have it.
std::u16string BooleanDigit(bool value);

// ASCII alone, for texts that are known to be so.
std::u16string FromAscii(std::string_view text);

}  // namespace korvanta

#include "common/Text.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvanta {
namespace {

using Pieces = std::vector<std::u16string>;

TEST(TextTest, LowerFoldsEveryScript) {
    EXPECT_EQ(Lower(u"ABCXYZ 019 @[`{"), u"abcxyz 019 @[`{");
    EXPECT_EQ(Lower(u"MÜLLER GROẞ ÄÖÜß"), u"müller groß äöüß");
    EXPECT_EQ(Lower(u"ΑΒΓΔΩ ΆΈΉΊΌΎΏ"), u"αβγδω άέήίόύώ");
    EXPECT_EQ(Lower(u"ЁЖИК АБВЯ ЂЃ"), u"ёжик абвя ђѓ");
    EXPECT_EQ(Lower(u"ŁÓDŹ ČEŠTINA ŸŽ ĐĦ"), u"łódź čeština ÿž đħ");
    EXPECT_EQ(Lower(u"ԱԲԳ"), u"աբգ");
    EXPECT_EQ(Lower(u"ＡＢＺ"), u"ａｂｚ");
    EXPECT_EQ(Lower(u"Ạ Ế Ử"), u"ạ ế ử");
}

TEST(TextTest, WithoutAnotherSingleUnitFormAUnitStays) {
    EXPECT_EQ(Lower(u"日本語 العربية ‑–—"), u"日本語 العربية ‑–—");
    EXPECT_EQ(Upper(u"groß"), u"GROß");
    EXPECT_EQ(Lower(u""), u"");
}

TEST(TextTest, TheTurkishDottedCapitalIIsAnotherLetterUnderEveryLocale) {
    EXPECT_EQ(Lower(u"İ"), u"İ");
    EXPECT_EQ(Lower(u"I"), u"i");
    EXPECT_EQ(Upper(u"i"), u"I");
    EXPECT_EQ(Upper(u"ı"), u"ı");
    EXPECT_FALSE(EqualNoCase(u"İ", u"i"));
    EXPECT_FALSE(EqualNoCase(u"I", u"ı"));
}

TEST(TextTest, UpperUndoesLower) {
    EXPECT_EQ(Upper(u"müller ёжик αβγω łódź ÿ"), u"MÜLLER ЁЖИК ΑΒΓΩ ŁÓDŹ Ÿ");
    EXPECT_EQ(Upper(u"ǆ"), u"Ǆ");
    EXPECT_EQ(Upper(u"kåω"), u"KÅΩ");  // not the Kelvin, Ångström and Ohm signs
    for (std::uint32_t code = 0; code < 0x10000; ++code) {
        const auto unit = static_cast<char16_t>(code);
        ASSERT_EQ(LowerUnit(LowerUnit(unit)), LowerUnit(unit)) << code;
        const std::u16string text(1, unit);
        ASSERT_EQ(Lower(Upper(text)), Lower(text)) << code;
        ASSERT_EQ(Upper(Upper(text)), Upper(text)) << code;
    }
}

TEST(TextTest, SurrogatesAndNulAreKeptWhateverStandsBesideThem) {
    const std::u16string odd{0xD800, u'A', 0xDC00, 0xDBFF, 0, u'B', 0xFFFF};
    const std::u16string folded{0xD800, u'a', 0xDC00, 0xDBFF, 0, u'b', 0xFFFF};
    EXPECT_EQ(Lower(odd), folded);
    EXPECT_TRUE(EqualNoCase(odd, folded));
    EXPECT_FALSE(EqualNoCase(std::u16string(u"a\0b", 3), u"a"));
}

TEST(TextTest, EqualNoCaseComparesWholeTexts) {
    EXPECT_TRUE(EqualNoCase(u"", u""));
    EXPECT_TRUE(EqualNoCase(u"Straße", u"STRAßE"));
    EXPECT_FALSE(EqualNoCase(u"ab", u"abc"));
    EXPECT_FALSE(EqualNoCase(u"abc", u"ab"));
    EXPECT_FALSE(EqualNoCase(u"@", u"`"));
    EXPECT_FALSE(EqualNoCase(u"[", u"{"));
}

TEST(TextTest, ContainsNoCaseFindsPartsAnywhere) {
    EXPECT_TRUE(ContainsNoCase(u"KorvantaClient.exe /TEST", u"/test"));
    EXPECT_FALSE(ContainsNoCase(u"Größe", u"ÖSS"));
    EXPECT_TRUE(ContainsNoCase(u"Größe", u"RÖß"));
    EXPECT_TRUE(ContainsNoCase(u"aaab", u"AAB"));
    EXPECT_TRUE(ContainsNoCase(u"abc", u""));
    EXPECT_TRUE(ContainsNoCase(u"", u""));
    EXPECT_FALSE(ContainsNoCase(u"", u"a"));
    EXPECT_FALSE(ContainsNoCase(u"ab", u"abc"));
}

TEST(TextTest, CompareNoCaseOrdersByLowerCaseUnits) {
    EXPECT_EQ(CompareNoCase(u"abc", u"ABC"), 0);
    EXPECT_EQ(CompareNoCase(u"abc", u"ABD"), -1);
    EXPECT_EQ(CompareNoCase(u"B", u"a"), 1);
    EXPECT_EQ(CompareNoCase(u"a", u"AB"), -1);
    EXPECT_EQ(CompareNoCase(u"AB", u"a"), 1);
    EXPECT_EQ(CompareNoCase(u"", u""), 0);
    EXPECT_EQ(CompareNoCase(u"", u"a"), -1);
    EXPECT_EQ(CompareNoCase(u"_", u"A"), -1);  // "_" is before "a", though behind "A"
}

TEST(TextTest, TrimTakesBlanksAlone) {
    EXPECT_EQ(Trim(u"  a b  "), u"a b");
    EXPECT_EQ(Trim(u"\ta\t"), u"\ta\t");
    EXPECT_EQ(Trim(u"\u00A0a\u3000"), u"\u00A0a\u3000");
    EXPECT_EQ(Trim(u"   "), u"");
    EXPECT_EQ(Trim(u""), u"");
    EXPECT_EQ(Trim(u"a"), u"a");
}

TEST(TextTest, ReplaceWorksFromLeftToRightOnce) {
    EXPECT_EQ(Replace(u"a\\\\b\\\\\\c", u"\\\\", u""), u"ab\\c");
    EXPECT_EQ(Replace(u"aaa", u"aa", u"a"), u"aa");
    EXPECT_EQ(Replace(u"abc", u"b", u"bb"), u"abbc");
    EXPECT_EQ(Replace(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(Replace(u"", u"a", u"x"), u"");
    EXPECT_EQ(Replace(u"a\r\nb\rc\nd", u"\r\n", u" "), u"a b\rc\nd");
}

TEST(TextTest, SplitKeepsEmptyPieces) {
    EXPECT_EQ(Split(u"a,b", u","), (Pieces{u"a", u"b"}));
    EXPECT_EQ(Split(u",a,,", u","), (Pieces{u"", u"a", u"", u""}));
    EXPECT_EQ(Split(u"a", u","), (Pieces{u"a"}));
    EXPECT_EQ(Split(u"", u","), Pieces());
    EXPECT_EQ(Split(u"a\r\nb\nc\r\n", u"\r\n"), (Pieces{u"a", u"b\nc", u""}));
    EXPECT_EQ(Split(u"\r\r\n", u"\r\n"), (Pieces{u"\r", u""}));
}

TEST(TextTest, SplitWithoutASeparatorGivesTheWholeText) {
    EXPECT_EQ(Split(u"abc", u""), (Pieces{u"abc"}));
}

TEST(TextTest, JoinPutsSeparatorsBetween) {
    EXPECT_EQ(Join({u"a", u"", u"b"}, u", "), u"a, , b");
    EXPECT_EQ(Join({u"a"}, u", "), u"a");
    EXPECT_EQ(Join({}, u", "), u"");
}

TEST(TextTest, NumbersAreWrittenInDecimal) {
    EXPECT_EQ(NumberText(0), u"0");
    EXPECT_EQ(NumberText(-17), u"-17");
    EXPECT_EQ(NumberText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
    EXPECT_EQ(PaddedNumberText(7, 3), u"007");
    EXPECT_EQ(PaddedNumberText(1234, 3), u"1234");
    EXPECT_EQ(PaddedNumberText(-7, 3), u"-007");
    EXPECT_EQ(PaddedNumberText(7, 0), u"7");
    EXPECT_EQ(PaddedNumberText(7, -5), u"7");
    EXPECT_EQ(PaddedNumberText(std::numeric_limits<std::int64_t>::min(), 20), u"-09223372036854775808");
}

TEST(TextTest, BooleansAreWrittenForLogsAndForFiles) {
    EXPECT_EQ(BooleanText(true), u"True");
    EXPECT_EQ(BooleanText(false), u"False");
    EXPECT_EQ(BooleanDigit(true), u"1");
    EXPECT_EQ(BooleanDigit(false), u"0");
}

TEST(TextTest, ValuesAreFilledInWhereTheTextHasPlacesForThem) {
    EXPECT_EQ(FillIn(u"Error %2 (%1) at %2", {u"x", u"7"}), u"Error 7 (x) at 7");
    EXPECT_EQ(FillIn(u"%1%3%0%% 100% %", {u"%2", u"no"}), u"%2%3%0%% 100% %");
    EXPECT_EQ(FillIn(u"%9%10", Pieces(12, u"v")), u"vv0");
    EXPECT_EQ(FillIn(u"", {u"v"}), u"");
    EXPECT_EQ(FillIn(u"%1", {}), u"%1");
}

}  // namespace
}  // namespace korvanta

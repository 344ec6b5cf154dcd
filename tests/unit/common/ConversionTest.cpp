#include "common/Conversion.h"

#include <gtest/gtest.h>

#include "common/Error.h"
#include "fakes/FakeClock.h"

namespace korvanta {
namespace {

using fakes::FakeClock;

template <class Convert>
std::int32_t ErrorOf(Convert convert) {
    try {
        convert();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(ConversionTest, IntegersAreDecimalWithAnOptionalSignAndBlanksAround) {
    EXPECT_EQ(ToInteger32(u"0"), 0);
    EXPECT_EQ(ToInteger32(u"-17"), -17);
    EXPECT_EQ(ToInteger32(u"+17"), 17);
    EXPECT_EQ(ToInteger32(u"  42 "), 42);
    EXPECT_EQ(ToInteger32(u"-0"), 0);
    EXPECT_EQ(ToInteger32(u"00000000000000000000000000007"), 7);
    EXPECT_EQ(ToInteger32(u"2147483647"), INT32_MAX);
    EXPECT_EQ(ToInteger32(u"-2147483648"), INT32_MIN);
    EXPECT_EQ(ToInteger16(u"32767"), INT16_MAX);
    EXPECT_EQ(ToInteger16(u"-32768"), INT16_MIN);
}

TEST(ConversionTest, AnIntegerThatDoesNotFitOverflows) {
    for (const char16_t* text : {u"2147483648", u"-2147483649", u"4294967296", u"18446744073709551616",
                                 u"99999999999999999999999999999999999999999999"}) {
        EXPECT_EQ(ErrorOf([&] { ToInteger32(text); }), 6);
        EXPECT_EQ(ErrorOf([&] { ToInteger16(text); }), 6);
    }
    EXPECT_EQ(ErrorOf([] { ToInteger16(u"32768"); }), 6);
    EXPECT_EQ(ErrorOf([] { ToInteger16(u"-32769"); }), 6);
}

TEST(ConversionTest, WhatIsNoIntegerIsATypeMismatch) {
    for (const char16_t* text : {u"", u"   ", u"-", u"+", u"--1", u"1-", u"1 2", u"1.5", u"1e3", u"0x10", u"abc", u"1a",
                                 u"\t1", u"1\r", u"١٢", u"１", u"- 1", u"99999999999999999999x"}) {
        EXPECT_EQ(ErrorOf([&] { ToInteger32(text); }), 13) << testing::PrintToString(std::u16string(text));
        EXPECT_EQ(ErrorOf([&] { ToInteger16(text); }), 13);
    }
    EXPECT_EQ(ErrorOf([] { ToInteger32(std::u16string_view(u"1\0", 2)); }), 13);
}

TEST(ConversionTest, BooleansAreNumbersOrTheTwoWords) {
    for (const char16_t* text : {u"1", u"-1", u" 2 ", u"0.5", u"1e-3", u"True", u"TRUE", u" true "}) {
        EXPECT_TRUE(ToBoolean(text));
    }
    for (const char16_t* text : {u"0", u"-0", u"0.0", u"False", u"fALSE", u" 0"}) {
        EXPECT_FALSE(ToBoolean(text));
    }
    for (const char16_t* text : {u"", u" ", u"yes", u"Tru", u"Truee", u"1x", u"."}) {
        EXPECT_EQ(ErrorOf([&] { ToBoolean(text); }), 13) << testing::PrintToString(std::u16string(text));
    }
}

TEST(ConversionTest, ANumberTooLargeToBeABooleanOverflows) {
    EXPECT_EQ(ErrorOf([] { ToBoolean(u"1e999"); }), 6);
}

TEST(ConversionTest, IsNumericTakesTheWholeText) {
    for (const char16_t* text : {u"0", u"-1", u"+1", u" 12 ", u"1.", u".5", u"1.5", u"1e5", u"1E-5", u"300", u"007"}) {
        EXPECT_TRUE(IsNumeric(text)) << testing::PrintToString(std::u16string(text));
    }
    for (const char16_t* text : {u"", u" ", u".", u"-", u"e5", u"1e", u"1e+", u"1x", u"1 2", u"1..2", u"١", u"0x1"}) {
        EXPECT_FALSE(IsNumeric(text)) << testing::PrintToString(std::u16string(text));
    }
}

TEST(ConversionTest, TheLeadingNumberEndsWhereNoNumberIs) {
    EXPECT_EQ(LeadingNumber(u"0.15"), 0.15);
    EXPECT_EQ(LeadingNumber(u"0,15"), 0.0);
    EXPECT_EQ(LeadingNumber(u"12abc"), 12.0);
    EXPECT_EQ(LeadingNumber(u"  -3.5 x"), -3.5);
    EXPECT_EQ(LeadingNumber(u"\t7"), 7.0);
    EXPECT_EQ(LeadingNumber(u"1.2.3"), 1.2);
    EXPECT_EQ(LeadingNumber(u"1e2e3"), 100.0);
    EXPECT_EQ(LeadingNumber(u"1e"), 1.0);
    EXPECT_EQ(LeadingNumber(u"1e+x"), 1.0);
    EXPECT_EQ(LeadingNumber(u"-"), 0.0);
    EXPECT_EQ(LeadingNumber(u"."), 0.0);
    EXPECT_EQ(LeadingNumber(u"abc"), 0.0);
    EXPECT_EQ(LeadingNumber(u""), 0.0);
    EXPECT_EQ(LeadingNumber(u"   "), 0.0);
    EXPECT_EQ(LeadingNumber(u"inf"), 0.0);
    EXPECT_EQ(LeadingNumber(u"nan"), 0.0);
    EXPECT_EQ(LeadingNumber(u"1e999"), 0.0);
}

TEST(ConversionTest, LocaleNumbersHaveTheUsersDecimalSeparator) {
    FakeClock clock;
    EXPECT_EQ(LocaleNumberText(0.15, clock), u"0.15");
    clock.decimalSeparator = u",";
    EXPECT_EQ(LocaleNumberText(0.15, clock), u"0,15");
    EXPECT_EQ(LocaleNumberText(-1234.5, clock), u"-1234,5");
    EXPECT_EQ(LocaleNumberText(100.0, clock), u"100");
    EXPECT_EQ(LocaleNumberText(0.1 + 0.2, clock), u"0,3");
    EXPECT_EQ(LocaleNumberText(1.0 / 3.0, clock), u"0,333333333333333");
    EXPECT_EQ(LocaleNumberText(-0.0, clock), u"0");
    EXPECT_EQ(LocaleNumberText(1.5e20, clock), u"1,5E+20");
    clock.decimalSeparator = u"··";
    EXPECT_EQ(LocaleNumberText(1.5, clock), u"1··5");
}

TEST(ConversionTest, AGeneralDateLeavesTheTimeOutAtMidnightOnly) {
    FakeClock clock;
    EXPECT_EQ(GeneralDateText(FakeClock::At(2026, 11, 20, 14, 3, 9), clock), u"2026-11-20 14:03:09");
    EXPECT_EQ(GeneralDateText(FakeClock::At(2026, 11, 20), clock), u"2026-11-20");
    EXPECT_EQ(GeneralDateText(FakeClock::At(2026, 11, 20, 0, 0, 1), clock), u"2026-11-20 00:00:01");
}

TEST(ConversionTest, ASortableDateHasItsTimeAlways) {
    FakeClock clock;
    EXPECT_EQ(SortableDateText(FakeClock::At(2026, 1, 2), clock), u"2026-01-02 00:00:00");
    EXPECT_EQ(SortableDateText(FakeClock::At(2026, 11, 20, 14, 3, 9), clock), u"2026-11-20 14:03:09");
}

}  // namespace
}  // namespace korvanta

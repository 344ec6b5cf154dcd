#include <gtest/gtest.h>

#include <windows.h>

#include "platform/win32/services/WindowsCodePage.h"

namespace korvanta {
namespace {

TEST(CodePageTests, TextsOfTheCodePageComeBack) {
    const WindowsCodePage codePage;
    EXPECT_EQ(codePage.Encode(u"A plain text\r\n"), "A plain text\r\n");
    EXPECT_EQ(codePage.Decode("A plain text\r\n"), u"A plain text\r\n");
    EXPECT_EQ(codePage.Decode(codePage.Encode(u"Größe für René")), u"Größe für René");
    EXPECT_EQ(codePage.Encode(u""), "");
    EXPECT_EQ(codePage.Decode(""), u"");
}

TEST(CodePageTests, WesternEuropeHasASingleByteForALetterWithAnAccent) {
    ASSERT_EQ(::GetACP(), 1252U) << "these tests are for a Western European machine";
    const WindowsCodePage codePage;
    EXPECT_EQ(codePage.Encode(u"\u00e9\u20ac"), "\xe9\x80");
    EXPECT_EQ(codePage.Decode("\xe9\x80"), u"\u00e9\u20ac");
}

TEST(CodePageTests, WhatTheCodePageLacksBecomesAQuestionMarkNotALookAlike) {
    const WindowsCodePage codePage;
    EXPECT_EQ(codePage.Encode(u"漢a"), "?a");
    EXPECT_EQ(codePage.Encode(u"\u0101"), "?");
}

TEST(CodePageTests, BestFitGivesTheLookAlikeThatSingleByteCallsGive) {
    const WindowsCodePage codePage;
    EXPECT_EQ(codePage.BestFit(u"\u0142ukasz \u0141"), u"lukasz L");
    EXPECT_EQ(codePage.BestFit(u"René"), u"René");
    EXPECT_EQ(codePage.BestFit(u"漢a"), u"?a");
    EXPECT_EQ(codePage.BestFit(u""), u"");
}

TEST(CodePageTests, ZerosInsideAreKept) {
    const WindowsCodePage codePage;
    EXPECT_EQ(codePage.Encode(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(codePage.Decode(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
}

}  // namespace
}  // namespace korvanta

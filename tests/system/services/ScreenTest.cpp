#include "platform/win32/services/WindowsScreen.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/peers/Colors.h"
#include "platform/win32/services/Fonts.h"
#include "platform/win32/services/WindowsTextMeasure.h"

namespace korvanta {
namespace {

TEST(ColorsTests, AHighlightPalesOnlyAsFarAsItIsSeen) {
    constexpr COLORREF white = RGB(255, 255, 255);
    EXPECT_EQ(PaleHighlight(RGB(0, 0, 128), white), RGB(191, 191, 223));
    EXPECT_EQ(PaleHighlight(RGB(51, 153, 255), white), RGB(204, 229, 255));
    EXPECT_EQ(PaleHighlight(RGB(128, 0, 128), RGB(0, 0, 0)), RGB(128, 0, 128)) << "white on black";
    EXPECT_EQ(PaleHighlight(RGB(255, 255, 0), white), RGB(255, 255, 0));
}

TEST(FontsTests, LengthsAreConvertedAtTheScreensResolution) {
    const Fonts fonts;
    EXPECT_EQ(fonts.Pixels(1440), fonts.DotsPerInch());
    EXPECT_EQ(fonts.Twips(fonts.DotsPerInch()), 1440);
    EXPECT_EQ(fonts.Pixels(-1440), -fonts.DotsPerInch());
    EXPECT_NE(fonts.Normal(), nullptr);
    LOGFONTA bold{};
    ::GetObjectA(fonts.Bold(), sizeof(bold), &bold);
    EXPECT_EQ(bold.lfWeight, FW_BOLD);
}

TEST(ScreenTests, TheWorkAreaIsPartOfTheScreen) {
    const Fonts fonts;
    WindowsScreen screen(fonts);
    EXPECT_DOUBLE_EQ(screen.TwipsPerPixel(), 1440.0 / fonts.DotsPerInch());
    const Place whole = screen.WholeScreen();
    const Place work = screen.WorkArea();
    EXPECT_EQ(whole.left, 0);
    EXPECT_EQ(whole.top, 0);
    EXPECT_EQ(whole.width, fonts.Twips(::GetSystemMetrics(SM_CXSCREEN)));
    EXPECT_GT(work.width, 0);
    EXPECT_GT(work.height, 0);
    EXPECT_LE(work.Right(), whole.Right());
    EXPECT_LE(work.Bottom(), whole.Bottom());
    EXPECT_EQ(screen.WorkAreaAt({0, 0, 3000, 3000}), work);
    EXPECT_EQ(screen.WorkAreaAt({1'000'000, -1'000'000, 3000, 3000}), work) << "the nearest monitor, here the only one";
}

TEST(TextMeasureTests, AnAccessKeysMarkTakesNoRoom) {
    const Fonts fonts;
    WindowsTextMeasure measure(fonts);
    EXPECT_EQ(measure.Width(u"", false), 0);
    EXPECT_EQ(measure.Width(u"&OK", false), measure.Width(u"OK", false));
    EXPECT_GT(measure.Width(u"R&&D", false), measure.Width(u"RD", false));
    EXPECT_EQ(measure.Width(u"&&", false) * 2, measure.Width(u"&&&&", false));
    EXPECT_EQ(measure.Width(u"OK&", false), measure.Width(u"OK", false));
}

TEST(TextMeasureTests, LongerAndBolderTextsTakeMoreRoom) {
    const Fonts fonts;
    WindowsTextMeasure measure(fonts);
    EXPECT_GT(measure.Width(u"Wider", false), measure.Width(u"Wide", false));
    EXPECT_GT(measure.Width(u"A text that is wide", true), measure.Width(u"A text that is wide", false));
    EXPECT_GT(measure.LineHeight(false), 0);
    EXPECT_GE(measure.LineHeight(true), measure.LineHeight(false));
}

}  // namespace
}  // namespace korvanta

#include "platform/win32/calls/TextCalls.h"

#include <array>

#include "TestWindow.h"

namespace korvanta {
namespace {

TEST(TextCallsTests, ATitleOfTheCodePageComesBack) {
    const TestWindow window(u"Größe für René");
    EXPECT_EQ(textCalls::WindowText(window.Get()), u"Größe für René");
    textCalls::SetText(window.Get(), u"");
    EXPECT_EQ(textCalls::WindowText(window.Get()), u"");
    EXPECT_EQ(textCalls::ClassName(window.Get()), u"KorvantaServicesTests");
}

TEST(TextCallsTests, WindowsAreWideOnTheNtFamilyOnly) {
    const TestWindow window(u"漢字");
    EXPECT_EQ(::IsWindowUnicode(window.Get()) != 0, !textCalls::IsWindows9x());
    EXPECT_EQ(textCalls::WindowText(window.Get()), textCalls::IsWindows9x() ? u"??" : u"漢字");
}

TEST(TextCallsTests, TextsOfMessagesArriveInAControl) {
    TestWindow window;
    const HWND list = window.Child(L"LISTBOX", 1);
    textCalls::SendText(list, LB_ADDSTRING, 0, u"Tür");
    textCalls::SendText(list, LB_ADDSTRING, 0, u"");
    EXPECT_EQ(textCalls::ReadText(list, LB_GETTEXTLEN, LB_GETTEXT, 1), u"");
    EXPECT_EQ(textCalls::ReadText(list, LB_GETTEXTLEN, LB_GETTEXT, 0), u"Tür");
}

TEST(TextCallsTests, ATypedCharacterIsTheOneOfTheCodePage) {
    EXPECT_EQ(textCalls::TypedCharacter('a'), u'a');
    EXPECT_EQ(textCalls::TypedCharacter(0xE9), u'é');
    EXPECT_EQ(textCalls::TypedCharacter(0x80), textCalls::IsWindows9x() ? u'€' : u'\x80');
}

TEST(TextCallsTests, ATextIsCutToItsBuffer) {
    std::array<wchar_t, 4> buffer{};
    textCalls::CopyNative(u"für immer", buffer.data(), buffer.size());
    EXPECT_EQ(textCalls::FromNative(buffer.data()), u"für");
    textCalls::CopyNative(u"ja", buffer.data(), buffer.size());
    EXPECT_EQ(textCalls::FromNative(buffer.data()), u"ja");
}

}  // namespace
}  // namespace korvanta

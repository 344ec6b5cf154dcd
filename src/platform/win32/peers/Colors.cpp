#include "platform/win32/peers/Colors.h"

#include <cstdlib>

namespace korvanta {

namespace {

constexpr Color systemColorMark = 0x80000000U;
constexpr COLORREF linkBlue = RGB(0, 0, 204);

int SystemIndex(Color color) {
    return static_cast<int>(color & 0xFFU);
}

bool IsSystem(Color color) {
    return (color & systemColorMark) != 0;
}

// 0 to 255.
int Brightness(COLORREF color) {
    return (GetRValue(color) * 299 + GetGValue(color) * 587 + GetBValue(color) * 114) / 1000;
}

bool IsReadable(COLORREF text, COLORREF background) {
    constexpr int leastDifference = 80;
    return std::abs(Brightness(text) - Brightness(background)) >= leastDifference;
}

}  // namespace

COLORREF ScreenColor(Color color) {
    if (!IsSystem(color)) {
        return color & 0xFFFFFFU;
    }
    return ::GetSysColor(SystemIndex(color));
}

COLORREF TextColor(const Control& control) {
    const bool onWindow = control.BackColor() == systemColor::windowBackground;
    return ScreenColor(onWindow && control.ForeColor() == systemColor::buttonText ? systemColor::windowText
                                                                                  : control.ForeColor());
}

COLORREF LinkColor(COLORREF background) {
    constexpr int hotLight = 26;  // which Windows 95 and NT 4 lack
    const COLORREF users = ::GetSysColorBrush(hotLight) ? ::GetSysColor(hotLight) : linkBlue;
    for (const COLORREF color : {users, linkBlue}) {
        if (IsReadable(color, background)) {
            return color;
        }
    }
    return ::GetSysColor(COLOR_WINDOWTEXT);
}

COLORREF PaleHighlight(COLORREF highlight, COLORREF background) {
    constexpr int leastDifference = 24;
    const auto mixed = [](int strong, int weak) { return static_cast<BYTE>((strong + 3 * weak) / 4); };
    const COLORREF pale =
        RGB(mixed(GetRValue(highlight), GetRValue(background)), mixed(GetGValue(highlight), GetGValue(background)),
            mixed(GetBValue(highlight), GetBValue(background)));
    return std::abs(Brightness(pale) - Brightness(background)) >= leastDifference ? pale : highlight;
}

HBRUSH ColorBrush(Color color, BrushHandle& keeper) {
    if (IsSystem(color)) {
        if (const HBRUSH brush = ::GetSysColorBrush(SystemIndex(color))) {
            return brush;
        }
    }
    keeper.Reset(::CreateSolidBrush(ScreenColor(color)));
    return keeper.Get();
}

}  // namespace korvanta

#include "platform/win32/Colors.h"

namespace korvanta {

namespace {

constexpr Color systemColorMark = 0x80000000U;
constexpr COLORREF linkBlue = RGB(0, 0, 255);

int SystemIndex(Color color) {
    return static_cast<int>(color & 0xFFU);
}

bool IsSystem(Color color) {
    return (color & systemColorMark) != 0;
}

}  // namespace

COLORREF ScreenColor(Color color) {
    if (!IsSystem(color)) {
        return color & 0xFFFFFFU;
    }
    // Windows 95 and NT 4 have no color for links.
    if (color == systemColor::hotLight && !::GetSysColorBrush(SystemIndex(color))) {
        return linkBlue;
    }
    return ::GetSysColor(SystemIndex(color));
}

COLORREF TextColor(const Control& control) {
    const bool onWindow = control.BackColor() == systemColor::windowBackground;
    return ScreenColor(onWindow && control.ForeColor() == systemColor::buttonText ? systemColor::windowText
                                                                                  : control.ForeColor());
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

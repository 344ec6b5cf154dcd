#include "platform/win32/WindowsScreen.h"

#include <windows.h>

#include "platform/win32/Fonts.h"
#include "platform/win32/LateCall.h"

namespace korvanta {

namespace {

bool PointerMonitorWorkArea(RECT& area) {
    using MonitorCall = HMONITOR(WINAPI*)(POINT, DWORD);
    using InformationCall = BOOL(WINAPI*)(HMONITOR, MONITORINFO*);
    const auto monitorFromPoint = LateCall<MonitorCall>("user32.dll", "MonitorFromPoint");
    const auto getMonitorInfo = LateCall<InformationCall>("user32.dll", "GetMonitorInfoA");
    POINT pointer{};
    if (!monitorFromPoint || !getMonitorInfo || !::GetCursorPos(&pointer)) {
        return false;
    }
    MONITORINFO information{};
    information.cbSize = sizeof(information);
    if (!getMonitorInfo(monitorFromPoint(pointer, MONITOR_DEFAULTTONEAREST), &information)) {
        return false;
    }
    area = information.rcWork;
    return true;
}

}  // namespace

Place WindowsScreen::WholeScreen() {
    return {0, 0, fonts_.Twips(::GetSystemMetrics(SM_CXSCREEN)), fonts_.Twips(::GetSystemMetrics(SM_CYSCREEN))};
}

Place WindowsScreen::WorkArea() {
    RECT area{0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    if (!PointerMonitorWorkArea(area)) {
        ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    }
    return {fonts_.Twips(area.left), fonts_.Twips(area.top), fonts_.Twips(area.right - area.left),
            fonts_.Twips(area.bottom - area.top)};
}

double WindowsScreen::TwipsPerPixel() {
    return static_cast<double>(Fonts::twipsPerInch) / fonts_.DotsPerInch();
}

}  // namespace korvanta

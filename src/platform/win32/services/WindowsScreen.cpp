#include "platform/win32/services/WindowsScreen.h"

#include <windows.h>

#include "platform/win32/calls/LateCall.h"
#include "platform/win32/services/Fonts.h"

namespace korvanta {

RECT MonitorWorkArea(const RECT& rectangle) {
    using MonitorCall = HMONITOR(WINAPI*)(const RECT*, DWORD);
    using InformationCall = BOOL(WINAPI*)(HMONITOR, MONITORINFO*);
    const auto monitorFromRect = LateCall<MonitorCall>("user32.dll", "MonitorFromRect");
    const auto getMonitorInfo = LateCall<InformationCall>("user32.dll", "GetMonitorInfoA");
    if (monitorFromRect && getMonitorInfo) {
        MONITORINFO information{};
        information.cbSize = sizeof(information);
        if (getMonitorInfo(monitorFromRect(&rectangle, MONITOR_DEFAULTTONEAREST), &information)) {
            return information.rcWork;
        }
    }
    // Windows 95 and NT 4 know one monitor only.
    RECT area{0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

Place WindowsScreen::WholeScreen() {
    return {0, 0, fonts_.Twips(::GetSystemMetrics(SM_CXSCREEN)), fonts_.Twips(::GetSystemMetrics(SM_CYSCREEN))};
}

Place WindowsScreen::WorkArea() {
    POINT pointer{};
    ::GetCursorPos(&pointer);
    return InTwips(MonitorWorkArea({pointer.x, pointer.y, pointer.x + 1, pointer.y + 1}));
}

Place WindowsScreen::WorkAreaAt(const Place& place) {
    return InTwips(MonitorWorkArea({fonts_.Pixels(place.left), fonts_.Pixels(place.top), fonts_.Pixels(place.Right()),
                                    fonts_.Pixels(place.Bottom())}));
}

Place WindowsScreen::InTwips(const RECT& area) const {
    return {fonts_.Twips(area.left), fonts_.Twips(area.top), fonts_.Twips(area.right - area.left),
            fonts_.Twips(area.bottom - area.top)};
}

double WindowsScreen::TwipsPerPixel() {
    return static_cast<double>(Fonts::twipsPerInch) / fonts_.DotsPerInch();
}

}  // namespace korvanta

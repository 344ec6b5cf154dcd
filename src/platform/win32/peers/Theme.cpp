#include "platform/win32/peers/Theme.h"

#include "platform/win32/calls/LateCall.h"

namespace korvanta {

namespace {

constexpr const char* themeLibrary = "uxtheme.dll";
constexpr int tabPane = 9;  // TABP_PANE

using ThemedCall = BOOL(WINAPI*)();
using OpenCall = HANDLE(WINAPI*)(HWND, const wchar_t*);
using CloseCall = HRESULT(WINAPI*)(HANDLE);
using DrawCall = HRESULT(WINAPI*)(HANDLE, HDC, int, int, const RECT*, const RECT*);

}  // namespace

TabTheme::TabTheme(HWND window) {
    // The first tells of the user's desktop, the second of this program, whose controls may come from an older library.
    const auto isThemed = LateCall<ThemedCall>(themeLibrary, "IsThemeActive");
    const auto isProgramThemed = LateCall<ThemedCall>(themeLibrary, "IsAppThemed");
    const auto open = LateCall<OpenCall>(themeLibrary, "OpenThemeData");
    if (isThemed && isProgramThemed && open && isThemed() && isProgramThemed()) {
        theme_ = open(window, L"TAB");
    }
}

TabTheme::~TabTheme() {
    const auto close = LateCall<CloseCall>(themeLibrary, "CloseThemeData");
    if (theme_ && close) {
        close(theme_);
    }
}

void TabTheme::DrawPage(HDC context, const RECT& page) const {
    if (const auto draw = LateCall<DrawCall>(themeLibrary, "DrawThemeBackground")) {
        draw(theme_, context, tabPane, 0, &page, nullptr);
    }
}

}  // namespace korvanta

#pragma once

#include <windows.h>

namespace korvanta {

// The visual style of tab strips; false where Windows has none or the user has turned it off.
class TabTheme {
  public:
    explicit TabTheme(HWND window);
    TabTheme(const TabTheme&) = delete;
    TabTheme& operator=(const TabTheme&) = delete;
    ~TabTheme();

    explicit operator bool() const { return theme_ != nullptr; }
    // The page below the tabs, with its border.
    void DrawPage(HDC context, const RECT& page) const;

  private:
    HANDLE theme_ = nullptr;
};

}  // namespace korvanta

#pragma once

#include <windows.h>

namespace korvanta {

// The visual style of tab strips, where this Windows has one and the user wants it.
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

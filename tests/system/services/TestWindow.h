#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <string>

#include "platform/win32/calls/Handles.h"
#include "platform/win32/services/DialogWindows.h"
#include "platform/win32/services/WindowsMessageLoop.h"

namespace korvanta {

constexpr UINT testMessage = WM_APP + 1;

// A top-level window that hands its messages to a function; true from it means dealt with.
class TestWindow {
  public:
    explicit TestWindow(const std::u16string& title = u"");
    ~TestWindow() { window_.Reset(); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    HWND Get() const { return window_.Get(); }
    HWND Child(const wchar_t* childClass, int identifier) const;

    std::function<bool(UINT, WPARAM, LPARAM)> onMessage;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    WindowHandle window_;
};

// A message loop and a window that it serves.
class MessageLoopTests : public ::testing::Test {
  protected:
    // A quit left over from one test must not end the next one's loop.
    ~MessageLoopTests() override;

    DialogWindows dialogs_;
    WindowsMessageLoop loop_{dialogs_};
    TestWindow window_;
};

}  // namespace korvanta

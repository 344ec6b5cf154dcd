#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/Grid.h"
#include "platform/win32/calls/TextCalls.h"
#include "platform/win32/peers/WindowsPeerFactory.h"
#include "platform/win32/services/DialogWindows.h"
#include "platform/win32/services/Fonts.h"
#include "platform/win32/services/MessageBoxGuard.h"
#include "platform/win32/services/WindowsMessageLoop.h"

namespace korvanta {

// A form to which a test adds the controls it is about; it remembers what it is told.
class TestForm : public Form {
  public:
    explicit TestForm(const char16_t* name = u"frmTest") : Form(name) {
        Caption(u"Test");
        ClientSize(6000, 4500);
    }
    using Container::Add;
    using Form::Border;
    using Form::GuardsKeys;
    using Form::MinimumSize;
    using Form::ShowInTaskbar;

    std::vector<CloseReason> closeReasons;
    int iconDoubleClicks = 0;
    int taskbars = 0;
    int resizes = 0;
    int fontChanges = 0;

  protected:
    bool OnQueryUnload(CloseReason reason) override {
        closeReasons.push_back(reason);
        return false;
    }
    void OnResize() override { ++resizes; }
    void OnFontsChanged() override { ++fontChanges; }
    void OnTrayIconDoubleClick() override { ++iconDoubleClicks; }
    void OnTaskbarCreated() override { ++taskbars; }
};

// Real windows for a form, and what a user or another program does to them.
class PeersTest : public ::testing::Test {
  protected:
    PeersTest();
    ~PeersTest() override;

    // A control that lives as long as the test.
    template <class Kind>
    Kind& Make(const char16_t* name) {
        auto control = std::make_unique<Kind>(name);
        Kind& made = *control;
        controls_.push_back(std::move(control));
        return made;
    }
    void Place(Control& control, int left = 150, int top = 150, int width = 3000, int height = 330) {
        control.Move({left, top, width, height});
        form.Add(control);
    }
    void Load() { form.Load(factory.get()); }
    void Show() {
        Load();
        form.Show();
        loop.RunPending();
    }
    HWND FormHandle() const { return reinterpret_cast<HWND>(form.Window()); }
    // The window with the control's name.
    HWND Find(const char* name) const { return FindIn(FormHandle(), name); }
    static HWND FindIn(HWND parent, const char* name);
    static LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return textCalls::Send(window, message, wParam, lParam);
    }
    // Handles messages until the condition holds; false after five seconds.
    bool RunUntil(const std::function<bool()>& condition);
    void PressKey(HWND window, WPARAM key);
    static void Click(HWND window, int x = 3, int y = 3);
    static std::u16string ItemText(HWND list, int row, int column);

    DialogWindows dialogs;
    Fonts fonts;
    WindowsMessageLoop loop{dialogs};
    MessageBoxGuard messageBoxGuard;
    std::unique_ptr<PeerFactory> factory = MakeWindowsPeerFactory(loop, dialogs, fonts, messageBoxGuard);
    TestForm form;

  private:
    std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace korvanta

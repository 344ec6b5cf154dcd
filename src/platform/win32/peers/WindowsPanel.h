#pragma once

#include "platform/win32/peers/ControlWindow.h"

namespace korvanta {

// A container inside a form: a child window with children of its own.
class WindowsPanel : public ControlWindow, public HostWindow {
  public:
    WindowsPanel(Container& panel, HostWindow& host);

    HWND Window() const override { return ControlWindow::Window(); }
    const std::shared_ptr<FormWindows>& Windows() const override { return Form(); }
    const Container& Content() const override { return panel_; }
    bool Textured() const override;
    void PaintBackground(HDC context) const override;

  protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void ShowCaption() override {}  // a panel shows none

  private:
    Container& panel_;
};

}  // namespace korvanta

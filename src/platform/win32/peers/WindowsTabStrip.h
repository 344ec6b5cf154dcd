#pragma once

#include <memory>

#include "controls/Controls.h"
#include "platform/win32/peers/ControlWindow.h"
#include "platform/win32/peers/Theme.h"

namespace korvanta {

class WindowsTabStrip : public ControlWindow {
  public:
    WindowsTabStrip(TabStrip& tabStrip, HostWindow& host);
    void Changed(Aspect aspect) override;
    bool Notified(NMHDR& notice, LRESULT& result) override;
    HBRUSH Colors(HDC context) override { return TransparentColors(context); }
    void FontsChanged() override;

    // Whether the page has the texture of the visual style, and not the plain color of dialogs.
    bool Themed() const { return static_cast<bool>(*theme_); }
    // Paints the page; the context's origin is the upper left corner of the container.
    void PaintPage(HDC context) const;
    // Chooses a tab when the key is a tab's access key, or Ctrl with Tab or a page key. True when it is one of these.
    bool TakeKey(const MSG& key);
    // Cuts the places of the visible neighbours out of the window. The strip comes before them in the tab order, and so
    // lies above them too; it would cover the controls on its pages.
    void LeaveOut(const Container& neighbours);

  protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void ShowCaption() override {}

  private:
    void ShowPadding() const;
    void ShowTabs();
    void ShowSelected() const;
    bool TakeAccessKey(char16_t typed);

    TabStrip& tabStrip_;
    std::unique_ptr<TabTheme> theme_;
};

}  // namespace korvanta

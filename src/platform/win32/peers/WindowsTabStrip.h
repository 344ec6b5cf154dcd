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

    // Whether the pages look other than the plain color of dialogs.
    bool Themed() const { return static_cast<bool>(*theme_); }
    // Paints the page; the context's origin is the corner of the container.
    void PaintPage(HDC context) const;
    // Chooses a tab by its access key, or by Ctrl with Tab or a page key. True when the key was one of these.
    bool TakeKey(const MSG& key);
    // The strip comes before what lies on its pages, so that the Tab key reaches it first, and would cover it. So the
    // window leaves out the places of its visible neighbours.
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

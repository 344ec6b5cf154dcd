#pragma once

#include "controls/Controls.h"
#include "platform/win32/peers/ControlWindow.h"

namespace korvanta {

class WindowsLabel : public ControlWindow {
  public:
    WindowsLabel(Label& label, HostWindow& host);
    HBRUSH Colors(HDC context) override;

  protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool Bold() const override { return label_.Bold(); }

  private:
    Label& label_;
};

// A label that looks like a link. Its window is a button, so that the keyboard, access keys and screen readers work.
class WindowsLinkLabel : public ControlWindow {
  public:
    WindowsLinkLabel(Label& label, HostWindow& host);
    void Changed(Aspect aspect) override;
    void Commanded(int code) override;
    void Draw(const DRAWITEMSTRUCT& item) override;
    void FontsChanged() override;

  protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool Bold() const override { return label_.Bold(); }

  private:
    void DrawText(const DRAWITEMSTRUCT& item);
    COLORREF TextColor() const;
    void PointAt(bool pointedAt);
    bool ShowHand() const;

    Label& label_;
    FontHandle underlined_;
    BrushHandle background_;
    bool pointedAt_ = false;
};

}  // namespace korvanta

#pragma once

#include "controls/Controls.h"
#include "platform/win32/peers/ControlWindow.h"

namespace korvanta {

class WindowsImage : public ControlWindow {
  public:
    WindowsImage(Image& image, HostWindow& host);
    HBRUSH Colors(HDC context) override { return TransparentColors(context); }

  protected:
    void ShowCaption() override {}
    void ShowPlace() override;

  private:
    void ShowPicture();

    Image& image_;
    IconHandle icon_;
};

class WindowsLine : public ControlWindow {
  public:
    WindowsLine(Line& line, HostWindow& host);
    HBRUSH Colors(HDC context) override;

  protected:
    void ShowCaption() override {}
    void ShowPlace() override;

  private:
    Line& line_;
    BrushHandle color_;
};

// A bar paints itself at once when it is told a new position, which takes long; so it is told when it is painted or
// asked, and painted a few times a second.
class WindowsProgressBar : public ControlWindow {
  public:
    WindowsProgressBar(ProgressBar& progressBar, HostWindow& host);
    void Changed(Aspect aspect) override;

  protected:
    void ShowCaption() override {}
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    ProgressBar& progressBar_;
    bool stale_ = true;
    DWORD shown_ = 0;  // when it was told
};

}  // namespace korvanta

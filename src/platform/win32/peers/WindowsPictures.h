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

// Windows' progress bar paints itself whenever it gets a new position, which takes long. So it gets the position only
// when it is painted or asked, and is painted a few times a second.
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
    DWORD lastShown_ = 0;  // tick count
};

}  // namespace korvanta

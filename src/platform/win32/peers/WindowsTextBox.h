#pragma once

#include "controls/Controls.h"
#include "controls/ReentryFlag.h"
#include "platform/win32/peers/ControlWindow.h"

namespace korvanta {

class WindowsTextBox : public ControlWindow {
  public:
    WindowsTextBox(TextBox& textBox, HostWindow& host);
    void Commanded(int code) override;
    HBRUSH Colors(HDC context) override { return OwnColors(context); }

  protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void ShowCaption() override;

  private:
    LRESULT KeyDown(WPARAM wParam, LPARAM lParam);

    TextBox& textBox_;
    ReentryFlag showing_;            // the program is changing the text
    bool swallowCharacter_ = false;  // the next WM_CHAR, whose key press has been used up
};

}  // namespace korvanta

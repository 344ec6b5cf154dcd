#pragma once

#include "controls/Controls.h"
#include "controls/ReentryFlag.h"
#include "platform/win32/peers/ControlWindow.h"

namespace korvanta {

// Enter presses the button that has the focus or, when none has it, the form's default button. The button that Enter
// would press has the heavy border.
class WindowsCommandButton : public ControlWindow {
  public:
    WindowsCommandButton(CommandButton& button, HostWindow& host);
    void Commanded(int code) override;
    HBRUSH Colors(HDC context) override { return TransparentColors(context); }

  protected:
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    bool IsInside(LPARAM position) const;
    void ShowDefault(bool isDefault);
    void FocusCameOrWent(bool came);

    CommandButton& button_;
    ReentryFlag changingStyle_;
};

class WindowsCheckBox : public ControlWindow {
  public:
    WindowsCheckBox(CheckBox& checkBox, HostWindow& host);
    void Changed(Aspect aspect) override;
    void Commanded(int code) override;
    HBRUSH Colors(HDC context) override { return TransparentColors(context); }

  private:
    void ShowValue() const;

    CheckBox& checkBox_;
};

}  // namespace korvanta

#pragma once

#include "controls/Controls.h"
#include "platform/win32/peers/ControlWindow.h"

namespace korvanta {

class WindowsComboBox : public ControlWindow {
  public:
    WindowsComboBox(ComboBox& comboBox, HostWindow& host);
    void Changed(Aspect aspect) override;
    void Commanded(int code) override;
    void FontsChanged() override;
    HBRUSH Colors(HDC context) override { return OwnColors(context); }

  protected:
    void ShowCaption() override {}
    void ShowPlace() override;

  private:
    void ShowItems();
    void ShowListIndex() const;
    void FitDroppedWidth() const;

    ComboBox& comboBox_;
};

}  // namespace korvanta

#pragma once

#include "controls/Controls.h"
#include "platform/win32/peers/VirtualList.h"

namespace korvanta {

// Each item is a line of its own with its icon; there is no header.
class WindowsListView : public VirtualList {
  public:
    WindowsListView(ListView& listView, HostWindow& host);
    void Changed(Aspect aspect) override;
    void FontsChanged() override;

  protected:
    void TakeOver() override;
    std::u16string_view RowText(int row, int column) const override;
    int RowImage(int row) const override;
    int RowCount() const override { return static_cast<int>(listView_.Items().size()); }
    void ShowPlace() override;

  private:
    void FitColumn();

    ListView& listView_;
    std::size_t measured_ = 0;  // how many items widest_ takes into account
    int widest_ = 0;            // pixels, of the widest text
};

}  // namespace korvanta

#pragma once

#include <vector>

#include "controls/Grid.h"
#include "platform/win32/peers/VirtualList.h"

namespace korvanta {

// Row r of the grid is row r - 1 of the list; row 0 of the grid is the list's header. Columns of width 0 are not shown.
// A column 0 that is only wide enough for the picture is shown as one column with the next, the picture before the
// text.
class WindowsGrid : public VirtualList {
  public:
    WindowsGrid(Grid& grid, HostWindow& host);
    void Changed(Aspect aspect) override;
    bool Notified(NMHDR& notice, LRESULT& result) override;

  protected:
    void TakeOver() override;
    bool Frozen() const override { return !grid_.Redraw(); }
    void AfterUse() override;
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::u16string_view RowText(int row, int column) const override;
    int RowImage(int row) const override;
    int RowCount() const override { return grid_.Rows() - 1; }
    void ShowPlace() override;

  private:
    struct ShownColumn {
        int gridColumn;  // the one whose text it shows
        int width;       // pixels
        bool operator==(const ShownColumn&) const = default;
    };
    std::vector<ShownColumn> ShownColumns() const;
    void ShowColumns();
    void ShowHeader(int index, int gridColumn);
    void ShowRow();
    int SelectedItem() const;
    void ShowTopRow();
    void ReportViewport();
    bool PictureSharesColumn() const;
    LRESULT CustomDraw(NMLVCUSTOMDRAW& draw) const;

    Grid& grid_;
    std::vector<ShownColumn> columns_;
    int reportedTopRow_ = 1;
    int selectedItem_ = -1;  // the last item that the list has told to be selected
};

}  // namespace korvanta

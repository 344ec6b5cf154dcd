#pragma once

#include <vector>

#include "controls/Grid.h"
#include "platform/win32/peers/VirtualList.h"

namespace korvanta {

// Grid row r is row r - 1 of the list; row 0 is the list's header. Columns of no width are not shown. A column 0 that
// is just wide enough for its picture is one column with the next, the picture in front of the text, as lists have it.
class WindowsGrid : public VirtualList {
  public:
    WindowsGrid(Grid& grid, HostWindow& host);
    void Changed(Aspect aspect) override;
    bool Notified(NMHDR& notice, LRESULT& result) override;

  protected:
    void TakeOver() override;
    bool Frozen() const override { return !grid_.Redraw(); }
    void Used() override;
    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::u16string_view RowText(int row, int column) const override;
    int RowImage(int row) const override;
    int RowCount() const override { return grid_.Rows() - 1; }
    void ShowPlace() override;

  private:
    struct Shown {
        int textColumn;
        int width;  // pixels
        bool operator==(const Shown&) const = default;
    };
    std::vector<Shown> ShownColumns() const;
    void ShowColumns();
    void ShowHeader(int index, int gridColumn);
    void ShowRow();
    int SelectedItem() const;
    void ShowTopRow();
    void ReportViewport();
    bool PictureSharesColumn() const;
    LRESULT CustomDraw(NMLVCUSTOMDRAW& draw) const;

    Grid& grid_;
    std::vector<Shown> columns_;
    int reportedTopRow_ = 1;
    int selectedItem_ = -1;  // as the list last said
};

}  // namespace korvanta

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Controls.h"

namespace korvanta {

// Rows and columns of text cells, of which row 0 is a fixed header. The grid stores its rows compactly, so that a
// million of them fit; the screen asks for the cells it shows. Indexes outside the grid are ignored when writing and
// give an empty text or 0 when reading.
class Grid : public Control {
  public:
    static constexpr int maximumColumns = 4;

    explicit Grid(std::u16string name) : Control(std::move(name)) { BackColor(systemColor::windowBackground); }

    Event<> Click;
    Event<> DblClick;
    // The current row or column has changed, by whomever.
    Event<> RowColChange;

    // At least 1, the header. New rows are empty; when rows go, the current row stays inside.
    int Rows() const { return static_cast<int>(rows_.size()); }
    void Rows(int count);
    int Columns() const { return columns_; }
    void Columns(int count);

    int Row() const { return row_; }
    void Row(int row);
    int Col() const { return column_; }
    void Col(int column);
    // The last column of the selection that starts at Col.
    int ColSel() const { return selectionEnd_; }
    void ColSel(int column);

    std::u16string_view Text(int row, int column) const;
    void Text(int row, int column, std::u16string_view text);
    // 0 is the grid's own text color.
    Color CellForeColor(int row) const;
    void CellForeColor(int row, Color color);
    // Whether the row's cell in column 0 carries the picture.
    bool CellPicture(int row) const;
    void CellPicture(int row, bool picture);

    // Twips; what is below 0 counts as 0.
    int ColWidth(int column) const { return columnWidths_[Checked(column)]; }
    void ColWidth(int column, int twips);
    Alignment ColAlignment(int column) const { return alignments_[Checked(column)]; }
    void ColAlignment(int column, Alignment alignment) { alignments_[Checked(column)] = alignment; }
    Alignment HeaderAlignment(int column) const { return headerAlignments_[Checked(column)]; }
    void HeaderAlignment(int column, Alignment alignment) { headerAlignments_[Checked(column)] = alignment; }

    // Off: the screen is left as it is until it is on again.
    bool Redraw() const { return redraw_; }
    void Redraw(bool redraw);

    // The first data row in view, 1 at least.
    int TopRow() const { return topRow_; }
    void TopRow(int row);
    bool RowIsVisible(int row) const { return row >= topRow_ && row < topRow_ + visibleRows_; }
    int VisibleRows() const { return visibleRows_; }

    void HandleClick() { Click.Raise(); }
    void HandleDblClick() { DblClick.Raise(); }
    void HandleRow(int row);
    void HandleViewport(int topRow, int visibleRows);

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    struct CellText {
        const char16_t* text = nullptr;
        std::uint32_t length = 0;
    };
    struct RowData {
        CellText cells[maximumColumns];
        Color color = 0;
        bool picture = false;
    };

    static std::size_t Checked(int column) {
        return column >= 0 && column < maximumColumns ? static_cast<std::size_t>(column) : 0;
    }
    const char16_t* Store(std::u16string_view text);
    void TellOfContent();

    std::vector<RowData> rows_ = std::vector<RowData>(1);
    // Cell texts lie one behind the other in these blocks and are given back together, when only the header is left.
    std::vector<std::unique_ptr<char16_t[]>> blocks_;
    std::size_t blockUsed_ = 0;
    std::size_t blockSize_ = 0;
    std::u16string headers_[maximumColumns];
    int columnWidths_[maximumColumns] = {};
    Alignment alignments_[maximumColumns] = {};
    Alignment headerAlignments_[maximumColumns] = {};
    int columns_ = 1;
    int row_ = 0;
    int column_ = 0;
    int selectionEnd_ = 0;
    int topRow_ = 1;
    int visibleRows_ = 10;
    bool redraw_ = true;
};

}  // namespace korvanta

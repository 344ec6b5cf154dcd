#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Controls.h"

namespace korvanta {

// What a row of a grid shows.
struct GridRow {
    static constexpr int maximumColumns = 4;

    bool picture = false;
    Color color = 0;
    std::array<std::u16string_view, maximumColumns> texts;
};

// Rows and columns of text cells; row 0 is a fixed header. Rows are stored compactly, so that a million of them fit in
// memory; the peer asks only for the cells that it shows. Writing outside the grid does nothing; reading there gives an
// empty text or 0.
class Grid : public Control {
  public:
    static constexpr int maximumColumns = GridRow::maximumColumns;

    explicit Grid(std::u16string name) : Control(std::move(name)) { BackColor(systemColor::windowBackground); }

    Event<> Click;
    Event<> DblClick;
    // The current row or column has changed, by the user or the program.
    Event<> RowColChange;

    // At least 1, the header. New rows are empty. When rows go, the current row and TopRow are moved into what is left.
    int Rows() const { return static_cast<int>(rows_.size()); }
    void Rows(int count);
    // Appends a row with all its cells, which is faster than setting them one by one.
    void AddRow(const GridRow& row);
    int Columns() const { return columns_; }
    void Columns(int count);

    int Row() const { return row_; }
    void Row(int row);
    int Col() const { return column_; }
    void Col(int column);
    // The last column of the selection that starts at Col.
    int ColSel() const { return selectionEnd_; }
    void ColSel(int column);

    // The view is valid until the cell is written or rows are removed.
    std::u16string_view Text(int row, int column) const;
    void Text(int row, int column, std::u16string_view text);
    // 0 is the grid's own text color.
    Color CellForeColor(int row) const;
    void CellForeColor(int row, Color color);
    // Whether the row's cell in column 0 carries the picture.
    bool CellPicture(int row) const;
    void CellPicture(int row, bool picture);

    // Twips; what is below 0 counts as 0.
    int ColWidth(int column) const { return Column(column).width; }
    void ColWidth(int column, int twips);
    Alignment ColAlignment(int column) const { return Column(column).alignment; }
    void ColAlignment(int column, Alignment alignment);
    Alignment HeaderAlignment(int column) const { return Column(column).headerAlignment; }
    void HeaderAlignment(int column, Alignment alignment);

    // While it is off, the screen stays as it is.
    bool Redraw() const { return redraw_; }
    void Redraw(bool redraw);

    // The first data row in view; at least 1.
    int TopRow() const { return topRow_; }
    void TopRow(int row);
    bool RowIsVisible(int row) const { return row >= topRow_ && row - topRow_ < visibleRows_; }
    int VisibleRows() const { return visibleRows_; }

    void HandleClick() { Click.Raise(); }
    void HandleDblClick() { DblClick.Raise(); }
    void HandleRow(int row);
    void HandleViewport(int topRow, int visibleRows);

  protected:
    std::unique_ptr<ControlPeer> MakePeer(PeerFactory& factory) override { return factory.Make(*this); }

  private:
    struct ColumnData {
        int width = 0;
        Alignment alignment = Alignment::Left;
        Alignment headerAlignment = Alignment::Left;
        std::u16string header;
    };

    static bool IsColumn(int column) { return column >= 0 && column < maximumColumns; }
    const ColumnData& Column(int column) const { return columnData_[IsColumn(column) ? column : maximumColumns]; }
    bool HasCell(int row, int column) const { return row >= 0 && row < Rows() && column >= 0 && column < columns_; }
    // What is stored of a data row.
    GridRow Stored(int row) const;
    // Stores a row. When memory runs out it raises and leaves the grid as it was.
    const char16_t* Store(const GridRow& row);
    void TellOfContent();
    void TellOfSelection();

    // Where in the blocks each row is stored; null for an empty row. A stored row is a sequence of units: flags, the
    // color when there is one, and the texts, each after its length. A row that is written again is stored again, and
    // its old units stay unused until only the header is left; then the blocks are filled from the start.
    std::vector<const char16_t*> rows_ = std::vector<const char16_t*>(1);
    struct Block {
        std::unique_ptr<char16_t[]> units;
        std::size_t size = 0;
    };
    std::vector<Block> blocks_;
    std::size_t block_ = 0;  // the one being filled
    std::size_t blockUsed_ = 0;
    ColumnData columnData_[maximumColumns + 1];  // the last one answers for columns outside the grid
    int columns_ = 1;
    int row_ = 0;
    int column_ = 0;
    int selectionEnd_ = 0;
    int topRow_ = 1;
    int visibleRows_ = 10;
    bool redraw_ = true;
};

}  // namespace korvanta

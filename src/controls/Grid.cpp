#include "controls/Grid.h"

#include <algorithm>

namespace korvanta {

namespace {
constexpr std::size_t textBlockSize = 65'536;
}

void Grid::Rows(int count) {
    count = std::max(count, 1);
    if (count == Rows()) {
        return;
    }
    rows_.resize(static_cast<std::size_t>(count));
    if (count == 1) {
        blocks_.clear();
        blockUsed_ = 0;
        blockSize_ = 0;
    }
    topRow_ = std::min(topRow_, std::max(count - 1, 1));
    const bool currentWent = row_ >= count;
    row_ = std::min(row_, count - 1);
    TellOfContent();
    if (currentWent) {
        TellOfSelection();
        RowColChange.Raise();
    }
}

void Grid::Columns(int count) {
    count = std::clamp(count, 1, maximumColumns);
    if (count == columns_) {
        return;
    }
    columns_ = count;
    TellOfContent();
    selectionEnd_ = std::min(selectionEnd_, count - 1);
    Col(std::min(column_, count - 1));
}

void Grid::Row(int row) {
    if (row < 0 || row >= Rows() || row == row_) {
        return;
    }
    row_ = row;
    TellOfSelection();
    RowColChange.Raise();
}

void Grid::Col(int column) {
    if (column < 0 || column >= columns_ || column == column_) {
        return;
    }
    column_ = column;
    selectionEnd_ = column;
    RowColChange.Raise();
}

void Grid::ColSel(int column) {
    if (column >= 0 && column < columns_) {
        selectionEnd_ = column;
    }
}

std::u16string_view Grid::Text(int row, int column) const {
    if (!HasCell(row, column)) {
        return {};
    }
    if (row == 0) {
        return Column(column).header;
    }
    const CellText& cell = rows_[static_cast<std::size_t>(row)].cells[column];
    return {cell.text, cell.length};
}

void Grid::Text(int row, int column, std::u16string_view text) {
    if (!HasCell(row, column) || Text(row, column) == text) {
        return;
    }
    if (row == 0) {
        columnData_[column].header = text;
    } else {
        rows_[static_cast<std::size_t>(row)].cells[column] = {Store(text), static_cast<std::uint32_t>(text.size())};
    }
    TellOfContent();
}

Color Grid::CellForeColor(int row) const {
    return row > 0 && row < Rows() ? rows_[static_cast<std::size_t>(row)].color : 0;
}

void Grid::CellForeColor(int row, Color color) {
    if (row > 0 && row < Rows() && CellForeColor(row) != color) {
        rows_[static_cast<std::size_t>(row)].color = color;
        TellOfContent();
    }
}

bool Grid::CellPicture(int row) const {
    return row > 0 && row < Rows() && rows_[static_cast<std::size_t>(row)].picture;
}

void Grid::CellPicture(int row, bool picture) {
    if (row > 0 && row < Rows() && CellPicture(row) != picture) {
        rows_[static_cast<std::size_t>(row)].picture = picture;
        TellOfContent();
    }
}

void Grid::ColWidth(int column, int twips) {
    twips = std::max(twips, 0);
    if (IsColumn(column) && columnData_[column].width != twips) {
        columnData_[column].width = twips;
        Tell(Aspect::Place);
    }
}

void Grid::ColAlignment(int column, Alignment alignment) {
    if (IsColumn(column)) {
        columnData_[column].alignment = alignment;
    }
}

void Grid::HeaderAlignment(int column, Alignment alignment) {
    if (IsColumn(column)) {
        columnData_[column].headerAlignment = alignment;
    }
}

void Grid::Redraw(bool redraw) {
    if (redraw_ == redraw) {
        return;
    }
    redraw_ = redraw;
    if (redraw_) {
        Tell(Aspect::Content);
        Tell(Aspect::Selection);
    }
}

void Grid::TopRow(int row) {
    topRow_ = std::clamp(row, 1, std::max(Rows() - 1, 1));
    TellOfSelection();
}

void Grid::HandleRow(int row) {
    if (row < 0 || row >= Rows() || row == row_) {
        return;
    }
    row_ = row;
    RowColChange.Raise();
}

void Grid::HandleViewport(int topRow, int visibleRows) {
    topRow_ = std::max(topRow, 1);
    visibleRows_ = std::max(visibleRows, 1);
}

const char16_t* Grid::Store(std::u16string_view text) {
    if (blockSize_ - blockUsed_ < text.size()) {
        const std::size_t size = std::max(textBlockSize, text.size());
        blocks_.push_back(std::make_unique<char16_t[]>(size));  // may raise: what the grid holds is still in order
        blockSize_ = size;
        blockUsed_ = 0;
    }
    if (text.empty()) {
        return nullptr;
    }
    char16_t* const start = blocks_.back().get() + blockUsed_;
    std::copy(text.begin(), text.end(), start);
    blockUsed_ += text.size();
    return start;
}

void Grid::TellOfContent() {
    if (redraw_) {
        Tell(Aspect::Content);
    }
}

void Grid::TellOfSelection() {
    if (redraw_) {
        Tell(Aspect::Selection);
    }
}

}  // namespace korvanta

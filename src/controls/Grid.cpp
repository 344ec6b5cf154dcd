#include "controls/Grid.h"

#include <algorithm>

namespace korvanta {

namespace {

constexpr std::size_t blockSize = 65'536;

// The flags at the beginning of a stored row. The color, when there is one, takes the next two units.
constexpr char16_t hasPicture = 1;
constexpr char16_t hasColor = 2;
// Stands for a length that does not fit into one unit; the next two units hold it.
constexpr char16_t longLength = 0xFFFF;

std::uint32_t TakeTwo(const char16_t*& from) {
    const std::uint32_t low = *from++;
    return low | (std::uint32_t{*from++} << 16U);
}

void PutTwo(char16_t*& to, std::uint32_t value) {
    *to++ = static_cast<char16_t>(value);
    *to++ = static_cast<char16_t>(value >> 16U);
}

}  // namespace

void Grid::Rows(int count) {
    count = std::max(count, 1);
    if (count == Rows()) {
        return;
    }
    rows_.resize(static_cast<std::size_t>(count));
    if (count == 1) {
        block_ = 0;
        blockUsed_ = 0;
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

void Grid::AddRow(const GridRow& row) {
    rows_.push_back(nullptr);
    try {
        rows_.back() = Store(row);
    } catch (...) {
        rows_.pop_back();
        throw;
    }
    TellOfContent();
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
    return Stored(row).texts[static_cast<std::size_t>(column)];
}

void Grid::Text(int row, int column, std::u16string_view text) {
    if (!HasCell(row, column) || Text(row, column) == text) {
        return;
    }
    if (row == 0) {
        columnData_[column].header = text;
    } else {
        GridRow stored = Stored(row);
        stored.texts[static_cast<std::size_t>(column)] = text;
        rows_[static_cast<std::size_t>(row)] = Store(stored);
    }
    TellOfContent();
}

Color Grid::CellForeColor(int row) const {
    return row > 0 && row < Rows() ? Stored(row).color : 0;
}

void Grid::CellForeColor(int row, Color color) {
    if (row > 0 && row < Rows() && CellForeColor(row) != color) {
        GridRow stored = Stored(row);
        stored.color = color;
        rows_[static_cast<std::size_t>(row)] = Store(stored);
        TellOfContent();
    }
}

bool Grid::CellPicture(int row) const {
    return row > 0 && row < Rows() && Stored(row).picture;
}

void Grid::CellPicture(int row, bool picture) {
    if (row > 0 && row < Rows() && CellPicture(row) != picture) {
        GridRow stored = Stored(row);
        stored.picture = picture;
        rows_[static_cast<std::size_t>(row)] = Store(stored);
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

GridRow Grid::Stored(int row) const {
    GridRow stored;
    const char16_t* next = rows_[static_cast<std::size_t>(row)];
    if (next != nullptr) {
        const char16_t flags = *next++;
        stored.picture = (flags & hasPicture) != 0;
        stored.color = (flags & hasColor) != 0 ? TakeTwo(next) : 0;
        for (std::u16string_view& text : stored.texts) {
            std::uint32_t length = *next++;
            if (length == longLength) {
                length = TakeTwo(next);
            }
            text = {next, length};
            next += length;
        }
    }
    return stored;
}

const char16_t* Grid::Store(const GridRow& row) {
    constexpr std::size_t mostBeside = 3 + 3 * GridRow::maximumColumns;
    std::size_t most = mostBeside;
    for (const std::u16string_view text : row.texts) {
        most += text.size();
    }
    while (block_ < blocks_.size() && blocks_[block_].size - blockUsed_ < most) {
        ++block_;
        blockUsed_ = 0;
    }
    if (block_ == blocks_.size()) {
        const std::size_t size = std::max(blockSize, most);
        blocks_.push_back({std::make_unique_for_overwrite<char16_t[]>(size), size});
    }
    char16_t* const start = blocks_[block_].units.get() + blockUsed_;
    char16_t* next = start;
    *next++ = static_cast<char16_t>((row.picture ? hasPicture : 0) | (row.color != 0 ? hasColor : 0));
    if (row.color != 0) {
        PutTwo(next, row.color);
    }
    for (const std::u16string_view text : row.texts) {
        if (text.size() < longLength) {
            *next++ = static_cast<char16_t>(text.size());
        } else {
            *next++ = longLength;
            PutTwo(next, static_cast<std::uint32_t>(text.size()));
        }
        // Most texts are so short that a loop is faster than a call of a copying function.
        for (const char16_t unit : text) {
            *next++ = unit;
        }
    }
    blockUsed_ += static_cast<std::size_t>(next - start);
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

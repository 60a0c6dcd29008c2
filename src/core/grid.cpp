#include "core/grid.h"

#include <algorithm>
#include <utility>

#include "core/text_utilities.h"
#include "platform/event_gate.h"

namespace korva {

TextBlock BlockOf(StringView text) {
  TextBlock block;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
    StringView line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with(u"\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
    std::vector<String>& row = block.emplace_back();
    for (std::size_t tab = 0; tab != StringView::npos;) {
      tab = line.find(u'\t');
      row.push_back(Trimmed(line.substr(0, tab)));
      line.remove_prefix(tab == StringView::npos ? line.size() : tab + 1);
    }
  }
  return block;
}

std::size_t Grid::Place(int row, int column) const {
  if (row < 0 || row >= rows_ || column < 0 || column >= columns_) {
    throw RuntimeFailure(u"表の範囲外のセルです。");
  }
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(column);
}

void Grid::Resize(int rows, int columns) {
  if (rows == rows_ && columns == columns_) {
    return;
  }
  std::vector<Cell> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
  for (int row = 0; row < std::min(rows, rows_); ++row) {
    for (int column = 0; column < std::min(columns, columns_); ++column) {
      cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
            static_cast<std::size_t>(column)] = At(row, column);
    }
  }
  cells_ = std::move(cells);
  rows_ = rows;
  columns_ = columns;
  if (top_row_ >= rows_) {
    top_row_ = 1;
  }
  if (current_cell_.first >= rows_ || current_cell_.second >= columns_) {
    current_cell_ = {0, 0};
  }
  bad_cells_ = static_cast<int>(
      std::count_if(cells_.begin(), cells_.end(), [](const Cell& cell) { return cell.look == Look::Bad; }));
  ++edits_;
  CellChanged(-1, -1);
}

void Grid::SetRowsInUse(int rows) {
  if (rows_in_use_ != rows) {
    rows_in_use_ = rows;
    CellChanged(-1, -1);
  }
}

void Grid::UserScrolls(int row) {
  if (Assign(top_row_, row) && OnScroll) {
    OnScroll();
  }
}

void Grid::SetText(int row, int column, const String& text) {
  Cell& cell = cells_.at(Place(row, column));
  if (cell.text != text) {
    cell.text = text;
    ++edits_;
    CellChanged(row, column);
  }
}

void Grid::SetLook(int row, int column, Look look) {
  Cell& cell = cells_.at(Place(row, column));
  if (cell.look == look) {
    return;
  }
  bad_cells_ += static_cast<int>(look == Look::Bad) - static_cast<int>(cell.look == Look::Bad);
  cell.look = look;
  if (look == Look::Selected && row > 0) {
    current_cell_ = {row, column};
  }
  CellChanged(row, column);
}

void Grid::SetMarked(int row, int column, bool marked) {
  Cell& cell = cells_.at(Place(row, column));
  if (cell.marked != marked) {
    cell.marked = marked;
    CellChanged(row, column);
  }
}

void Grid::SetCellDiffers(int row, int column) {
  Cell& cell = cells_.at(Place(row, column));
  if (!cell.differs) {
    cell.differs = true;
    CellChanged(row, column);
  }
}

void Grid::ClearDiffers() {
  bool any = false;
  for (Cell& cell : cells_) {
    any = std::exchange(cell.differs, false) || any;
  }
  if (any) {
    CellChanged(-1, -1);
  }
}

void Grid::SetRowScale(const std::optional<RowScale>& scale) {
  if (row_scale_ != scale) {
    row_scale_ = scale;
    CellChanged(-1, -1);
  }
}

void Grid::CellChanged(int row, int column) {
  last_change_ = {row, column};
  ++changes_;
  Changed();
}

}  // namespace korva

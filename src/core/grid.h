#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "core/control.h"
#include "platform/string.h"

namespace korva {

/// Texts in rows and columns.
using TextBlock = std::vector<std::vector<String>>;
/// The cells of a text as spreadsheets copy it: a line for a row, TABs between columns. A line end behind the
/// last row is none of its own.
TextBlock BlockOf(StringView text);

/// A grid of text cells; row 0 and column 0 are its head.
class Grid : public Control {
 public:
  struct Cell {
    String text;
    Look look = Look::Normal;
    bool marked = false;   ///< an edit of its text stands open
    bool differs = false;  ///< its text is not the one that the table was compared with
    bool operator==(const Cell&) const = default;
  };
  using Control::Control;
  std::function<void(int row, int column)> OnCellClick;
  /// A block of texts is pasted, whose first goes into the cell.
  std::function<void(int row, int column, const TextBlock& block)> OnPaste;
  /// The user moved other rows into view.
  std::function<void()> OnScroll;

  [[nodiscard]] int Rows() const { return rows_; }
  [[nodiscard]] int Columns() const { return columns_; }
  /// Changes the size; cells that stay keep what they hold. A top row that is gone becomes row 1.
  void Resize(int rows, int columns);
  /// How many of the rows below the head belong to the table; -1: all. Those behind them keep what they hold.
  void SetRowsInUse(int rows);
  [[nodiscard]] int RowsInUse() const { return rows_in_use_ < 0 ? rows_ - 1 : rows_in_use_; }
  [[nodiscard]] const Cell& At(int row, int column) const { return cells_.at(Place(row, column)); }
  void SetText(int row, int column, const String& text);
  void SetLook(int row, int column, Look look);
  void SetMarked(int row, int column, bool marked);
  /// Marks a cell as differing from what the table was compared with.
  void SetCellDiffers(int row, int column);
  /// Takes these marks from all cells.
  void ClearDiffers();
  [[nodiscard]] bool IsBad() const override { return bad_cells_ > 0; }
  [[nodiscard]] int TopRow() const { return top_row_; }
  void SetTopRow(int row) { Assign(top_row_, row); }
  /// The user's scrolling: `row` is the first in view.
  void UserScrolls(int row);
  /// What the number of a row stands for in a grid with one column of values, such as the temperature of a
  /// sensor's curve: row 1 for `first`, each further row for `step` more.
  struct RowScale {
    double first = 0;
    double step = 1;
    bool operator==(const RowScale&) const = default;
  };
  /// Nothing: the row's number in column 0 stands for itself.
  void SetRowScale(const std::optional<RowScale>& scale);
  [[nodiscard]] const std::optional<RowScale>& ScaleOfRows() const { return row_scale_; }
  /// Row and column of the cell that has the frame of the keyboard, which a view keeps in sight. Row 0: none
  /// has. It goes to each value cell that is newly selected.
  [[nodiscard]] std::pair<int, int> CurrentCell() const { return current_cell_; }
  void SetCurrentCell(int row, int column) { Assign(current_cell_, {row, column}); }
  /// Row and column of the cell that changed last, -1 for all: lets a view redraw one cell only.
  [[nodiscard]] std::pair<int, int> LastChange() const { return last_change_; }
  /// How often cells or the size have changed: tells a view whether a change is one of the table at all.
  [[nodiscard]] unsigned Changes() const { return changes_; }
  /// How often a text or the size has changed.
  [[nodiscard]] unsigned Edits() const { return edits_; }

  /// The user's click on a cell (0 to Rows() - 1, 0 to Columns() - 1).
  void UserClicks(int row, int column) const {
    if (OnCellClick) {
      ByUser([&] { OnCellClick(row, column); });
    }
  }
  /// The user's paste of a text as spreadsheets copy it, from a cell on (row and column from 1).
  void UserPastes(int row, int column, StringView text) const {
    if (OnPaste) {
      ByUser([&] { OnPaste(row, column, BlockOf(text)); });
    }
  }

 private:
  [[nodiscard]] std::size_t Place(int row, int column) const;
  void CellChanged(int row, int column);

  int rows_ = 0;
  int columns_ = 0;
  int top_row_ = 1;
  std::optional<RowScale> row_scale_;
  std::pair<int, int> current_cell_ = {0, 0};
  std::pair<int, int> last_change_ = {-1, -1};
  unsigned changes_ = 0;
  unsigned edits_ = 0;
  int bad_cells_ = 0;
  int rows_in_use_ = -1;
  std::vector<Cell> cells_;
};

}  // namespace korva

#pragma once

#include <algorithm>
#include <array>
#include <optional>

#include "core/control.h"
#include "core/grid.h"
#include "files/parameter_set.h"

namespace korva {

inline constexpr int kLnrColumns = 3;
inline constexpr int kLnrShortPoints = 16;
inline constexpr int kLnrLongPoints = 100;

/// Texts of the grid's head: point number, X, Y. Without a text for Y a point is one value.
using LnrHeads = std::array<StringView, kLnrColumns>;

/// Where a value lies in the parameter set.
struct PointPlace {
  int group = 0;
  int item = 0;
};

/// Place of the value of `row` (the point, from 1) and `column` (1 X, 2 Y) in a table of `points` (16 or
/// 100): items 60 to 91 of group 1, or all items of groups 2 and 3. Nothing for a row or column outside the
/// table.
std::optional<PointPlace> PointItem(int points, int row, int column);

/// A table of points k, shown in a grid: the point's number, and an input X(k) and an output Y(k), or one
/// value alone. Row 0 is the head.
///
/// A table may have its points as items of the parameter set. The set is then the truth and the grid its
/// view, which may have fewer rows than the table has points; the points beyond are not shown. Any other
/// table lives in its grid.
class LnrTable {
 public:
  /// A table whose points are items of the set and count from 1. Both outlive the table.
  LnrTable(ParameterSet& set, Grid& grid, const LnrHeads& heads) : set_(&set), grid_(grid), heads_(heads) {}
  /// A table of `points` that lives in its grid, which it sizes; they count from 0. The grid outlives it.
  LnrTable(Grid& grid, const LnrHeads& heads, int points);

  /// Of a table of the set: takes the shape of `points` (16 or 100), sizes the grid for it and shows the
  /// set's points.
  void SetUp(int points);
  /// Columns of the grid: the point's number and its values.
  [[nodiscard]] int Columns() const { return heads_.back().empty() ? kLnrColumns - 1 : kLnrColumns; }
  [[nodiscard]] int Points() const { return points_; }
  [[nodiscard]] const LnrHeads& Heads() const { return heads_; }
  void SetHeads(const LnrHeads& heads) { heads_ = heads; }

  /// Rebuilds the grid from the set: heads, point numbers, both values, all cells plain.
  void ShowLnrTable();
  /// Puts all value cells to the plain colours, without the mark of an open edit.
  void ClearLnrMarks();
  /// Empties the grid's value cells and makes them plain; heads, point numbers and the set stay.
  void ClearGrid();
  /// Empties the table's places in the set and the grid's value cells.
  void Clear();
  /// Puts the text with which a table that lives in its grid starts into each value; all cells plain.
  void Start(const String& text);
  /// True while such a table has taken nothing since it started.
  [[nodiscard]] bool IsFresh() const { return fresh_; }
  /// Of a table that was put back to what it held when it was so, or was not.
  void SetFresh(bool fresh) { fresh_ = fresh; }
  /// True when such a table holds in each value of the row what it started with.
  [[nodiscard]] bool HoldsStart(int row) const;

  /// The text of a value; row (the point's, from 1) and column inside the table.
  [[nodiscard]] const String& Value(int row, int column) const;
  /// Puts a text into the set and its cell. Outside the table nothing happens: the head and the point numbers
  /// stand for no value.
  void Store(int row, int column, const String& text);
  /// The text from which a value's number is taken: where the table lives in its grid, a decimal comma is a
  /// point.
  [[nodiscard]] String NumberText(int row, int column) const;
  /// True when no value has a text.
  [[nodiscard]] bool IsBlank() const;
  /// How many points stand before the first without an X.
  [[nodiscard]] int FilledPoints() const;
  /// True when a cell without a text is marked bad.
  [[nodiscard]] bool MissesValue() const;

  /// How the cell is coloured. A cell that the grid doesn't show is plain and stays so.
  [[nodiscard]] Look LookOf(int row, int column) const;
  void SetLook(int row, int column, Look look);
  /// Marks a cell as one with an open edit, or takes the mark away; nothing happens to one that isn't shown.
  void SetMarked(int row, int column, bool marked);
  [[nodiscard]] const Grid& Shown() const { return grid_; }
  /// Puts the keyboard into the grid, on this cell or the last one of its column.
  void GoTo(int row, int column);
  /// Puts the frame of the keyboard on the first cell that is marked bad, if one is.
  void GoToFirstBad();
  void ScrollToTop() { grid_.SetTopRow(1); }
  /// Lets the first row in view follow a row above it.
  void BringIntoView(int row) { grid_.SetTopRow(std::min(grid_.TopRow(), row)); }

 private:
  [[nodiscard]] bool IsShown(int row, int column) const;
  [[nodiscard]] bool IsValue(int row, int column) const;
  void ShowFrame();

  ParameterSet* set_ = nullptr;  ///< nullptr: the table lives in its grid
  Grid& grid_;
  LnrHeads heads_;
  int points_ = kLnrShortPoints;
  std::optional<String> start_;
  bool fresh_ = false;
};

}  // namespace korva

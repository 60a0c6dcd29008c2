#pragma once

#include <algorithm>
#include <array>
#include <optional>

#include "core/control.h"
#include "files/parameter_set.h"

namespace korva {

inline constexpr int kLnrColumns = 3;
inline constexpr int kLnrShortPoints = 16;
inline constexpr int kLnrLongPoints = 100;

/// Texts of the grid's head: point number, X, Y.
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

/// The linearizer's table: points k of an input X(k) and an output Y(k), kept as items of the parameter set
/// and shown in a grid of three columns: the point's number, X, Y. Row 0 is the head.
///
/// The set is the truth and the grid its view. A grid may have fewer rows than the table has points; the
/// points beyond are then not shown.
class LnrTable {
 public:
  /// Both outlive the table.
  LnrTable(ParameterSet& set, Grid& grid, const LnrHeads& heads) : set_(set), grid_(grid), heads_(heads) {}

  /// Takes the shape of `points` (16 or 100), sizes the grid for it and shows the set's points.
  void SetUp(int points);
  [[nodiscard]] int Points() const { return points_; }
  void SetHeads(const LnrHeads& heads) { heads_ = heads; }

  /// Rebuilds the grid from the set: heads, point numbers, both values, all cells plain.
  void ShowLnrTable();
  /// Puts all value cells to the plain colours, without the mark of an open edit.
  void ClearLnrMarks();
  /// Empties the grid's value cells and makes them plain; heads, point numbers and the set stay.
  void ClearGrid();
  /// Empties the table's places in the set and the grid's value cells.
  void Clear();

  /// The text of a value; row and column as in PointItem, inside the table.
  [[nodiscard]] const String& Value(int row, int column) const;
  /// Puts a text into the set and its cell. Outside the table nothing happens: the head and the point numbers
  /// stand for no value.
  void Store(int row, int column, const String& text);
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

  ParameterSet& set_;
  Grid& grid_;
  LnrHeads heads_;
  int points_ = kLnrShortPoints;
};

}  // namespace korva

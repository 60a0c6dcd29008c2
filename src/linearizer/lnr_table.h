#pragma once

#include <optional>

#include "core/control.h"
#include "files/parameter_set.h"

namespace korva {

// The linearizer's table: points k of an input and an output percentage, X(k) and Y(k), kept as items of the
// parameter set and shown in a grid of three columns: the point's number, X, Y. Row 0 is the head.

inline constexpr int kLnrColumns = 3;
inline constexpr int kLnrShortPoints = 16;
inline constexpr int kLnrLongPoints = 100;

/// Where a value lies in the parameter set.
struct PointPlace {
  int group = 0;
  int item = 0;
};

/// Place of the value of `row` (the point, from 1) and `column` (1 X, 2 Y) in a table of `points` (16 or
/// 100): items 60 to 91 of group 1, or all items of groups 2 and 3. Nothing for a row or column outside the
/// table.
std::optional<PointPlace> PointItem(int points, int row, int column);

/// Points of the table that the grid shows: its rows less the head.
int LnrPoints(const Grid& grid);

/// Rebuilds the grid from the set: heads, point numbers, both values, all cells plain.
void ShowLnrTable(const ParameterSet& set, Grid& grid);

/// Empties the values and puts all cells to the plain colours; heads and point numbers stay.
void ClearLnrGrid(Grid& grid);

}  // namespace korva

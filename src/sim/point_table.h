#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/family.h"
#include "sim/point.h"

namespace korva::sim {

/// The linearizer table of a device: points of X and Y in percent, each value an item of its own. At power-up
/// it is the straight line from 0 to 100 %.
class PointTable {
 public:
  /// \param shape  Not `ByModel`.
  /// \param limit  Largest amount of a value.
  explicit PointTable(TableShape shape, double limit = 300);

  /// Whether the table has items in this group.
  bool HasGroup(std::string_view group) const;

  /// Position of the item's value in the table, X(1), Y(1), X(2), ...; none when no value lies there.
  std::optional<std::size_t> Find(std::string_view group, std::string_view item) const;

  /// The value with two decimals, as the device holds it.
  std::string Text(std::size_t position) const;

  /// The points in their order; empty without a table.
  std::vector<Point> Points() const;

  /// Head of the value in a reply: always six characters, "X(05):". Point 100 shows as 00.
  static std::string Head(std::size_t position);

  /// Takes a value, rounded to two decimals.
  /// \return false when the text is no number or beyond the limit; nothing changes then.
  bool Write(std::size_t position, std::string_view data);

 private:
  TableShape shape_;
  double limit_;
  std::vector<double> values_;
};

}  // namespace korva::sim

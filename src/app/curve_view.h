#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "core/control.h"
#include "core/grid.h"

namespace korva {

/// A table of points as a picture: column 1 of a grid against column 2, with the line through the points in
/// the order of the table. It shows where a table bends, jumps or turns back, which columns of numbers hide.
/// Of a grid with one column of values it draws these over what its rows stand for (Grid::ScaleOfRows).
///
/// A row is a point when all of this are numbers. Any other row is left out and interrupts the line, so that
/// a gap in a table shows. Rows that are not in use are none of the table. All is read from the grid when it
/// is painted.
class CurveView final : public QWidget {
 public:
  struct Point {
    int row = 0;  ///< of the grid, from 1
    double x = 0;
    double y = 0;
    bool bad = false;       ///< one of its cells is marked bad
    bool selected = false;  ///< one of its cells is under edit
    bool operator==(const Point&) const = default;
  };

  /// `grid` has three columns (number, X, Y) or two (number, Y) under a head row that names the axes.
  CurveView(Grid& grid, QWidget* parent);
  /// The points that are drawn, in the order of the table.
  [[nodiscard]] std::vector<Point> Points() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void FollowChange();
  [[nodiscard]] bool HasTable() const { return grid_.Columns() >= kLeastColumns && grid_.Rows() > 0; }
  [[nodiscard]] bool HasXColumn() const { return grid_.Columns() > kLeastColumns; }
  [[nodiscard]] std::optional<double> XOf(int row) const;
  [[nodiscard]] bool HasLook(int row, Look look) const;
  [[nodiscard]] QString TitleOfX() const;
  void DrawTitles(QPainter& painter, const QRectF& frame) const;
  void Describe(const std::vector<Point>& points);
  [[nodiscard]] QString TipAt(const QPoint& position) const;

  static constexpr int kLeastColumns = 2;

  Grid& grid_;
  unsigned seen_;  ///< how many changes of the grid the picture knows of
};

}  // namespace korva

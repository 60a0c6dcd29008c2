#pragma once

#include <QWidget>

#include "core/curve.h"

namespace korva {

/// The curve of a table beside it. All is read from the grid when it is painted.
class CurveView final : public QWidget {
 public:
  using Point = CurvePoint;

  /// `grid` has the form that CurveOf takes.
  CurveView(Grid& grid, QWidget* parent);
  /// The points that are drawn, in the order of the table.
  [[nodiscard]] std::vector<Point> Points() const { return CurveOf(grid_).points; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void FollowChange();
  void Describe(const Curve& curve);
  [[nodiscard]] QString TipAt(const QPoint& position) const;
  [[nodiscard]] QString TipOf(const Curve& curve, const CurvePoint& point) const;

  Grid& grid_;
  unsigned seen_;  ///< how many changes of the grid the picture knows of
  bool waits_for_paint_ = false;
};

}  // namespace korva

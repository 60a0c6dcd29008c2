#pragma once

#include <QWidget>

#include "core/curve.h"

namespace korva {

class CurvePicture;

/// The curve of a table beside it. All is read from the grid when it is painted.
///
/// What the mouse tells of the point under it, the keyboard tells of the point to which it goes: left and
/// right
/// to its neighbours, page up and down over ten, home and end to the first and the last. A frame shows which
/// it is until the keyboard leaves the curve.
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
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void FollowChange();
  void Describe(const Curve& curve);
  void GoTo(const Curve& curve, const CurvePoint& point);
  /// The point that has the keyboard; nullptr: none.
  [[nodiscard]] const CurvePoint* Current(const Curve& curve) const;
  void DrawFocus(QPainter& painter, const Curve& curve, const CurvePicture& picture) const;
  [[nodiscard]] QString TipAt(const QPoint& position) const;
  [[nodiscard]] QString TipOf(const Curve& curve, const CurvePoint& point) const;

  Grid& grid_;
  int current_row_ = 0;  ///< of the grid: its point has the keyboard; 0: none
  unsigned seen_;        ///< how many changes of the grid the picture knows of
  bool waits_for_paint_ = false;
};

}  // namespace korva

#pragma once

#include <QFont>
#include <QPalette>
#include <QPointF>
#include <QRectF>

#include "core/curve.h"
#include "print/axis.h"

class QPainter;

namespace korva {

/// A curve as a picture: axes with round ticks, the line through the points in the order of the table, and
/// the points. It shows where a table bends, jumps or turns back, which columns of numbers hide. A row that
/// is no point interrupts the line, so that a gap in a table shows.
class CurvePicture {
 public:
  /// Fits the curve, which outlives this, into a picture of this size. `font` is that of its texts.
  CurvePicture(const Curve& curve, const QSizeF& size, const QFont& font);

  /// Draws the picture from the painter's origin on, in the colour of texts on the base, which is there
  /// already.
  void Draw(QPainter& painter, const QPalette& colours) const;
  /// The point nearest to a place in the picture; nullptr when none is near.
  [[nodiscard]] const CurvePoint* Near(const QPointF& place) const;
  /// Where a point of the curve stands in the picture.
  [[nodiscard]] QPointF At(const CurvePoint& point) const { return At(point.x, point.y); }

 private:
  [[nodiscard]] Axis AxisOf(double CurvePoint::*value, int ticks) const;
  [[nodiscard]] QPointF At(double x, double y) const;
  [[nodiscard]] bool GoesUnderInLine(std::size_t place) const;
  void DrawRows(QPainter& painter, const QPalette& colours) const;
  void DrawColumns(QPainter& painter, const QPalette& colours) const;
  void DrawTitles(QPainter& painter) const;
  void DrawLine(QPainter& painter) const;
  void DrawPoint(QPainter& painter, const CurvePoint& point, const QPalette& colours) const;

  const Curve& curve_;
  QSizeF size_;
  QFont font_;
  double line_ = 0;   ///< height of a line of text
  double digit_ = 0;  ///< width of a digit
  QRectF frame_;
  Axis x_;
  Axis y_;
  double dot_ = 0;      ///< radius of a point
  double mark_ = 0;     ///< half the side of the mark of a bad point
  bool dense_ = false;  ///< points stand closer than their dots are wide
};

}  // namespace korva

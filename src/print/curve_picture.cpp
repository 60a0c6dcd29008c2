#include "print/curve_picture.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "print/contrast.h"

namespace korva {

namespace {

constexpr double kFullScale = 100;  ///< of the axes of a table without points, in percent

constexpr double kLeastDot = 1;  ///< radius of a point
constexpr double kLineWidth = 1.5;

// Strengths of the text colour over the background.
constexpr double kGridStrength = 0.12;
constexpr double kZeroStrength = 0.4;
constexpr double kFrameStrength = 0.5;
constexpr double kLineStrength = 0.7;

int TicksIn(double room, double each) { return std::clamp(static_cast<int>(room / each), 2, 10); }

/// The colour of a line without which the picture could not be understood.
QColor MixedToBeSeen(const QPalette& colours, double strength) {
  return Distinct(Mixed(colours, strength), {{.colour = colours.color(QPalette::Base)}});
}

QColor RuleOf(const QPalette& colours, double tick) {
  return tick == 0 ? MixedToBeSeen(colours, kZeroStrength) : Mixed(colours, kGridStrength);
}

}  // namespace

Axis CurvePicture::AxisOf(double CurvePoint::*value, int ticks) const {
  if (curve_.points.empty()) {
    return RoundAxis(0, kFullScale, ticks);
  }
  const auto [low, high] =
      std::minmax_element(curve_.points.begin(), curve_.points.end(),
                          [value](const auto& one, const auto& other) { return one.*value < other.*value; });
  return RoundAxis((*low).*value, (*high).*value, ticks);
}

CurvePicture::CurvePicture(const Curve& curve, const QSizeF& size, const QFont& font)
    : curve_(curve), size_(size), font_(font) {
  const QFontMetricsF metrics(font);
  line_ = metrics.lineSpacing();
  digit_ = metrics.horizontalAdvance(QLatin1Char('0'));
  y_ = AxisOf(&CurvePoint::y, TicksIn(size.height() - 4 * line_, 2 * line_));
  double left = 0;
  for (const double tick : y_.Ticks()) {
    left = std::max(left, metrics.horizontalAdvance(TickText(tick)));
  }
  frame_ = QRectF({}, size).adjusted(left + 2 * digit_, 1.5 * line_, -3 * digit_, -2.75 * line_);
  x_ = AxisOf(&CurvePoint::x, TicksIn(frame_.width(), 7 * digit_));
  mark_ = line_ / 3;
  // The dots of many points would run together to a thick line.
  const double room = frame_.width() / static_cast<double>(4 * curve.points.size() + 1);
  dot_ = std::min(mark_ / 2, std::max(kLeastDot, room));
  dense_ = room < kLeastDot / 2;
}

QPointF CurvePicture::At(double x, double y) const {
  return {frame_.left() + x_.Share(x) * frame_.width(), frame_.bottom() - y_.Share(y) * frame_.height()};
}

const CurvePoint* CurvePicture::Near(const QPointF& place) const {
  const CurvePoint* nearest = nullptr;
  double least = 1.5 * mark_;
  for (const CurvePoint& point : curve_.points) {
    const QPointF away = At(point) - place;
    if (const double distance = std::hypot(away.x(), away.y()); distance < least) {
      least = distance;
      nearest = &point;
    }
  }
  return nearest;
}

/// The lines of the upright axis, with their labels.
void CurvePicture::DrawRows(QPainter& painter, const QPalette& colours) const {
  for (const double tick : y_.Ticks()) {
    const double height = At(x_.low, tick).y();
    painter.setPen(RuleOf(colours, tick));
    painter.drawLine(QPointF(frame_.left(), height), QPointF(frame_.right(), height));
    painter.setPen(colours.color(QPalette::Text));
    painter.drawText(QRectF(0, height - line_ / 2, frame_.left() - digit_, line_),
                     Qt::AlignRight | Qt::AlignVCenter, TickText(tick));
  }
}

void CurvePicture::DrawColumns(QPainter& painter, const QPalette& colours) const {
  const QFontMetricsF metrics(font_);
  double free_from = 0;  // a label that would touch the one before is left out
  for (const double tick : x_.Ticks()) {
    const double across = At(tick, y_.low).x();
    painter.setPen(RuleOf(colours, tick));
    painter.drawLine(QPointF(across, frame_.top()), QPointF(across, frame_.bottom()));
    const double width = metrics.horizontalAdvance(TickText(tick));
    if (across - width / 2 >= free_from) {
      painter.setPen(colours.color(QPalette::Text));
      painter.drawText(QRectF(across - width, frame_.bottom() + line_ / 4, 2 * width, line_),
                       Qt::AlignHCenter | Qt::AlignTop, TickText(tick));
      free_from = across + width / 2 + digit_;
    }
  }
}

void CurvePicture::DrawTitles(QPainter& painter) const {
  painter.drawText(QRectF(frame_.left(), 0, frame_.width(), frame_.top() - line_ / 4),
                   Qt::AlignLeft | Qt::AlignBottom, QString::fromStdU16String(curve_.y_title));
  painter.drawText(QRectF(frame_.left(), size_.height() - 1.25 * line_, frame_.width(), line_),
                   Qt::AlignRight | Qt::AlignVCenter, QString::fromStdU16String(curve_.x_title));
}

void CurvePicture::DrawLine(QPainter& painter) const {
  QPolygonF piece;
  for (std::size_t place = 0; place < curve_.points.size(); ++place) {
    if (place > 0 && curve_.points[place].row != curve_.points[place - 1].row + 1) {
      painter.drawPolyline(piece);
      piece.clear();
    }
    piece << At(curve_.points[place]);
  }
  painter.drawPolyline(piece);
}

/// True of a plain point whose dot can't be told from the line through it and a neighbour.
bool CurvePicture::GoesUnderInLine(std::size_t place) const {
  const std::vector<CurvePoint>& points = curve_.points;
  const auto joins = [&](std::size_t one, std::size_t other) {
    return other < points.size() && points[other].row == points[one].row + 1;
  };
  const bool in_line = (place > 0 && joins(place - 1, place)) || joins(place, place + 1);
  return dense_ && in_line && !points[place].bad && !points[place].selected;
}

/// A dot; a bad point is a square with a cross in it, inverted like its cell; the one under edit is ringed.
/// The shapes tell them apart without colours.
void CurvePicture::DrawPoint(QPainter& painter, const CurvePoint& point, const QPalette& colours) const {
  const QPointF centre = At(point);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colours.color(QPalette::Text));
  if (point.bad) {
    const QPointF corner(mark_, mark_);
    painter.drawRect(QRectF(centre - corner, centre + corner));
    const double arm = mark_ - 1.5;
    painter.setPen(QPen(colours.color(QPalette::Base), 1.5));
    painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
  } else {
    painter.drawEllipse(centre, dot_, dot_);
  }
  if (point.selected) {
    painter.setPen(QPen(colours.color(QPalette::Text), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(centre, 1.5 * mark_, 1.5 * mark_);
  }
}

void CurvePicture::Draw(QPainter& painter, const QPalette& colours) const {
  painter.save();
  painter.setFont(font_);
  DrawRows(painter, colours);
  DrawColumns(painter, colours);
  painter.setPen(MixedToBeSeen(colours, kFrameStrength));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(frame_);
  painter.setPen(colours.color(QPalette::Text));
  DrawTitles(painter);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(MixedToBeSeen(colours, kLineStrength), kLineWidth));
  DrawLine(painter);
  for (std::size_t place = 0; place < curve_.points.size(); ++place) {
    if (!GoesUnderInLine(place)) {
      DrawPoint(painter, curve_.points[place], colours);
    }
  }
  painter.restore();
}

}  // namespace korva

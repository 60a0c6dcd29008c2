#include "app/curve_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPointer>
#include <QPolygonF>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>

#include "app/axis.h"
#include "app/text.h"
#include "core/numbers.h"
#include "core/texts.h"

namespace korva {

namespace {

constexpr double kFullScale = 100;  ///< of the axes of a table without points, in percent

constexpr double kLeastDot = 1;  ///< radius of a point
constexpr double kLineWidth = 1.5;

constexpr QLatin1String kRowsStandFor("deg C");  ///< where a scale tells what

// Strengths of the text colour over the background.
constexpr double kGridStrength = 0.12;
constexpr double kZeroStrength = 0.4;
constexpr double kFrameStrength = 0.5;
constexpr double kLineStrength = 0.7;

Axis AxisOf(const std::vector<CurveView::Point>& points, double CurveView::Point::*value, int ticks) {
  if (points.empty()) {
    return RoundAxis(0, kFullScale, ticks);
  }
  const auto [low, high] =
      std::minmax_element(points.begin(), points.end(),
                          [value](const auto& one, const auto& other) { return one.*value < other.*value; });
  return RoundAxis((*low).*value, (*high).*value, ticks);
}

/// Where a picture's parts stand in its widget.
struct Plot {
  QRectF frame;
  Axis x;
  Axis y;
  double dot = 0;      ///< radius of a point
  double mark = 0;     ///< half the side of the mark of a bad point
  bool dense = false;  ///< points stand closer than their dots are wide

  [[nodiscard]] QPointF At(double value_x, double value_y) const {
    return {frame.left() + x.Share(value_x) * frame.width(),
            frame.bottom() - y.Share(value_y) * frame.height()};
  }
  [[nodiscard]] QPointF At(const CurveView::Point& point) const { return At(point.x, point.y); }
};

Plot PlotOf(const std::vector<CurveView::Point>& points, const QWidget& widget) {
  const QFontMetricsF metrics(widget.font());
  const double line = metrics.lineSpacing();
  const double digit = metrics.horizontalAdvance(QLatin1Char('0'));
  const auto ticks = [](double room, double each) {
    return std::clamp(static_cast<int>(room / each), 2, 10);
  };
  Plot plot;
  plot.y = AxisOf(points, &CurveView::Point::y, ticks(widget.height() - 4 * line, 2 * line));
  double left = 0;
  for (const double tick : plot.y.Ticks()) {
    left = std::max(left, metrics.horizontalAdvance(TickText(tick)));
  }
  plot.frame = QRectF(widget.rect()).adjusted(left + 2 * digit, 1.5 * line, -3 * digit, -2.75 * line);
  plot.x = AxisOf(points, &CurveView::Point::x, ticks(plot.frame.width(), 7 * digit));
  plot.mark = line / 3;
  // The dots of many points would run together to a thick line.
  const double room = plot.frame.width() / static_cast<double>(4 * points.size() + 1);
  plot.dot = std::min(plot.mark / 2, std::max(kLeastDot, room));
  plot.dense = room < kLeastDot / 2;
  return plot;
}

/// Frame, grid lines and the ticks' labels.
void DrawAxes(QPainter& painter, const Plot& plot, const QPalette& palette) {
  const QFontMetricsF metrics(painter.font());
  const double gap = metrics.horizontalAdvance(QLatin1Char('0'));
  const double line = metrics.lineSpacing();
  const auto pen_of = [&](double tick) { return Mixed(palette, tick == 0 ? kZeroStrength : kGridStrength); };
  for (const double tick : plot.y.Ticks()) {
    const double height = plot.At(plot.x.low, tick).y();
    painter.setPen(pen_of(tick));
    painter.drawLine(QPointF(plot.frame.left(), height), QPointF(plot.frame.right(), height));
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(QRectF(0, height - line / 2, plot.frame.left() - gap, line),
                     Qt::AlignRight | Qt::AlignVCenter, TickText(tick));
  }
  double free_from = 0;  // a label that would touch the one before is left out
  for (const double tick : plot.x.Ticks()) {
    const double across = plot.At(tick, plot.y.low).x();
    painter.setPen(pen_of(tick));
    painter.drawLine(QPointF(across, plot.frame.top()), QPointF(across, plot.frame.bottom()));
    const double width = metrics.horizontalAdvance(TickText(tick));
    if (across - width / 2 >= free_from) {
      painter.setPen(palette.color(QPalette::Text));
      painter.drawText(QRectF(across - width, plot.frame.bottom() + line / 4, 2 * width, line),
                       Qt::AlignHCenter | Qt::AlignTop, TickText(tick));
      free_from = across + width / 2 + gap;
    }
  }
  painter.setPen(Mixed(palette, kFrameStrength));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(plot.frame);
}

void DrawLine(QPainter& painter, const Plot& plot, const std::vector<CurveView::Point>& points) {
  QPolygonF piece;
  for (std::size_t place = 0; place < points.size(); ++place) {
    if (place > 0 && points[place].row != points[place - 1].row + 1) {
      painter.drawPolyline(piece);
      piece.clear();
    }
    piece << plot.At(points[place]);
  }
  painter.drawPolyline(piece);
}

/// True of a plain point whose dot can't be told from the line through it and a neighbour.
bool GoesUnderInLine(const Plot& plot, const std::vector<CurveView::Point>& points, std::size_t place) {
  const auto joins = [&](std::size_t one, std::size_t other) {
    return other < points.size() && points[other].row == points[one].row + 1;
  };
  const bool in_line = (place > 0 && joins(place - 1, place)) || joins(place, place + 1);
  return plot.dense && in_line && !points[place].bad && !points[place].selected;
}

/// A dot; a bad point is a square with a cross in it, inverted like its cell; the one under edit is ringed.
/// The shapes tell them apart without colours.
void DrawPoint(QPainter& painter, const Plot& plot, const CurveView::Point& point, const QPalette& palette) {
  const QPointF centre = plot.At(point);
  const QColor text = palette.color(QPalette::Text);
  painter.setPen(Qt::NoPen);
  painter.setBrush(text);
  if (point.bad) {
    const QPointF corner(plot.mark, plot.mark);
    painter.drawRect(QRectF(centre - corner, centre + corner));
    const double arm = plot.mark - 1.5;
    painter.setPen(QPen(palette.color(QPalette::Base), 1.5));
    painter.drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    painter.drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
  } else {
    painter.drawEllipse(centre, plot.dot, plot.dot);
  }
  if (point.selected) {
    painter.setPen(QPen(text, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(centre, 1.5 * plot.mark, 1.5 * plot.mark);
  }
}

/// What the table's head says of a column. A head without a unit is one of percent values.
QString AxisTitle(const Grid& grid, int column) {
  const QString head = ToQt(grid.At(0, column).text).simplified();
  return head.contains(QLatin1Char(' ')) ? head : head + QStringLiteral(" %");
}

}  // namespace

CurveView::CurveView(Grid& grid, QWidget* parent) : QWidget(parent), grid_(grid), seen_(grid.Changes()) {
  setObjectName(QString::fromStdString(grid.FullName()) + QStringLiteral(" curve"));
  setAccessibleName(ToQt(CaptionText(TextKey::Curve)));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  grid.Observe([guard = QPointer<CurveView>(this)] {
    if (guard) {
      guard->FollowChange();
    }
  });
}

/// A change of a whole table is many changes of cells, painted once.
void CurveView::FollowChange() {
  const bool drawn = grid_.LastChange().second != 0;  // the points' numbers are not
  if (seen_ != grid_.Changes() && drawn) {
    update();
  }
  seen_ = grid_.Changes();
}

std::vector<CurveView::Point> CurveView::Points() const {
  std::vector<Point> points;
  if (!HasTable()) {
    return points;
  }
  const int last = std::min(grid_.RowsInUse(), grid_.Rows() - 1);
  for (int row = 1; row <= last; ++row) {
    const std::optional<double> x = XOf(row);
    const String& y = grid_.At(row, grid_.Columns() - 1).text;
    if (x && IsNumeric(y)) {
      points.push_back({.row = row,
                        .x = Drawable(*x),
                        .y = Drawable(LeadingNumber(y)),
                        .bad = HasLook(row, Look::Bad),
                        .selected = HasLook(row, Look::Selected)});
    }
  }
  return points;
}

/// Column 1, or what the row stands for; nothing when that is no number.
std::optional<double> CurveView::XOf(int row) const {
  if (!HasXColumn() && grid_.ScaleOfRows()) {
    return grid_.ScaleOfRows()->first + (row - 1) * grid_.ScaleOfRows()->step;
  }
  const String& text = grid_.At(row, HasXColumn() ? 1 : 0).text;
  return IsNumeric(text) ? std::optional(LeadingNumber(text)) : std::nullopt;
}

bool CurveView::HasLook(int row, Look look) const {
  return grid_.At(row, 1).look == look || grid_.At(row, grid_.Columns() - 1).look == look;
}

QString CurveView::TitleOfX() const {
  if (HasXColumn()) {
    return AxisTitle(grid_, 1);
  }
  return grid_.ScaleOfRows() ? QString(kRowsStandFor) : ToQt(grid_.At(0, 0).text).simplified();
}

QSize CurveView::sizeHint() const {
  return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * 60, fontMetrics().lineSpacing() * 20};
}

QSize CurveView::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * 36, fontMetrics().lineSpacing() * 9};
}

/// Counts the rows marked bad, also those that can't be drawn. Told when the picture is painted, not at each
/// cell of a new table.
void CurveView::Describe(const std::vector<Point>& points) {
  int bad = 0;
  for (int row = 1; HasTable() && row < grid_.Rows(); ++row) {
    bad += HasLook(row, Look::Bad) ? 1 : 0;
  }
  setAccessibleDescription(QStringLiteral("%1 点、不適当 %2 点").arg(points.size()).arg(bad));
}

QString CurveView::TipAt(const QPoint& position) const {
  const std::vector<Point> points = Points();
  const Plot plot = PlotOf(points, *this);
  const Point* nearest = nullptr;
  double least = 1.5 * plot.mark;
  for (const Point& point : points) {
    const QPointF away = plot.At(point) - position;
    if (const double distance = std::hypot(away.x(), away.y()); distance < least) {
      least = distance;
      nearest = &point;
    }
  }
  if (nearest == nullptr) {
    return {};
  }
  const auto cell = [this, nearest](int column) { return ToQt(grid_.At(nearest->row, column).text); };
  if (HasXColumn()) {
    return QStringLiteral("%1: X = %2, Y = %3").arg(cell(0), cell(1), cell(2));
  }
  const QString x = grid_.ScaleOfRows()
                        ? TickText(nearest->x) + QLatin1Char(' ') + TitleOfX() + QStringLiteral(", ")
                        : QString();
  return cell(0) + QStringLiteral(": ") + x + cell(1);
}

bool CurveView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), TipAt(help->pos()), this);
    return true;
  }
  return QWidget::event(event);
}

void CurveView::DrawTitles(QPainter& painter, const QRectF& frame) const {
  const double line = QFontMetricsF(font()).lineSpacing();
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(QRectF(frame.left(), 0, frame.width(), frame.top() - line / 4),
                   Qt::AlignLeft | Qt::AlignBottom, AxisTitle(grid_, grid_.Columns() - 1));
  painter.drawText(QRectF(frame.left(), height() - 1.25 * line, frame.width(), line),
                   Qt::AlignRight | Qt::AlignVCenter, TitleOfX());
}

void CurveView::paintEvent(QPaintEvent* /*event*/) {
  const std::vector<Point> points = Points();
  Describe(points);
  const Plot plot = PlotOf(points, *this);
  QPainter painter(this);
  DrawAxes(painter, plot, palette());
  if (HasTable()) {
    DrawTitles(painter, plot.frame);
  }
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Mixed(palette(), kLineStrength), kLineWidth));
  DrawLine(painter, plot, points);
  for (std::size_t place = 0; place < points.size(); ++place) {
    if (!GoesUnderInLine(plot, points, place)) {
      DrawPoint(painter, plot, points[place], palette());
    }
  }
}

}  // namespace korva

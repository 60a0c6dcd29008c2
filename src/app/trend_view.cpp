#include "app/trend_view.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "core/curve.h"
#include "print/axis.h"

namespace korva {

namespace {

using std::chrono::seconds;

constexpr std::array kSpans = {seconds(60), seconds(120), seconds(300), seconds(600)};

constexpr double kRuleStrength = 0.15;
constexpr double kLabelStrength = 0.8;
constexpr double kTrendWidth = 2;
constexpr double kDot = 1.5;  ///< radius of a reading that has no neighbour
constexpr int kTimes = 2;     ///< steps of the axis of time

/// "-1:30"
QString TimeText(seconds before) {
  return QStringLiteral("%1%2:%3")
      .arg(before.count() == 0 ? QString() : QStringLiteral("-"))
      .arg(before.count() / 60)
      .arg(before.count() % 60, 2, 10, QLatin1Char('0'));
}

seconds SpanOf(const std::deque<WatchedValue::Point>& points, Clock end) {
  const Clock length = points.empty() ? Clock(0) : end - points.front().time;
  const auto* const span =
      std::find_if(kSpans.begin(), kSpans.end(), [length](seconds one) { return one >= length; });
  return span == kSpans.end() ? kSpans.back() : *span;
}

}  // namespace

/// Where the picture's parts stand in the widget.
struct TrendView::Scale {
  QRectF frame;
  Axis values;
  Clock end{0};
  seconds span{0};

  [[nodiscard]] double X(Clock time) const {
    const double share = std::chrono::duration<double>(end - time) / std::chrono::duration<double>(span);
    return frame.right() - share * frame.width();
  }
  [[nodiscard]] double Y(double value) const { return frame.bottom() - values.Share(value) * frame.height(); }
};

TrendView::TrendView(QWidget* parent) : QWidget(parent), span_(kSpans.front()) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TrendView::Show(const WatchedValue& value) {
  points_ = value.trend;
  end_ = value.last_read;
  span_ = SpanOf(points_, end_);
  update();
}

TrendView::Scale TrendView::ScaleOf() const {
  Scale scale{.frame = rect(), .values = {}, .end = end_, .span = span_};
  const QFontMetricsF metrics(font());
  double low = 0;
  double high = 0;
  bool first = true;
  for (const WatchedValue::Point& point : points_) {
    if (point.value) {
      const double value = Drawable(*point.value);
      low = first ? value : std::min(low, value);
      high = first ? value : std::max(high, value);
      first = false;
    }
  }
  const double line = metrics.lineSpacing();
  scale.values = RoundAxis(low, high, std::clamp(static_cast<int>(height() / (3 * line)), 1, 4));
  double left = 0;
  for (const double tick : scale.values.Ticks()) {
    left = std::max(left, metrics.horizontalAdvance(TickText(tick)));
  }
  const double gap = metrics.horizontalAdvance(QLatin1Char('0'));
  scale.frame.adjust(left + gap, line / 2, -gap, -1.25 * line);
  return scale;
}

std::vector<QPolygonF> TrendView::Pieces() const {
  const Scale scale = ScaleOf();
  std::vector<QPolygonF> pieces;
  bool open = false;
  for (const WatchedValue::Point& point : points_) {
    if (!point.value) {
      open = false;
      continue;
    }
    if (!open) {
      pieces.emplace_back();
      open = true;
    }
    pieces.back() << QPointF(scale.X(point.time), scale.Y(Drawable(*point.value)));
  }
  return pieces;
}

QSize TrendView::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * 20, fontMetrics().lineSpacing() * 4};
}

void TrendView::DrawValues(QPainter& painter, const Scale& scale) const {
  const double line = QFontMetricsF(font()).lineSpacing();
  const double gap = QFontMetricsF(font()).horizontalAdvance(QLatin1Char('0'));
  for (const double tick : scale.values.Ticks()) {
    const double y = scale.Y(tick);
    painter.setPen(Mixed(palette(), kRuleStrength));
    painter.drawLine(QPointF(scale.frame.left(), y), QPointF(scale.frame.right(), y));
    painter.setPen(Mixed(palette(), kLabelStrength));
    painter.drawText(QRectF(0, y - line / 2, scale.frame.left() - gap / 2, line),
                     Qt::AlignRight | Qt::AlignVCenter, TickText(tick));
  }
}

void TrendView::DrawTimes(QPainter& painter, const Scale& scale) const {
  const double line = QFontMetricsF(font()).lineSpacing();
  constexpr std::array kPlaces = {Qt::AlignRight, Qt::AlignHCenter, Qt::AlignLeft};
  for (int step = 0; step <= kTimes; ++step) {
    const seconds before = span_ * step / kTimes;
    const double x = scale.X(end_ - before);
    painter.setPen(Mixed(palette(), kRuleStrength));
    painter.drawLine(QPointF(x, scale.frame.top()), QPointF(x, scale.frame.bottom()));
    painter.setPen(Mixed(palette(), kLabelStrength));
    const double width = scale.frame.width() / kTimes;
    const double left = x - width * (kTimes - step) / kTimes;  // a label at an end of the axis stays inside
    painter.drawText(QRectF(left, scale.frame.bottom() + line / 8, width, line),
                     static_cast<int>(kPlaces.at(static_cast<std::size_t>(step))) | Qt::AlignTop,
                     TimeText(before));
  }
}

void TrendView::paintEvent(QPaintEvent* /*event*/) {
  const Scale scale = ScaleOf();
  QPainter painter(this);
  const bool any = std::any_of(points_.begin(), points_.end(),
                               [](const WatchedValue::Point& point) { return point.value.has_value(); });
  if (!any) {
    return;
  }
  DrawValues(painter, scale);
  DrawTimes(painter, scale);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor colour = palette().color(QPalette::Text);
  painter.setBrush(colour);
  // One line after the other: the outline of one long path takes a hundred times as long to fill.
  for (const QPolygonF& piece : Pieces()) {
    if (piece.size() == 1) {
      painter.setPen(Qt::NoPen);
      painter.drawEllipse(piece.front(), kDot, kDot);
      continue;
    }
    painter.setPen(QPen(colour, kTrendWidth, Qt::SolidLine, Qt::SquareCap));
    for (qsizetype place = 1; place < piece.size(); ++place) {
      painter.drawLine(piece[place - 1], piece[place]);
    }
  }
}

}  // namespace korva

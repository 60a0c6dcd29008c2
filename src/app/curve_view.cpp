#include "app/curve_view.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>
#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "app/accessible.h"
#include "app/looks.h"
#include "app/text.h"
#include "core/texts.h"
#include "print/curve_picture.h"

namespace korva {

namespace {

constexpr int kLeap = 10;                                ///< points over which page up and down go
constexpr int kStays = std::numeric_limits<int>::max();  ///< ms; the tip goes when the keyboard does

/// The place to which a key leads from `place` (-1: from none) among `count` points; nothing for another key.
std::optional<int> PlaceAfter(int key, int place, int count) {
  switch (key) {
    case Qt::Key_Left:
      return place - 1;
    case Qt::Key_Right:
      return place + 1;
    case Qt::Key_PageUp:
      return place - kLeap;
    case Qt::Key_PageDown:
      return place + kLeap;
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return count - 1;
    default:
      return std::nullopt;
  }
}

}  // namespace

CurveView::CurveView(Grid& grid, QWidget* parent) : QWidget(parent), grid_(grid), seen_(grid.Changes()) {
  setObjectName(QString::fromStdString(grid.FullName()) + QStringLiteral(" curve"));
  TellRole(this, QAccessible::Chart);
  setAccessibleName(ToQt(CaptionText(TextKey::Curve)));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::StrongFocus);
  grid.Observe([guard = QPointer<CurveView>(this)] {
    if (guard) {
      guard->FollowChange();
    }
  });
}

/// A change of a whole table is many changes of cells, painted once.
void CurveView::FollowChange() {
  const bool drawn = grid_.LastChange().second != 0;  // the points' numbers are not
  if (seen_ != grid_.Changes() && drawn && !std::exchange(waits_for_paint_, true)) {
    update();
  }
  seen_ = grid_.Changes();
}

QSize CurveView::sizeHint() const {
  return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * 60, fontMetrics().lineSpacing() * 20};
}

QSize CurveView::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * 36, fontMetrics().lineSpacing() * 9};
}

/// Tells the point that has the keyboard, and counts the rows marked bad, also those that can't be drawn.
/// Told when the picture is painted, not at each cell of a new table.
void CurveView::Describe(const Curve& curve) {
  int bad = 0;
  for (int row = 1; grid_.Columns() > 1 && row < grid_.Rows(); ++row) {
    const bool marked =
        grid_.At(row, 1).look == Look::Bad || grid_.At(row, grid_.Columns() - 1).look == Look::Bad;
    bad += marked ? 1 : 0;
  }
  QStringList parts;
  if (const CurvePoint* point = Current(curve)) {
    parts << TipOf(curve, *point) << (point->bad ? StateWords(Look::Bad) : QString());
    parts.removeAll(QString());
  }
  parts << QStringLiteral("%1 点、不適当 %2 点").arg(curve.points.size()).arg(bad);
  setAccessibleDescription(parts.join(QStringLiteral("; ")));
}

const CurvePoint* CurveView::Current(const Curve& curve) const {
  const auto found = std::find_if(curve.points.begin(), curve.points.end(),
                                  [this](const CurvePoint& point) { return point.row == current_row_; });
  return found == curve.points.end() ? nullptr : &*found;
}

void CurveView::keyPressEvent(QKeyEvent* event) {
  const Curve curve = CurveOf(grid_);
  const CurvePoint* at = Current(curve);
  const auto count = static_cast<int>(curve.points.size());
  const int place = at == nullptr ? -1 : static_cast<int>(at - curve.points.data());
  const std::optional<int> next = PlaceAfter(event->key(), place, count);
  if (!next || count == 0) {
    QWidget::keyPressEvent(event);
    return;
  }
  GoTo(curve, curve.points[static_cast<std::size_t>(std::clamp(*next, 0, count - 1))]);
}

void CurveView::GoTo(const Curve& curve, const CurvePoint& point) {
  current_row_ = point.row;
  update();
  const QPoint place = CurvePicture(curve, size(), font()).At(point).toPoint();
  QToolTip::showText(mapToGlobal(place), TipOf(curve, point), this, {}, kStays);
}

void CurveView::focusOutEvent(QFocusEvent* event) {
  current_row_ = 0;
  QToolTip::hideText();
  QWidget::focusOutEvent(event);
}

void CurveView::DrawFocus(QPainter& painter, const Curve& curve, const CurvePicture& picture) const {
  const QColor base = palette().color(QPalette::Base);
  DrawFocusFrame(painter, rect(), base);
  if (const CurvePoint* point = Current(curve)) {
    QRect frame(0, 0, fontMetrics().height(), fontMetrics().height());
    frame.moveCenter(picture.At(*point).toPoint());
    DrawFocusFrame(painter, frame, base);
  }
}

QString CurveView::TipOf(const Curve& curve, const CurvePoint& point) const {
  const auto cell = [&](int column) { return ToQt(grid_.At(point.row, column).text); };
  if (grid_.Columns() > 2) {
    return QStringLiteral("%1: X = %2, Y = %3").arg(cell(0), cell(1), cell(2));
  }
  const QString x = grid_.ScaleOfRows()
                        ? TickText(point.x) + QLatin1Char(' ') + ToQt(curve.x_title) + QStringLiteral(", ")
                        : QString();
  return cell(0) + QStringLiteral(": ") + x + cell(1);
}

QString CurveView::TipAt(const QPoint& position) const {
  const Curve curve = CurveOf(grid_);
  const CurvePoint* point = CurvePicture(curve, size(), font()).Near(position);
  return point == nullptr ? QString() : TipOf(curve, *point);
}

bool CurveView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), TipAt(help->pos()), this);
    return true;
  }
  return QWidget::event(event);
}

void CurveView::paintEvent(QPaintEvent* /*event*/) {
  waits_for_paint_ = false;
  const Curve curve = CurveOf(grid_);
  Describe(curve);
  QPainter painter(this);
  const CurvePicture picture(curve, size(), font());
  picture.Draw(painter, palette());
  if (hasFocus()) {
    DrawFocus(painter, curve, picture);
  }
}

}  // namespace korva

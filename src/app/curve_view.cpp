#include "app/curve_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>
#include <utility>

#include "app/accessible.h"
#include "app/text.h"
#include "core/texts.h"
#include "print/curve_picture.h"

namespace korva {

CurveView::CurveView(Grid& grid, QWidget* parent) : QWidget(parent), grid_(grid), seen_(grid.Changes()) {
  setObjectName(QString::fromStdString(grid.FullName()) + QStringLiteral(" curve"));
  TellRole(this, QAccessible::Chart);
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

/// Counts the rows marked bad, also those that can't be drawn. Told when the picture is painted, not at each
/// cell of a new table.
void CurveView::Describe(const Curve& curve) {
  int bad = 0;
  for (int row = 1; grid_.Columns() > 1 && row < grid_.Rows(); ++row) {
    const bool marked =
        grid_.At(row, 1).look == Look::Bad || grid_.At(row, grid_.Columns() - 1).look == Look::Bad;
    bad += marked ? 1 : 0;
  }
  setAccessibleDescription(QStringLiteral("%1 点、不適当 %2 点").arg(curve.points.size()).arg(bad));
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
  CurvePicture(curve, size(), font()).Draw(painter, palette());
}

}  // namespace korva

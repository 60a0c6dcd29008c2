#include "app/looks.h"

#include <QApplication>
#include <QEvent>
#include <utility>

#include "print/contrast.h"

namespace korva {

namespace {

/// The colours of a widget that follow from the system's.
class DerivedColours final : public QObject {
 public:
  explicit DerivedColours(QWidget* widget) : QObject(widget), widget_(*widget) {
    setObjectName(QLatin1String(kName));
    widget->installEventFilter(this);
  }
  void Use(std::function<QPalette(const QPalette& system)> colours) {
    colours_ = std::move(colours);
    Show();
  }
  /// Of a change of the system's colours a widget in a window is told by its own alone.
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::PaletteChange && colours_ &&
        !system_.isCopyOf(QApplication::palette(&widget_))) {
      Show();
    }
    return QObject::eventFilter(watched, event);
  }

  static constexpr const char* kName = "colours";

 private:
  void Show() {
    system_ = QApplication::palette(&widget_);
    QPalette system = system_;
    system.setResolveMask(0);  // what is not derived stays the system's
    widget_.setPalette(colours_ ? colours_(system) : QPalette());
  }

  QWidget& widget_;
  QPalette system_;
  std::function<QPalette(const QPalette& system)> colours_;
};

}  // namespace

void ShowColours(QWidget* widget, std::function<QPalette(const QPalette& system)> colours) {
  auto* derived =
      widget->findChild<QObject*>(QLatin1String(DerivedColours::kName), Qt::FindDirectChildrenOnly);
  if (derived == nullptr && colours) {
    derived = new DerivedColours(widget);
  }
  if (derived != nullptr) {
    static_cast<DerivedColours*>(derived)->Use(std::move(colours));
  }
}

QPalette PaletteOf(Look look, const QPalette& system) {
  QPalette palette = system;
  const auto pair = [&](const QBrush& back, const QBrush& text) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
      palette.setBrush(group, QPalette::Base, back);
      palette.setBrush(group, QPalette::Window, back);
      palette.setBrush(group, QPalette::Button, back);
      palette.setBrush(group, QPalette::Text, text);
      palette.setBrush(group, QPalette::WindowText, text);
      palette.setBrush(group, QPalette::ButtonText, text);
      palette.setBrush(group, QPalette::PlaceholderText, text);
    }
  };
  switch (look) {
    case Look::Normal:
      break;
    case Look::Grey:
      pair(system.window(), system.windowText());
      // Disabled, it looks like anything that is.
      for (const auto role :
           {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::PlaceholderText}) {
        palette.setBrush(QPalette::Disabled, role, system.brush(QPalette::Disabled, role));
      }
      break;
    case Look::Bad:
    case Look::Selected:
      pair(system.brush(QPalette::Active, look == Look::Bad ? QPalette::Text : QPalette::Highlight),
           system.brush(QPalette::Active, look == Look::Bad ? QPalette::Base : QPalette::HighlightedText));
      break;
    case Look::Highlight:
      pair(system.brush(QPalette::Active, QPalette::ToolTipBase),
           system.brush(QPalette::Active, QPalette::ToolTipText));
      break;
  }
  return palette;
}

QPalette Dimmed(const QPalette& palette) {
  QPalette dimmed = palette;
  dimmed.setColor(QPalette::Text,
                  Distinct(palette.color(QPalette::Disabled, QPalette::Text),
                           {{.colour = palette.color(QPalette::Base), .least = kTextContrast}}));
  return dimmed;
}

void DrawFocusFrame(QPainter& painter, const QRect& area, const QColor& back) {
  const QRect inside = area.adjusted(kFocusFrame, kFocusFrame, -kFocusFrame, -kFocusFrame);
  const QColor colour = MarkColour(back);
  for (const QRect& side : QRegion(area).subtracted(inside)) {
    painter.fillRect(side, colour);
  }
}

void DrawMark(QPainter& painter, const QRect& area, const QColor& colour) {
  constexpr int kHalfWave = 2;
  QPolygon wave;
  for (int x = area.left(), crest = 0; x <= area.right(); x += kHalfWave, crest = 1 - crest) {
    wave << QPoint(x, area.bottom() - kHalfWave * crest + 1);
  }
  painter.setPen(colour);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawPolyline(wave);
}

void DrawWarningSign(QPainter& painter, const QRect& area, const QColor& colour) {
  const QRectF sign = QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5);
  const qreal middle = sign.center().x();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(QPolygonF({{middle, sign.top()}, sign.bottomRight(), sign.bottomLeft()}));
  const qreal height = sign.height();
  painter.drawLine(QPointF(middle, sign.top() + 0.4 * height), QPointF(middle, sign.top() + 0.66 * height));
  painter.drawPoint(QPointF(middle, sign.top() + 0.83 * height));
}

QPalette PaletteAtRest(const QPalette& system) {
  QPalette palette = system;
  palette.setBrush(QPalette::Base, system.window());
  for (const auto role : {QPalette::Text, QPalette::WindowText}) {
    // As the numbers beside fields, which are read on a box too.
    palette.setBrush(role, system.brush(QPalette::Disabled, QPalette::PlaceholderText));
  }
  return palette;
}

QPalette PaletteAtWork(const QPalette& system) {
  // The text stands half on the part that is done and half on the rest, in one colour.
  const QColor text = system.color(QPalette::Active, QPalette::Text);
  const QColor rest = system.color(QPalette::Active, QPalette::Base);
  QPalette palette = system;
  palette.setColor(QPalette::Base, rest);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::HighlightedText, text);
  palette.setColor(QPalette::Highlight, Distinct(system.color(QPalette::Active, QPalette::Highlight),
                                                 {{.colour = text, .least = kTextContrast},
                                                  {.colour = rest, .least = kMarkContrast}}));
  return palette;
}

int Digits(const QWidget* widget, int count) {
  return widget->fontMetrics().horizontalAdvance(QLatin1Char('0')) * count;
}

}  // namespace korva

#include "app/app_style.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/looks.h"
#include "print/contrast.h"

namespace korva {

namespace {

constexpr int kButtonRoom = 16;     ///< pixels that a button has beside its text, on both sides together
constexpr double kFieldCorner = 2;  ///< radius of Fusion's round corners, in pixels

void DrawFrame(QPainter& painter, const QStyleOption& option, const QColor& back) {
  DrawFocusFrame(painter, option.rect, back);
}

/// The brightest of what Fusion draws along the edge of a button, that of a default one too.
QColor BrightEdgeOf(const QStyleOption& button) {
  constexpr int shade = 190;
  return button.palette.color(QPalette::Button).lighter(shade);
}

bool HasFocus(const QStyleOption& option) { return option.state.testFlag(QStyle::State_HasFocus); }

/// The option without what Fusion draws of the focus itself, which it leaves out behind a press of the mouse.
template <typename Option>
Option Unfocused(const Option& option) {
  Option plain = option;
  plain.state &= ~QStyle::State_HasFocus;
  return plain;
}

/// A field of many lines or a table, which draws its frame itself.
bool IsWide(const QWidget* widget) {
  return qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(widget) != nullptr;
}

/// The line around what takes an input. Fusion's own, a darker shade of the window, is lost on a dark one.
QColor EdgeColour() {
  constexpr int fusions_shade = 140;
  const QColor window = QGuiApplication::palette().color(QPalette::Active, QPalette::Window);
  static std::pair<QColor, QColor> edge_of;  // of each field the same, until the system's colours change
  if (edge_of.first != window) {
    edge_of = {window, Distinct(window.darker(fusions_shade), {{.colour = window, .least = kMarkContrast}})};
  }
  return edge_of.second;
}

void DrawFieldEdge(QPainter& painter, const QRect& rect) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(EdgeColour());
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), kFieldCorner, kFieldCorner);
  painter.restore();
}

/// On the circle that Fusion draws.
void DrawRadioEdge(QPainter& painter, const QRect& rect) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr double strength = 1.4;  // an edge is spread over the pixels that it touches
  painter.setPen(QPen(EdgeColour(), strength));
  painter.setBrush(Qt::NoBrush);
  const int diameter = rect.width() + (rect.width() + 1) % 2;
  painter.drawEllipse(QPointF(rect.center() + QPoint(1, 1)), diameter / 2.0 - 1, diameter / 2.0 - 1);
  painter.restore();
}

/// The part that is done, plain: on Fusion's shades and edges a text can't be read everywhere.
void DrawDone(QPainter& painter, const QStyleOptionProgressBar& bar) {
  const double share =
      static_cast<double>(bar.progress - bar.minimum) / std::max(1, bar.maximum - bar.minimum);
  QRect done = bar.rect.adjusted(1, 1, -1, -1);
  done.setWidth(static_cast<int>(std::lround(done.width() * share)));
  painter.fillRect(done, bar.palette.color(QPalette::Highlight));
}

bool AtRest(const QStyleOptionProgressBar& bar) { return bar.progress <= bar.minimum; }

/// A bar at rest: a line below its caption. In a full frame it would look like a button that is disabled.
void DrawTrough(QPainter& painter, const QStyleOptionProgressBar& bar) {
  constexpr int height = 4;
  constexpr double strength = 0.3;
  QRect trough = bar.rect;
  trough.setTop(trough.bottom() - height + 1);
  painter.fillRect(
      trough, Mix(bar.palette.color(QPalette::Window), bar.palette.color(QPalette::WindowText), strength));
}

QColor BackOf(const QStyleOptionViewItem& cell) {
  if (cell.state.testFlag(QStyle::State_Selected)) {
    return cell.palette.color(QPalette::Highlight);
  }
  return cell.backgroundBrush.style() == Qt::NoBrush ? cell.palette.color(QPalette::Base)
                                                     : cell.backgroundBrush.color();
}

}  // namespace

void AppStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  palette = Readable(palette);
}

void AppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  if (element == PE_FrameFocusRect) {
    const bool button = qobject_cast<const QToolButton*>(widget) != nullptr;
    DrawFrame(*painter, *option, button ? BrightEdgeOf(*option) : option->palette.color(QPalette::Window));
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool field = element == PE_PanelLineEdit || (element == PE_Frame && IsWide(widget));
  const bool enabled = option->state.testFlag(State_Enabled);
  if (field && enabled) {
    DrawFieldEdge(*painter, option->rect);
  }
  if (element == PE_IndicatorRadioButton && enabled) {
    DrawRadioEdge(*painter, option->rect);
  }
  if (field && HasFocus(*option)) {
    DrawFrame(*painter, *option, option->palette.color(QPalette::Base));
  }
}

void AppStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
  if (bar != nullptr && element == CE_ProgressBarContents) {
    DrawDone(*painter, *bar);
    return;
  }
  if (bar != nullptr && element == CE_ProgressBarGroove && AtRest(*bar)) {
    DrawTrough(*painter, *bar);
    return;
  }
  const auto draw_framed = [&](const auto* kind, const QColor& back) {
    const auto plain = Unfocused(*kind);
    QProxyStyle::drawControl(element, &plain, painter, widget);
    DrawFrame(*painter, *option, back);
  };
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  const auto* cell = qstyleoption_cast<const QStyleOptionViewItem*>(option);
  const auto* tab = qstyleoption_cast<const QStyleOptionTab*>(option);
  if (HasFocus(*option) && element == CE_PushButton && button != nullptr) {
    draw_framed(button, BrightEdgeOf(*option));
    return;
  }
  if (HasFocus(*option) && element == CE_ItemViewItem && cell != nullptr) {
    draw_framed(cell, BackOf(*cell));
    return;
  }
  if (HasFocus(*option) && element == CE_TabBarTab && tab != nullptr) {
    draw_framed(tab, option->palette.color(QPalette::Window));
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                  QPainter* painter, const QWidget* widget) const {
  const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (control != CC_ComboBox || combo == nullptr || !HasFocus(*combo)) {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    return;
  }
  const QStyleOptionComboBox plain = Unfocused(*combo);
  QProxyStyle::drawComplexControl(control, &plain, painter, widget);
  DrawFrame(*painter, *option, BrightEdgeOf(*option));
}

QSize AppStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                 const QWidget* widget) const {
  const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  return type == CT_PushButton ? size.expandedTo(QSize(contents.width() + kButtonRoom, 0)) : size;
}

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  return metric == PM_DefaultFrameWidth && IsWide(widget) ? kFocusFrame
                                                          : QProxyStyle::pixelMetric(metric, option, widget);
}

int AppStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* more) const {
  if (hint != SH_Table_GridLineColor || option == nullptr) {
    return QProxyStyle::styleHint(hint, option, widget, more);
  }
  constexpr double strength = 0.2;
  const QColor line =
      Mix(option->palette.color(QPalette::Base), option->palette.color(QPalette::Text), strength);
  return static_cast<int>(line.rgba());
}

}  // namespace korva

#include "app/app_style.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "print/contrast.h"

namespace korva {

namespace {

constexpr int kFrame = 2;  ///< strength of the keyboard's frame, in pixels

void DrawFrame(QPainter& painter, const QRect& rect, const QColor& colour) {
  painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), kFrame), colour);
  painter.fillRect(QRect(rect.left(), rect.bottom() - kFrame + 1, rect.width(), kFrame), colour);
  painter.fillRect(QRect(rect.left(), rect.top(), kFrame, rect.height()), colour);
  painter.fillRect(QRect(rect.right() - kFrame + 1, rect.top(), kFrame, rect.height()), colour);
}

void DrawFrame(QPainter& painter, const QStyleOption& option, const QColor& back) {
  DrawFrame(painter, option.rect, MarkColour(back));
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

/// The part that is done, plain: on Fusion's shades and edges a text can't be read everywhere.
void DrawDone(QPainter& painter, const QStyleOptionProgressBar& bar) {
  const double share =
      static_cast<double>(bar.progress - bar.minimum) / std::max(1, bar.maximum - bar.minimum);
  QRect done = bar.rect.adjusted(1, 1, -1, -1);
  done.setWidth(static_cast<int>(std::lround(done.width() * share)));
  painter.fillRect(done, bar.palette.color(QPalette::Highlight));
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
    DrawFrame(*painter, *option, option->palette.color(QPalette::Window));
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (HasFocus(*option) && (element == PE_PanelLineEdit || (element == PE_Frame && IsWide(widget)))) {
    DrawFrame(*painter, *option, option->palette.color(QPalette::Base));
  }
}

void AppStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
  if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
      element == CE_ProgressBarContents && bar != nullptr) {
    DrawDone(*painter, *bar);
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
    draw_framed(button, option->palette.color(QPalette::Button));
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
  DrawFrame(*painter, *option, option->palette.color(QPalette::Button));
}

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  return metric == PM_DefaultFrameWidth && IsWide(widget) ? kFrame
                                                          : QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace korva

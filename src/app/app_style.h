#pragma once

#include <QProxyStyle>

namespace korva {

/// Fusion with colours that can be read (`Readable`), edges of fields that are seen on a dark window too, and
/// a frame around what has the keyboard, of whatever kind it is and however the keyboard came there.
class AppStyle final : public QProxyStyle {
 public:
  AppStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

  using QProxyStyle::polish;
  /// Is asked once for each change of the system's colours.
  void polish(QPalette& palette) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  /// A button's text doesn't touch its edges.
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  /// A field of many lines and a table have room for the keyboard's frame.
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  /// The lines of a table are between its colours, on a dark system too.
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
};

}  // namespace korva

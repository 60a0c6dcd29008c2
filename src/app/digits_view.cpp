#include "app/digits_view.h"

#include <QPainter>
#include <algorithm>

#include "print/axis.h"

namespace korva {

namespace {

constexpr int kLeastTimes = 3;        ///< of the usual font
constexpr int kLeastDigits = 6;       ///< for which there is room, so that a value may grow
constexpr double kUnitShare = 0.45;   ///< of the digits' size
constexpr double kOldStrength = 0.6;  ///< of the text colour over the background
constexpr int kUnitDigits = 4;        ///< as wide as a unit and the gap before it
constexpr int kTrialSize = 100;       ///< pixels

/// What stands where nothing was told yet.
constexpr QLatin1String kNothing("---");

QFont Sized(QFont font, double pixels) {
  font.setPixelSize(std::max(1, static_cast<int>(pixels)));
  return font;
}

}  // namespace

DigitsView::DigitsView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DigitsView::Show(const QString& text, const QString& unit, bool old) {
  if (text_ != text || unit_ != unit || old_ != old) {
    text_ = text;
    unit_ = unit;
    old_ = old;
    update();
  }
}

QString DigitsView::Shown() const { return text_.isEmpty() ? QString(kNothing) : text_; }

QFont DigitsView::FontOf(int pixels) const { return Sized(font(), pixels); }

int DigitsView::PixelSize() const {
  const QFontMetricsF digits(FontOf(kTrialSize));
  const QFontMetricsF units(Sized(font(), kTrialSize * kUnitShare));
  const QString zeros(std::max<qsizetype>(kLeastDigits, Shown().size()), QLatin1Char('0'));
  const double gap = unit_.isEmpty() ? 0 : digits.horizontalAdvance(QLatin1Char(' '));
  const double wide = std::max(digits.horizontalAdvance(zeros), digits.horizontalAdvance(Shown())) + gap +
                      units.horizontalAdvance(unit_);
  return static_cast<int>(kTrialSize * std::min(width() / wide, height() / digits.height()));
}

QColor DigitsView::Colour() const {
  return old_ ? Mixed(palette(), kOldStrength) : palette().color(QPalette::Text);
}

QSize DigitsView::minimumSizeHint() const {
  const QFontMetrics metrics(Sized(font(), kLeastTimes * QFontInfo(font()).pixelSize() + 1));
  return {metrics.horizontalAdvance(QLatin1Char('0')) * (kLeastDigits + kUnitDigits), metrics.height()};
}

QSize DigitsView::sizeHint() const { return minimumSizeHint() * 3 / 2; }

void DigitsView::paintEvent(QPaintEvent* /*event*/) {
  const int pixels = PixelSize();
  const QFont digits = FontOf(pixels);
  const QFont units = Sized(font(), pixels * kUnitShare);
  const QFontMetricsF metrics(digits);
  const double unit_width = QFontMetricsF(units).horizontalAdvance(unit_);
  const double baseline = (height() + metrics.ascent() - metrics.descent()) / 2;
  const double gap = unit_.isEmpty() ? 0 : metrics.horizontalAdvance(QLatin1Char(' '));
  QPainter painter(this);
  painter.setPen(Colour());
  painter.setFont(digits);
  painter.drawText(QPointF(width() - unit_width - gap - metrics.horizontalAdvance(Shown()), baseline),
                   Shown());
  painter.setFont(units);
  painter.drawText(QPointF(width() - unit_width, baseline), unit_);
}

}  // namespace korva

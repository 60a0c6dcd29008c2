#include "app/picture_view.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QtEndian>
#include <algorithm>
#include <cmath>

#include "app/accessible.h"
#include "app/text.h"

namespace korva {

namespace {

constexpr double kDotsPerMetre = 96 / 0.0254;  ///< of a screen at 100 %
constexpr QSize kEmptySheet(440, 500);         ///< that of the program's own pictures
constexpr int kBorder = 1;

/// A colour of a drawing on white paper, turned for a sheet of `paper` with lines of `ink`: grey goes from
/// the one to the other, any other colour keeps its hue.
QRgb Turned(const QColor& colour, const QColor& paper, const QColor& ink) {
  const float lightness = colour.lightnessF();
  if (colour.hslSaturationF() > 0) {
    const float mirrored = ink.lightnessF() + (paper.lightnessF() - ink.lightnessF()) * lightness;
    return QColor::fromHslF(colour.hslHueF(), colour.hslSaturationF(), mirrored).rgb();
  }
  const auto mix = [lightness](float from, float to) { return from + (to - from) * lightness; };
  return QColor::fromRgbF(mix(ink.redF(), paper.redF()), mix(ink.greenF(), paper.greenF()),
                          mix(ink.blueF(), paper.blueF()))
      .rgb();
}

/// The image that a file holds; null when it holds none, or lacks its end: half a picture would mislead.
QImage ImageIn(const std::string& bytes) {
  constexpr qsizetype length_at = 2;  // in the file's head, low byte first
  const QByteArray file = QByteArray::fromStdString(bytes);
  const bool has_length = file.size() >= length_at + static_cast<qsizetype>(sizeof(quint32));
  if (!has_length || qFromLittleEndian<quint32>(file.constData() + length_at) > file.size()) {
    return {};
  }
  return QImage::fromData(file, "BMP");
}

}  // namespace

PictureView::PictureView(const Picture& picture, QWidget* parent) : QWidget(parent), picture_(picture) {
  TellRole(this, QAccessible::Graphic);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureView::Show() {
  image_ = ImageIn(picture_.Bytes());
  scaled_ = QPixmap();
  setAccessibleDescription(ToQt(picture_.FileName()));
  updateGeometry();
  update();
}

QImage PictureView::Shown() const {
  QImage image = image_;
  const QColor paper = palette().color(QPalette::Base);
  const QColor ink = palette().color(QPalette::Text);
  if (ink.lightnessF() > paper.lightnessF()) {
    QList<QRgb> colours = image.colorTable();
    std::transform(colours.begin(), colours.end(), colours.begin(),
                   [&](QRgb colour) { return Turned(QColor(colour), paper, ink); });
    image.setColorTable(colours);
  }
  return image;
}

QSize PictureView::SizeOfImage() const {
  const auto length = [](int dots, int dots_per_metre) {
    return static_cast<int>(std::lround(dots * std::min(1.0, kDotsPerMetre / dots_per_metre)));
  };
  return image_.isNull() ? kEmptySheet
                         : QSize(length(image_.width(), image_.dotsPerMeterX()),
                                 length(image_.height(), image_.dotsPerMeterY()));
}

QSize PictureView::sizeHint() const { return SizeOfImage() + QSize(2 * kBorder, 2 * kBorder); }

const QPixmap& PictureView::Scaled() {
  if (scaled_.isNull() || scaled_.devicePixelRatio() != devicePixelRatioF()) {
    const QSize size = SizeOfImage() * devicePixelRatioF();
    scaled_ = QPixmap::fromImage(Shown().scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    scaled_.setDevicePixelRatio(devicePixelRatioF());
  }
  return scaled_;
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (image_.isNull()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter, ToQt(picture_.FileName()));
  } else {
    painter.drawPixmap(QPoint(kBorder, kBorder), Scaled());
  }
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -kBorder, -kBorder));
}

void PictureView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    scaled_ = QPixmap();
  }
  QWidget::changeEvent(event);
}

}  // namespace korva

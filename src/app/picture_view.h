#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include "core/control.h"

namespace korva {

/// A picture on the screen, as large as its file says: a file of 192 dots per inch stays sharp on a screen of
/// double scale. Without an image there is an empty sheet with the file's name on it.
///
/// A drawing (an image with a table of colours) is shown in the colours of the window: on a dark one its
/// paper is dark and its lines are light, and red stays red. Any other image is shown as it is.
class PictureView final : public QWidget {
 public:
  /// `picture` outlives the view.
  PictureView(const Picture& picture, QWidget* parent);
  /// Brings the view to what the control holds; called after each change of it.
  void Show();
  /// What is drawn, in the window's colours; null when it is only a name.
  [[nodiscard]] QImage Shown() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] QSize SizeOfImage() const;
  /// The image at the screen's own resolution.
  [[nodiscard]] const QPixmap& Scaled();

  const Picture& picture_;
  QImage image_;    ///< as the file has it; null when it has none
  QPixmap scaled_;  ///< null until it is painted
};

}  // namespace korva

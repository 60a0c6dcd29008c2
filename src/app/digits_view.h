#pragma once

#include <QString>
#include <QWidget>

namespace korva {

/// A value in the largest digits that its place has room for, with its unit smaller behind it. The size
/// follows from the place and from how long the text is, and not from which digits it has, so that they stand
/// still while the value moves.
class DigitsView final : public QWidget {
 public:
  explicit DigitsView(QWidget* parent);
  /// `old`: the value is not the present one, and is dimmed.
  void Show(const QString& text, const QString& unit, bool old);
  /// Of the digits, in pixels.
  [[nodiscard]] int PixelSize() const;
  /// The colour in which the value stands.
  [[nodiscard]] QColor Colour() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QFont FontOf(int pixels) const;
  [[nodiscard]] QString Shown() const;

  QString text_;
  QString unit_;
  bool old_ = false;
};

}  // namespace korva

#pragma once

#include <QPointer>
#include <QWidget>

namespace korva {

/// Gives the keyboard's focus back to the widget that lost it by being disabled, as soon as it is enabled
/// again: an operation on the device disables nearly all of the page, and the focus wanders off. Where it
/// would be lost, since all of a box is disabled at once, it goes on to the next stop of the keyboard.
///
/// What takes the focus on purpose meanwhile, by the program or the mouse, keeps it.
class FocusKeeper : public QObject {
 public:
  /// Keeps the focus of the widgets that stand on `page` now. Belongs to it.
  explicit FocusKeeper(QWidget& page);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FocusLeft(QWidget& widget);
  /// Takes the focus that nothing has to the next stop behind the widget that lost it.
  void GoOn();
  void FocusCame(Qt::FocusReason reason);
  void Enabled(const QWidget& widget);

  QPointer<QWidget> lost_;  ///< had the focus when it was disabled
  bool wandering_ = false;  ///< the focus is on its way from a disabled widget to the next one
};

}  // namespace korva

#pragma once

#include <QBasicTimer>
#include <QScrollArea>

namespace korva {

/// The area of a tab, which scrolls where its contents are larger than the window. What has the keyboard in
/// it hands it the keys that scroll; where nothing there can have it, as beside a picture, the area has it
/// itself while there is something to scroll.
class TabArea final : public QScrollArea {
 public:
  explicit TabArea(QWidget* parent);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  /// Takes or leaves its place among the stops of the keyboard.
  void Settle();
  [[nodiscard]] bool CanScroll() const;
  [[nodiscard]] bool HoldsStop() const;

  QBasicTimer due_;  ///< runs from a change until all is laid out
};

}  // namespace korva

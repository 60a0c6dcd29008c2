#pragma once

#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <utility>
#include <vector>

namespace korva {

/// Lets keys press the buttons of a line while the keyboard is anywhere in it: a value that runs is stepped
/// without leaving it. A key whose button is disabled does what it does elsewhere.
class StepKeys final : public QObject {
 public:
  /// Belongs to `line`, whose widgets it watches.
  explicit StepKeys(QWidget& line) : QObject(&line) {}

  /// Watches a widget of the line.
  void Watch(QWidget& widget) { widget.installEventFilter(this); }
  /// Lets `keys` ("PgUp") press the button, and tells them in its tooltip.
  void Assign(QPushButton& button, const QKeySequence& keys);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::vector<std::pair<QKeySequence, QPointer<QPushButton>>> buttons_;
};

}  // namespace korva

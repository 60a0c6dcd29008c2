#include "app/step_keys.h"

#include <QKeyEvent>
#include <algorithm>

namespace korva {

void StepKeys::Assign(QPushButton& button, const QKeySequence& keys) {
  button.setToolTip(keys.toString(QKeySequence::NativeText));
  buttons_.emplace_back(keys, &button);
}

bool StepKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) {
    return QObject::eventFilter(watched, event);
  }
  const auto* const press = static_cast<QKeyEvent*>(event);
  const QKeySequence keys(press->keyCombination().key() | (press->modifiers() & ~Qt::KeypadModifier));
  const auto found = std::find_if(buttons_.begin(), buttons_.end(), [&](const auto& assigned) {
    return assigned.first == keys && assigned.second != nullptr && assigned.second->isEnabled();
  });
  if (found == buttons_.end()) {
    return QObject::eventFilter(watched, event);
  }
  if (!press->isAutoRepeat()) {
    found->second->click();
  }
  return true;
}

}  // namespace korva

#include "app/one_undo.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace korva {

bool LeavesToPage(QEvent& event) {
  if (event.type() != QEvent::ShortcutOverride && event.type() != QEvent::KeyPress) {
    return false;
  }
  const auto& press = static_cast<QKeyEvent&>(event);
  const std::array keys = {QKeyCombination(Qt::CTRL, Qt::Key_Z), QKeyCombination(Qt::CTRL, Qt::Key_Y),
                           QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_Z)};
  const bool is_undo = std::find(keys.begin(), keys.end(), press.keyCombination()) != keys.end() ||
                       press.matches(QKeySequence::Undo) || press.matches(QKeySequence::Redo);
  if (is_undo) {
    event.ignore();
  }
  return is_undo;
}

void TakeUndoOut(QMenu& menu) {
  constexpr qsizetype kUndoRedoAndLine = 3;
  const QList<QAction*> actions = menu.actions();
  for (QAction* action : actions.first(std::min(kUndoRedoAndLine, actions.size()))) {
    menu.removeAction(action);
  }
}

}  // namespace korva

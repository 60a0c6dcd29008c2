#include "app/field_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "app/looks.h"
#include "app/one_undo.h"

namespace korva {

void FieldView::Amend(const QString& text) {
  const QSignalBlocker blocker(this);
  const int cursor = cursorPosition();
  setText(text);
  setCursorPosition(cursor);
}

void FieldView::ShowMark(bool marked) {
  if (marked_ != marked) {
    marked_ = marked;
    update();
  }
}

bool FieldView::event(QEvent* event) { return !LeavesToPage(*event) && QLineEdit::event(event); }

void FieldView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu();
  if (!isReadOnly()) {
    TakeUndoOut(*menu);
  }
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(event->globalPos());
}

void FieldView::keyPressEvent(QKeyEvent* event) {
  const bool pastes = event->matches(QKeySequence::Paste);
  if (pastes && !isReadOnly() && OnPaste && OnPaste(QGuiApplication::clipboard()->text())) {
    return;
  }
  const QScopedValueRollback typing(typing_, !pastes);
  QLineEdit::keyPressEvent(event);
}

void FieldView::inputMethodEvent(QInputMethodEvent* event) {
  const QScopedValueRollback typing(typing_, true);
  QLineEdit::inputMethodEvent(event);
}

void FieldView::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  if (marked_) {
    QPainter painter(this);
    DrawMark(painter, rect().adjusted(4, 0, -4, -2), palette().color(QPalette::Text));
  }
}

}  // namespace korva

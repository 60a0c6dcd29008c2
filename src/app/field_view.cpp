#include "app/field_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "app/looks.h"

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

void FieldView::keyPressEvent(QKeyEvent* event) {
  const QScopedValueRollback typing(typing_, !event->matches(QKeySequence::Paste));
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

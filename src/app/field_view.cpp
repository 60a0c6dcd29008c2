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

namespace {

// Pixels from the left edge, beside the bar of a difference.
constexpr int kSignStart = 7;
constexpr int kSignSize = 13;
constexpr int kSignEnd = kSignStart + kSignSize;

}  // namespace

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

void FieldView::ShowOutside(bool outside) {
  if (outside_ != outside) {
    outside_ = outside;
    setTextMargins(outside ? kSignEnd : 0, 0, 0, 0);
    update();
  }
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
  if (outside_) {
    QPainter painter(this);
    const QRect place(kSignStart, (height() - kSignSize) / 2, kSignSize, kSignSize);
    DrawWarningSign(painter, place, palette().color(QPalette::Text));
  }
  if (marked_) {
    QPainter painter(this);
    DrawMark(painter, rect().adjusted(4, 0, -4, -2), palette().color(QPalette::Text));
  }
}

}  // namespace korva

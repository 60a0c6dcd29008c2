#include "app/memo_view.h"

#include <QContextMenuEvent>
#include <QMimeData>
#include <algorithm>
#include <memory>

#include "app/one_undo.h"

namespace korva {

namespace {

constexpr qsizetype kPiece = 4000;  // characters; a person's lines are shorter
/// Marks the end of a piece: takes no room on the screen, and no file or device can hold it.
constexpr QChar kPieceEnd(0x200B);
constexpr QLatin1Char kLineEnd('\n');

/// The length of the piece at `begin` in a line that ends at `end`; it parts no pair of surrogates.
qsizetype PieceLength(const QString& text, qsizetype begin, qsizetype end) {
  const qsizetype length = std::min(kPiece, end - begin);
  const bool parts = begin + length < end && text[begin + length].isLowSurrogate();
  return parts ? length - 1 : length;
}

}  // namespace

QString MemoView::InPieces(const QString& text) {
  QString shown;
  for (qsizetype begin = 0; begin <= text.size();) {
    const qsizetype found = text.indexOf(kLineEnd, begin);
    const qsizetype end = found < 0 ? text.size() : found;
    while (end - begin > kPiece) {
      const qsizetype length = PieceLength(text, begin, end);
      shown.append(QStringView(text).mid(begin, length)).append(kPieceEnd).append(kLineEnd);
      begin += length;
    }
    shown.append(QStringView(text).mid(begin, std::min(end + 1, text.size()) - begin));
    begin = end + 1;
  }
  return shown;
}

QString MemoView::Whole(QString text) {
  text.remove(QString(kPieceEnd) + kLineEnd);
  return text.remove(kPieceEnd);
}

void MemoView::Amend(const QString& text) {
  const QString former = toPlainText();
  ShowText(text);
  const QString shown = toPlainText();
  const auto same = std::mismatch(shown.rbegin(), shown.rend(), former.rbegin(), former.rend());
  QTextCursor cursor = textCursor();
  cursor.setPosition(static_cast<int>(shown.rend() - same.first));
  setTextCursor(cursor);
}

void MemoView::Lock(bool locked) {
  setReadOnly(locked);
  setTextInteractionFlags(textInteractionFlags() | Qt::TextSelectableByKeyboard);
}

bool MemoView::event(QEvent* event) { return !LeavesToPage(*event) && QPlainTextEdit::event(event); }

void MemoView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu* menu = createStandardContextMenu(event->pos());
  if (!isReadOnly()) {
    TakeUndoOut(*menu);
  }
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(event->globalPos());
}

void MemoView::insertFromMimeData(const QMimeData* source) {
  textCursor().insertText(InPieces(source->text()));
  ensureCursorVisible();
}

QMimeData* MemoView::createMimeDataFromSelection() const {
  auto whole = std::make_unique<QMimeData>();
  const std::unique_ptr<const QMimeData> in_pieces(QPlainTextEdit::createMimeDataFromSelection());
  whole->setText(Whole(in_pieces->text()));
  return whole.release();
}

}  // namespace korva

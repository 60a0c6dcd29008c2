#include "app/memo_view.h"

#include <QMimeData>
#include <algorithm>
#include <memory>

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

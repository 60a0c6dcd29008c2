#pragma once

#include <QPlainTextEdit>

namespace korva {

/// A text of many lines. The time to lay a line out grows with the square of its length, so one that is
/// longer than a person writes is held in pieces. The breaks between them look like a wrapped line's and are
/// no part of the text, whatever the user does to them.
class MemoView : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

  // The whole text, with "\n" for each line break.
  void ShowText(const QString& text) { setPlainText(InPieces(text)); }
  /// Shows another text in the place of one that the user is at: the cursor goes behind what differs.
  void Amend(const QString& text);
  [[nodiscard]] QString ShownText() const { return Whole(toPlainText()); }
  /// A locked text can be read, selected and copied, by keyboard too.
  void Lock(bool locked);

 protected:
  bool event(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;

 private:
  static QString InPieces(const QString& text);
  static QString Whole(QString text);
};

}  // namespace korva

#pragma once

#include <QLineEdit>
#include <functional>

namespace korva {

/// A text field of one line on the screen. It tells what was typed from what came in at once (from the
/// clipboard, by a drop), and draws the mark of a text that the user should look at.
class FieldView final : public QLineEdit {
 public:
  explicit FieldView(QWidget* parent) : QLineEdit(parent) {}
  /// Is asked for a pasted text first; true when it went elsewhere.
  std::function<bool(const QString& text)> OnPaste;

  /// True while a key or an input method changes the text.
  [[nodiscard]] bool Typing() const { return typing_; }
  /// Replaces the text where an edit has left it, raising nothing; the cursor stays.
  void Amend(const QString& text);
  void ShowMark(bool marked);
  /// Draws the sign of a number outside its limits, at the end that a number leaves free.
  void ShowOutside(bool outside);

 protected:
  bool event(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool typing_ = false;
  bool marked_ = false;
  bool outside_ = false;
};

}  // namespace korva

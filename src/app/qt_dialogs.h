#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/dialogs.h"
#include "platform/event_gate.h"

class QFileDialog;
class QMessageBox;
class QPushButton;

namespace korva {

/// Message boxes and file dialogs on the screen.
class QtDialogs : public Dialogs {
 public:
  /// `gate` is asked after each box whether the program ended while it was shown.
  explicit QtDialogs(const EventGate& gate) : gate_(gate) {}
  /// The window that boxes stand over.
  void SetParent(QWidget* parent) { parent_ = parent; }

  /// Carries out `action` with `path` for the answer to the first file that it asks to open: a file that was
  /// dropped on the window is opened as if it had been chosen.
  void WithFile(const String& path, const std::function<void()>& action);

  Answer ShowBox(const Box& box) override;
  std::optional<String> ChooseFile(const FileDialog& dialog) override;
  void ShowFailure(const String& text) override;

 private:
  const EventGate& gate_;
  QPointer<QWidget> parent_;
  std::optional<String> file_;  ///< the answer to the next file to open
};

/// Makes the chooser the dialog that is wanted.
void Prepare(QFileDialog& chooser, const FileDialog& dialog);
/// Shows a text as it stands, and has a screen reader tell it with the box.
void ShowText(QMessageBox& box, QString text);
/// Adds the button of an answer.
QPushButton* AddAnswer(QMessageBox& box, Answer answer);

}  // namespace korva

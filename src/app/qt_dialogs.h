#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/dialogs.h"
#include "platform/event_gate.h"

namespace korva {

/// Message boxes and file dialogs on the screen.
class QtDialogs : public Dialogs {
 public:
  /// `gate` is asked after each box whether the program ended while it was shown.
  explicit QtDialogs(const EventGate& gate) : gate_(gate) {}
  /// The window that boxes stand over.
  void SetParent(QWidget* parent) { parent_ = parent; }

  Answer ShowBox(const Box& box) override;
  std::optional<String> ChooseFile(const FileDialog& dialog) override;
  void ShowFailure(const String& text) override;

 private:
  const EventGate& gate_;
  QPointer<QWidget> parent_;
};

}  // namespace korva

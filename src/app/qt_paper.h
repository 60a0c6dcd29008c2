#pragma once

#include <QPointer>
#include <QWidget>

#include "companions/paper.h"
#include "platform/event_gate.h"

namespace korva {

/// PDF files, and the printers that the user can choose on the screen.
class QtPaper final : public Paper {
 public:
  /// `gate` is asked after each dialog whether the program ended while it was shown.
  explicit QtPaper(const EventGate& gate) : gate_(gate) {}
  /// The window that dialogs stand over.
  void SetParent(QWidget* parent) { parent_ = parent; }

  std::optional<std::string> PdfOf(const Document& document, String& why) override;
  [[nodiscard]] bool CanPrint() const override { return true; }
  String Print(const Document& document) override;

 private:
  const EventGate& gate_;
  QPointer<QWidget> parent_;
};

}  // namespace korva

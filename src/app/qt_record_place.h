#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/event_gate.h"
#include "platform/record_place.h"

namespace korva {

/// Records in the machine's own files, and dialogs on the screen that stop nothing: no question of theirs has
/// a loop of its own, in which a loop behind it would wait.
class QtRecordPlace final : public RecordPlace {
 public:
  /// What the user answers enters through `gate`.
  explicit QtRecordPlace(EventGate& gate) : gate_(gate) {}
  /// The window that dialogs stand over.
  void SetParent(QWidget* parent) { parent_ = parent; }

  std::unique_ptr<OpenQuestion> Ask(const FileDialog& dialog, Chosen chosen) override;
  std::unique_ptr<RecordFile> Create(const String& path, SystemReason& reason) override;
  [[nodiscard]] LocalTime Time() const override;

 private:
  EventGate& gate_;
  QPointer<QWidget> parent_;
};

}  // namespace korva

#pragma once

#include "companions/line_log.h"
#include "core/boxes.h"
#include "core/panel.h"
#include "core/texts.h"
#include "platform/platform.h"

namespace korva {

/// The window that shows the traffic with the device as it happens, and saves what it shows when the user
/// wants it. While it is closed a line costs its place in the log alone.
class LinePanel final : public Panel {
 public:
  /// `folder` is where the dialog that saves begins. The platform outlives this.
  LinePanel(const Platform& platform, String folder);

  /// Takes the line's traffic to itself. The line outlives this, or lets go of it.
  void Follow(SerialLink& line);
  void SetLanguage(Language language) override;
  /// The user can't save while an operation runs: its waits would go on behind the dialog.
  void SetLocked(bool locked) { cmdSaveLine.SetEnabled(!locked); }

  [[nodiscard]] String Title() const override { return Words(TextKey::LineView); }
  [[nodiscard]] std::vector<String> Heads() const override;
  [[nodiscard]] int FirstRow() const override { return log_.First(); }
  [[nodiscard]] int EndRow() const override { return log_.End(); }
  [[nodiscard]] std::vector<String> Cells(int row) const override;
  [[nodiscard]] Look LookOf(int row) const override;
  [[nodiscard]] bool BeginsAtEnd() const override { return true; }
  [[nodiscard]] std::vector<Button*> Buttons() override { return {&cmdSaveLine}; }

  Button cmdSaveLine{"cmdSaveLine"};

 private:
  void Save() const;
  [[nodiscard]] String TextToSave() const;

  Platform platform_;
  String folder_;
  LineLog log_;
};

}  // namespace korva

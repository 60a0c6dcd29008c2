#pragma once

#include "companions/transfer_report.h"
#include "core/panel.h"

namespace korva {

/// The window that shows a report.
class ReportPanel final : public Panel {
 public:
  /// The report outlives this.
  explicit ReportPanel(TransferReport& report);

  [[nodiscard]] String Title() const override { return Words(TextKey::Report); }
  [[nodiscard]] String Heading() const override;
  [[nodiscard]] std::vector<String> Heads() const override;
  [[nodiscard]] int EndRow() const override { return static_cast<int>(report_.Rows().size()); }
  [[nodiscard]] std::vector<String> Cells(int row) const override;
  [[nodiscard]] Look LookOf(int row) const override;
  [[nodiscard]] unsigned Generation() const override { return report_.Number(); }

 private:
  const TransferReport& report_;
};

}  // namespace korva

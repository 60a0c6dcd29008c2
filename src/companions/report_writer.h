#pragma once

#include <vector>

#include "companions/report_panel.h"
#include "files/parameter_page.h"

namespace korva {

/// Writes the report of a page's transfers, and opens its window.
class ReportWriter final : public PagePart, public TransferObserver {
 public:
  /// Follows the transfers of the page. All outlive this, but for the page, which keeps it.
  ReportWriter(ParameterPage& page, TransferReport& report, ReportPanel& panel);

  void SetCaptions(Language language) override;
  void DefinitionRead() override { names_.clear(); }
  // What failed belongs to the set that was sent or read.
  void PageCleared() override { page_.Notes.Tell(Notice::Transfer, {}); }

  void TransferBegan(Transfer transfer) override;
  void StepDone(const TransferStep& step) override;
  void TransferEnded(bool good) override;

  Button cmdReport{"cmdReport"};

 private:
  [[nodiscard]] String NameOf(const TransferStep& step);

  ParameterPage& page_;
  TransferReport& report_;
  ReportPanel& panel_;
  Language language_ = Language::Japanese;
  std::vector<String> names_;  ///< of the rows; empty where none was asked for yet
};

}  // namespace korva

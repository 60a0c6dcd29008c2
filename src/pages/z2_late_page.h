#pragma once

#include "linearizer/table_buttons.h"
#include "monitor/output_setting.h"
#include "monitor/threshold.h"
#include "pages/family_record.h"
#include "transfer/download.h"
#include "transfer/number_check.h"
#include "transfer/upload.h"

namespace korva {

// What the pages of families LiteForth and LiteFifth have in common: frequency inputs of the second line that
// speak the dialect of the first.

class Z2LateForm final : public RowForm {
 public:
  using RowForm::RowForm;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
};

/// Besides the numbers, the threshold must lie within the limits of its row.
class Z2LateCheck final : public NumberCheck {
 public:
  explicit Z2LateCheck(ParameterPage& page) : NumberCheck(page), page_(page) {}
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  bool CheckThreshold();

  ParameterPage& page_;
};

/// Nothing is fixed in these devices. They keep times in steps of 5 msec.
class Z2LateDownload final : public DownloadSteps {
 public:
  using DownloadSteps::DownloadSteps;
  bool Collate() override { return true; }
  void RoundValues() override;
};

/// The page itself. A family's page places the controls by its design.
class Z2LatePage : public ParameterPage {
 public:
  Z2LatePage(Program& program, const FamilyRecord& record, const Design& design, DeviceLink& link);

  Linearizer linearizer;
  TableButtons table_buttons;
  StatusMonitor monitor;
  OutputSetting output;
  Threshold threshold;

 private:
  Z2LateForm form_;
  UploadSteps upload_steps_;
  Z2LateCheck check_steps_;
  Z2LateDownload download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva

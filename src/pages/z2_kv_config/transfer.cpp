#include "pages/z2_kv_config/transfer.h"

#include "transfer/model_check.h"

namespace korva {

bool Z2KvConfigUpload::ConfirmModel() { return ModelChosen(Page()) && ConfirmModelOfDevice(Page()); }

bool Z2KvConfigCheck::CheckValues() {
  return fields_.CheckTag() && fields_.CheckZeroSpan(false) && fields_.CheckOutputRange() &&
         fields_.CheckScale();
}

std::optional<FieldRange> Z2KvConfigCheck::RangeOf(int row) const {
  const int item = fields_.ItemOf(row);
  const auto range = Narrowed(FieldChecks::RangeOfTag(item), fields_.RangeOfZeroSpan(item, false));
  return Narrowed(Narrowed(range, fields_.RangeOfOutput(item)), fields_.RangeOfScale(item));
}

bool Z2KvConfigDownload::ConfirmModel() { return ModelChosen(Page()) && ConfirmModelOfDevice(Page()); }

bool Z2KvConfigDownload::Collate() { return CollateInputType(Page()) && CollateOutputType(Page()); }

bool Z2KvConfigDownload::BeginWriting() {
  if (const String file = stage_.MissingCurve(); !file.empty()) {
    Page().Box().Show(BoxKey::CurveFileNotFound, {file});
    return false;
  }
  return stage_.ReadDevice() && DownloadSteps::BeginWriting();
}

}  // namespace korva

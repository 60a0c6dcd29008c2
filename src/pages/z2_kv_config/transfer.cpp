#include "pages/z2_kv_config/transfer.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/model_check.h"

namespace korva {

namespace {

/// Values that are shown with two decimals, whatever the device gives.
constexpr std::array<StringView, 6> kTwoDecimals = {u"12", u"13", u"14", u"15", u"42", u"43"};

}  // namespace

bool Z2KvConfigUpload::ConfirmModel() { return ModelChosen(Page()) && ConfirmModelOfDevice(Page()); }

RowRead Z2KvConfigUpload::Judge(const String& answer) {
  if (answer.empty()) {
    Page().Box().ShowCommFailure();
    return RowRead::Stop;
  }
  if (answer == u"ERROR") {
    Page().Box().Show(BoxKey::UploadAgain);
    return RowRead::Stop;
  }
  return RowRead::Read;
}

void Z2KvConfigUpload::AfterItemRead(int row) {
  KindUpload::AfterItemRead(row);
  const String& item = Page().DataCell(row, kItem);
  const String& value = Page().SetCell(row);
  const bool two_decimals = std::find(kTwoDecimals.begin(), kTwoDecimals.end(), item) != kTwoDecimals.end();
  if (two_decimals && IsValue(row) && IsNumeric(value)) {
    Page().GroupItem.Set(Page().DataCell(row, kGroup), item, FormatMask(LeadingNumber(value), u"##0.00"));
  }
}

bool Z2KvConfigCheck::CheckValues() {
  return fields_.CheckTag() && fields_.CheckZeroSpan(false) && fields_.CheckOutputRange() &&
         fields_.CheckScale();
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

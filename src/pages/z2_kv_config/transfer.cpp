#include "pages/z2_kv_config/transfer.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/model_check.h"

namespace korva {

namespace {

constexpr StringView kTagKind = u"TG:";

/// Values that are shown with two decimals, whatever the device gives.
constexpr std::array<StringView, 6> kTwoDecimals = {u"12", u"13", u"14", u"15", u"42", u"43"};

/// The value less what stands behind it; a text without a number stays as it is.
String WithoutUnit(const String& text) {
  const String number = TrimNumericText(text);
  return number.empty() ? text : number;
}

}  // namespace

std::optional<CodeTable> Z2KvConfigForm::CodesOf(int item) const {
  const int row = Page().FindDataRow(FormatMask(item, u"00"));
  if (row < 0 || Page().DataCell(row, kChoiceKey).empty()) {
    return std::nullopt;
  }
  return CodeTable{.key = Page().DataCell(row, kChoiceKey)};
}

bool Z2KvConfigUpload::ConfirmModel() { return ModelChosen(Page()) && ConfirmModelOfDevice(Page()); }

String Z2KvConfigUpload::ReadItem(int row) const {
  const String& group = Page().DataCell(row, kGroup);
  return group == u"00" || group == u"99" ? Page().ReadIdentity(Page().WireOf(row))
                                          : UploadSteps::ReadItem(row);
}

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
  const String& kind = Page().DataCell(row, kItemKind);
  if (kind.empty() || kind == kTagKind) {
    return;
  }
  const String& item = Page().DataCell(row, kItem);
  String value = WithoutUnit(Page().SetCell(row));
  if (std::find(kTwoDecimals.begin(), kTwoDecimals.end(), item) != kTwoDecimals.end() && IsNumeric(value)) {
    value = FormatMask(LeadingNumber(value), u"##0.00");
  }
  Page().GroupItem.Set(Page().DataCell(row, kGroup), item, value);
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

bool Z2KvConfigDownload::CompareReply(const WriteEntry& entry, const String& reply) const {
  const String& kind = Page().DataCell(entry.row, kItemKind);
  if (kind.empty()) {
    return Trimmed(reply) == entry.source;
  }
  if (kind == kTagKind) {
    return reply == entry.source;
  }
  return !IsFinePrefix(kind) || FineValueTaken(LeadingNumber(entry.source), LeadingNumber(reply));
}

}  // namespace korva

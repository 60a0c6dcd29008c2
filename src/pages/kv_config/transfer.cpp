#include "pages/kv_config/transfer.h"

#include "core/numbers.h"
#include "pages/kv_config/kv_config.h"
#include "transfer/known_items.h"

namespace korva {

KvConfigForm::KvConfigForm(const KvConfig& page, const KvConfigSpelling& spelling)
    : RowForm(page), page_(page), spelling_(spelling) {}

bool KvConfigForm::WillBeSpelt(int row) const {
  return LeadingInteger(page_.DataCell(row, kItem)) == kTypeItem && spelling_.Knows(page_.SetCell(row));
}

std::optional<CodeTable> KvConfigForm::CodesOf(int item) const {
  const bool backup = page_.Model().has_backup_items;
  switch (item) {
    case 10:
      return CodeTable{.key = u"$I10"};
    case 11:
      return RangeCodes();
    case 21:
      return CodeTable{.key = backup ? u"$I21QD" : u"$I21"};
    case 23:
      return CodeTable{.key = backup ? u"$I23QD" : u"$I23"};
    case 25:
      return CodeTable{.key = u"$I25QD"};
    case 31:
      return CodeTable{.key = u"$I31QD"};
    default:
      return std::nullopt;
  }
}

std::optional<CodeTable> KvConfigForm::RangeCodes() const {
  switch (page_.Model().range_code) {
    case RangeCode::SensorTable:
      return CodeTable{.key = u"$I11QEI"};
    case RangeCode::FirstColumn:
      return CodeTable{.key = u"$I11Body"};
    case RangeCode::UnderTitle:
      break;
  }
  return RangeCodesUnderTitle();
}

KvConfigUpload::KvConfigUpload(KvConfig& page, KvConfigSpelling& spelling)
    : UploadSteps(page), spelling_(spelling) {}

KvConfigCheck::KvConfigCheck(KvConfig& page) : page_(page), fields_(page) {}

bool KvConfigCheck::CheckValues() {
  return fields_.CheckTag() && fields_.CheckZeroSpan(page_.Model().whole_number_limits) &&
         fields_.CheckScale() && CheckModel();
}

std::optional<FieldRange> KvConfigCheck::RangeOf(int row) const {
  const int item = fields_.ItemOf(row);
  auto range = Narrowed(FieldChecks::RangeOfTag(item),
                        fields_.RangeOfZeroSpan(item, page_.Model().whole_number_limits));
  range = Narrowed(range, fields_.RangeOfScale(item));
  if (page_.Model().range_follows_type) {
    range = Narrowed(range, fields_.RangeOfType(item));
  }
  const ModelCheck* check = FindCheck(KvConfigChecks(), page_.DefFile);
  return check == nullptr ? range : Narrowed(range, fields_.RangeByModel(item, *check));
}

bool KvConfigCheck::CheckModel() {
  const ModelCheck* check = FindCheck(KvConfigChecks(), page_.DefFile);
  const bool filter = check != nullptr && check->beginning;
  if (filter && !fields_.CheckByModel(*check)) {
    return false;
  }
  if (page_.Model().range_follows_type && !fields_.CheckRangeOfType()) {
    return false;
  }
  return check == nullptr || filter || fields_.CheckByModel(*check);
}

KvConfigDownload::KvConfigDownload(KvConfig& page, KvConfigSpelling& spelling)
    : DownloadSteps(page), page_(page), spelling_(spelling) {}

bool KvConfigDownload::BeginWriting() {
  if (!DownloadSteps::BeginWriting()) {
    return false;
  }
  spelling_.FollowDevice();
  return true;
}

String KvConfigDownload::FinalData(const WriteEntry& entry) const {
  const bool tag = LeadingInteger(entry.item.item) == kTagItem;
  return page_.Model().drops_trailing_point && !tag && entry.data.back() == u'.'
             ? ShortestText(LeadingNumber(entry.data))
             : entry.data;
}

}  // namespace korva

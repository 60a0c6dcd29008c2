#include "pages/z2_univ_config/transfer.h"

#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr OutputItems kSecondOutputRange = {.type = kSecondOutputTypeItem,
                                            .list = u"$I41",
                                            .low = kSecondOutputZeroItem,
                                            .high = kSecondOutputSpanItem};

}  // namespace

void Z2UnivConfigUpload::AfterItemRead(int row) {
  TransmitterUpload::AfterItemRead(row);
  if (row == Page().FindDataRow(u"10")) {
    input_class_.Settle();
  }
}

bool Z2UnivConfigCheck::CheckValues() {
  return fields_.CheckTag() && fields_.CheckZeroSpan(false) && fields_.CheckOutputRange() &&
         fields_.CheckOutputRange(kSecondOutputRange);
}

std::optional<FieldRange> Z2UnivConfigCheck::RangeOf(int row) const {
  const int item = fields_.ItemOf(row);
  const auto range = Narrowed(FieldChecks::RangeOfTag(item), fields_.RangeOfZeroSpan(item, false));
  return Narrowed(Narrowed(range, fields_.RangeOfOutput(item)),
                  fields_.RangeOfOutput(item, kSecondOutputRange));
}

bool Z2UnivConfigDownload::Collate() {
  return CollateInputType(Page(), kInputClasses) && CollateOutputType(Page());
}

}  // namespace korva

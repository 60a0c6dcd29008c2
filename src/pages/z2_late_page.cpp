#include "pages/z2_late_page.h"

#include "core/numbers.h"
#include "pages/z2_parts.h"
#include "transfer/grid_rounding.h"

namespace korva {

std::optional<CodeTable> Z2LateForm::CodesOf(int item) const { return CodesOfRow(FormatMask(item, u"00")); }

bool Z2LateCheck::CheckValues() {
  const bool numbers = NumberCheck::CheckValues();
  return CheckThreshold() && numbers;
}

std::optional<FieldRange> Z2LateCheck::RangeOf(int row) const {
  if (row != page_.FindDataRow(kLateZ2Threshold.item)) {
    return NumberCheck::RangeOf(row);
  }
  return RangeOfThreshold(LimitsInRow(page_, kLateZ2Threshold.item));
}

bool Z2LateCheck::CheckThreshold() {
  TextField* box = page_.FindField(kLateZ2Threshold.item);
  const std::optional<ThresholdLimits> limits = LimitsInRow(page_, kLateZ2Threshold.item);
  if (box == nullptr || box->Locked() || !limits || ValueInRange(box->Text(), *limits)) {
    return true;
  }
  box->SetLook(Look::Bad);
  return false;
}

void Z2LateDownload::RoundValues() { Round5ms(Page(), ItemsWithUnit(Page(), u"msec")); }

Z2LatePage::Z2LatePage(Program& program, const FamilyRecord& record, const Design& design, DeviceLink& link)
    : ParameterPage(program, {.family = record.family, .tab_control = "z2KvCfg_Tab", .design = design},
                    FormsOf(record), link),
      linearizer(*this, record.table.Value(), record.csv),
      table_buttons(*this, linearizer),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      threshold(*this, kLateZ2Threshold, monitor),
      form_(*this),
      upload_steps_(*this),
      check_steps_(*this),
      download_steps_(*this),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddOptions({.key = u"$I10", .table = u"$I10", .item = u"10", .options = &linearizer.Opt_Lnr});
}

}  // namespace korva

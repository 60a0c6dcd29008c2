#include "pages/z2_kv_config_v2/z2_kv_config_v2.h"

#include <array>

#include "pages/z2_kv_config_v2/design.h"

namespace korva {

namespace {

constexpr ThresholdFamily kThreshold = {.item = u"30", .range_item = u"33", .ranges = u"$I33"};

}  // namespace

z2KvConfig_V2::z2KvConfig_V2(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "z2KvCfg_Tab", .design = kZ2KvConfigV2Design},
                    FormsOf(record), link),
      details(*this),
      cut_out(*this),
      linearizer(*this, record.table.Value(), record.csv),
      table(*this, linearizer),
      monitor(*this, record.monitor),
      threshold(*this, kThreshold, monitor),
      output(*this, record.output, monitor),
      zero_trim(*this, kZeroTrim),
      span_trim(*this, kSpanTrim),
      live_boxes_(*this),
      form_(*this),
      upload_steps_(*this),
      check_steps_(*this),
      download_steps_(*this),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddOptions({.key = u"$I61", .table = u"$I61", .item = u"61", .options = &linearizer.Opt_Lnr});
  ApplyDesign();
  details.WatchContents();
}

z2KvConfig_V2::LiveBoxes::LiveBoxes(ParameterPage& page) : page_(page) { page_.Add(*this); }

void z2KvConfig_V2::LiveBoxes::SetLocked(bool locked) {
  constexpr std::array<StringView, 4> kBoxes = {u"24_set", u"30", u"28_zero", u"28_span"};
  for (const StringView item : kBoxes) {
    const int row = page_.FindDataRow(item);
    if (TextField* box = page_.FindField(item)) {
      box->SetLocked(locked || page_.Fixed(row) || page_.SetCell(row) == kNeedless);
    }
  }
}

}  // namespace korva

#include "pages/kv_config_v2/kv_config_v2.h"

#include <array>

#include "pages/kv_config_v2/design.h"

namespace korva {

namespace {

constexpr FrequencyUnitForm kUnits = {.units = {{{.text = u"Hz", .code = u"0"},
                                                 {.text = u"kHz", .code = u"1", .hertz = 1000},
                                                 {.text = u"mHz", .code = u"2", .hertz = 0.001}}},
                                      .splits_fixed = true};

}  // namespace

KvConfig_V2::KvConfig_V2(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program,
                    {.family = record.family, .tab_control = "KvCfg_Tab", .design = kKvConfigV2Design},
                    FormsOf(record), link),
      units(*this, kUnits),
      monitor(*this, record.monitor),
      output(*this, record.output, monitor),
      fixed_boxes_(*this),
      form_(*this, units),
      upload_steps_(*this),
      check_steps_(*this),
      download_steps_(*this, form_, units),
      upload_(*this, form_, upload_steps_),
      check_(*this, form_, check_steps_),
      download_(*this, form_, check_, download_steps_) {
  AddOptions(
      {.key = u"$I26", .table = u"$I26", .item = u"26", .options = &optAlarm, .captions_from_table = true});
  ApplyDesign();
}

KvConfig_V2::FixedBoxes::FixedBoxes(ParameterPage& page) : page_(page) { page_.Add(*this); }

void KvConfig_V2::FixedBoxes::RowShown(int row) {
  if (page_.Fixed(row) && !page_.DataCell(row, kComboIndex).empty()) {
    ComboBox& box = page_.Combo[page_.Place(row, kComboIndex, page_.Combo.Count())];
    box.SetLocked(true);
    box.SetLook(Look::Grey);
  }
}

}  // namespace korva

#include "linearizer/table_page.h"

namespace korva {

TablePage::TablePage(Program& program, const PageKind& kind, DeviceLink& link, const FieldArrays& arrays,
                     int groups)
    : TransferPage(program, kind, link, arrays, groups), linearizer_(*this) {
  Register(Opt_Table);
  Register(Opt_Lnr);
}

void TablePage::SetCaptions(Language language) {
  TransferPage::SetCaptions(language);
  for (OptionGroup* options : {&Opt_Table, &Opt_Lnr}) {
    (*options)[0].SetCaption(CaptionText(TextKey::OptionNo, language));
    (*options)[1].SetCaption(CaptionText(TextKey::OptionYes, language));
  }
}

std::vector<Control*> TablePage::FurtherLockedControls() {
  return {&LnrFlexGrid, &fraLnrChange, &cmd_csvFileOpen, &cmd_csvFileSave};
}

void TablePage::AfterOption(const OptionRule& rule, int place) {
  if (rule.options == &Opt_Table || rule.options == &Opt_Lnr) {
    Tabs.SetTabEnabled(LnrTab(), place != 0);
  }
}

const OptionGroup* TablePage::SwitchOptions(TableSwitch table_switch) const {
  switch (table_switch) {
    case TableSwitch::TableOption:
      return &Opt_Table;
    case TableSwitch::LnrOption:
      return &Opt_Lnr;
    default:
      return nullptr;
  }
}

}  // namespace korva

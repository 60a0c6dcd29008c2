#include "files/parameter_page.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kGridColumns = 3;
constexpr int kSmallTable = 16;
constexpr std::array kUnitLists = {UnitList{.key = u"$I11QEI", .item = 11}};

String TwoDigits(const String& number) { return number.size() == 1 ? u"0" + number : number; }

}  // namespace

ParameterPage::ParameterPage(Program& program, const PageKind& kind, DeviceLink& link,
                             const FieldArrays& arrays, int groups)
    : DevicePage(program, kind, link),
      Def(kind.family),
      GroupItem(groups),
      lbl_Item("lbl_Item", arrays.lbl_item),
      CaptionLabels("Label", arrays.label),
      Text("Text", arrays.text),
      Frames("Frame", arrays.frame),
      Combo("Combo", arrays.combo),
      lbl_unit("lbl_unit", arrays.lbl_unit) {
  RegisterFields(lbl_Item);
  RegisterFields(CaptionLabels);
  RegisterFields(Text);
  RegisterFields(Frames);
  RegisterFields(Combo);
  RegisterFields(lbl_unit);
  Register(optTempUnit);
  ListenToFields();
}

void ParameterPage::Register(OptionGroup& options) {
  DevicePage::Register(options);
  options_.push_back(&options);
  options.OnClick = [this, &options](int place) { OptionClicked(options, place); };
}

void ParameterPage::ListenToFields() {
  for (int index = 0; index < Text.Count(); ++index) {
    Text[index].OnChange = [this, index] { TextChanged(index); };
  }
  for (int index = 0; index < Combo.Count(); ++index) {
    Combo[index].OnClick = [this, index] { ComboClicked(index); };
  }
  const auto keep = [this](String& kept, const TextField& field) {
    if (!Building()) {
      kept = field.Text();
      MarkEdited();
    }
  };
  txtAuthor.OnChange = [this, keep] { keep(GroupItem.Author, txtAuthor); };
  txtMemo.OnChange = [this, keep] { keep(GroupItem.Memo, txtMemo); };
  cmdOpen.OnClick = [this] { OpenCommand(); };
  cmdSave.OnClick = [this] { SaveCfgFile(); };
  cmdNew.OnClick = [this] { NewCommand(); };
}

void ParameterPage::MarkEdited() {
  // What an upload puts into fields is no edit.
  if (!UploadBusy) {
    DataChanged = true;
  }
}

void ParameterPage::TextChanged(int index) {
  const int row = Def.Data().FindRow(kTextIndex, Ascii(std::to_string(index)));
  if (Building() || row < 0) {
    return;
  }
  GroupItem.Set(DataCell(row, kGroup), DataCell(row, kItem), CellOf(row, Text[index].Text()));
  // What comes into a field that the user can't change, such as a live value, is no edit of his.
  if (!Text[index].Locked()) {
    MarkEdited();
  }
}

void ParameterPage::ComboClicked(int index) {
  const int row = FindComboRow(index);
  if (Building() || row == Def.Data().Rows()) {
    return;
  }
  const String item = DataCell(row, kItem);
  const String text = Combo[index].Text();
  GroupItem.Set(DataCell(row, kGroup), item, text);
  if (item == u"10") {
    ShowInputTypeUnits(InputTypeRow());
  } else if (const UnitList* list = FindUnitList(DataCell(row, kChoiceKey))) {
    ShowUnitsOf(list->key, UnitFrom(*list));
  } else if (item == u"11") {
    ApplyMillivoltRule(text);
  } else if (item == u"23" && Traits().filter_follows_type) {
    ApplyFilterRule();
  }
  ApplyModelRules(item);
  DataChanged = true;
}

void ParameterPage::OptionClicked(OptionGroup& options, int place) {
  if (&options == &optTempUnit && UploadBusy) {
    UploadBusy = false;
    return;
  }
  const std::vector<OptionRule> rules = Options();
  const auto rule = std::find_if(rules.begin(), rules.end(),
                                 [&](const OptionRule& one) { return one.options == &options; });
  if (Building() || rule == rules.end()) {
    return;
  }
  const StringTable& table = Def[rule->table];
  if (place >= table.Rows()) {
    return;
  }
  GroupItem.Set(u"01", String(rule->item), table.At(place, 1));
  if (&options == &optTempUnit) {
    ChangeTemperatureUnit(place);
    ShowTemperatureUnits();
  } else {
    AfterOption(*rule, place);
  }
}

std::span<const UnitList> ParameterPage::UnitLists() const { return kUnitLists; }

String ParameterPage::CellOf(int /*row*/, const String& text) const { return Trimmed(text); }

int ParameterPage::FindTextIndex(const String& group, const String& item) const {
  const int row = FindDataRow(TwoDigits(group), TwoDigits(item));
  if (row < 0 || DataCell(row, kTextIndex).empty()) {
    return -1;
  }
  return Place(row, kTextIndex, Text.Count());
}

TextField* ParameterPage::FindField(const String& item) {
  const int index = FindTextIndex(u"01", item);
  return index < 0 ? nullptr : &Text[index];
}

int ParameterPage::FindComboRow(int box) const {
  const int row = Def.Data().FindRow(kComboIndex, Ascii(std::to_string(box)));
  return row < 0 ? Def.Data().Rows() : row;
}

int ParameterPage::FindDataRow(const String& group, const String& item) const {
  const StringTable& data = Def.Data();
  int row = data.FindRow(kItem, item);
  while (row >= 0 && data.At(row, kGroup) != group) {
    row = data.FindRow(kItem, item, row + 1);
  }
  return row;
}

bool ParameterPage::IsWritten(int row) const { return IsNumeric(DataCell(row, kWritePosition)); }

int ParameterPage::FindI10Row(const String& text) const {
  return text.empty() || !Def.Has(u"$I10") ? -1 : Def[u"$I10"].FindRow(1, text);
}

int ParameterPage::InputTypeRow() const { return FindI10Row(Item(10)); }

int ParameterPage::TitleIndex(int i10_row) const {
  const String title = i10_row < 0 ? String() : Def[u"$I10"].At(i10_row, 7);
  if (title.empty()) {
    return 0;
  }
  const StringTable& titles = Def[u"$I11Title"];
  int index = 0;
  while (index < titles.Columns() && titles.At(0, index) != title) {
    ++index;
  }
  return index < titles.Columns() ? index : -1;
}

void ParameterPage::SetFieldColor(const String& group, const String& item, Look look) {
  if (const int index = FindTextIndex(group, item); index >= 0) {
    Text[index].SetLook(look);
  }
}

void ParameterPage::CloseField(TextField& field) {
  field.SetText({});
  field.SetLocked(true);
  field.SetLook(Look::Grey);
}

void ParameterPage::OpenField(TextField& field) {
  field.SetLocked(false);
  field.SetLook(Look::Normal);
}

void ParameterPage::ReadModel() {
  LnrFlexGrid.Resize(Traits().table_points + 1, kGridColumns);
  ClearPage();
  ClearTable();
  const Platform& platform = ItsProgram().Surroundings();
  ReadDefFile(ItsProgram().Lines(), Box(),
              DefFilePath(AppPath, ItsFamily(), DefFile, platform.files.Separator()), Def);
  LoadItemTitles();
  AdaptDefinition();
  BuildPage();
  SettleLnrTab(TabMoment::ModelChosen);
  SettleFlaggedTabs();
  ApplyDefaults();
  DataChanged = false;
}

void ParameterPage::LoadItemTitles() {
  if (!Def.HasColumn(kItemTitle)) {
    return;
  }
  auto& names = Shared().KnownItemNames;
  names.fill({});
  for (int row = 0; row < Def.Data().Rows() && row < static_cast<int>(names.size()); ++row) {
    names[static_cast<std::size_t>(row)] = DataCell(row, kItemTitle);
  }
}

void ParameterPage::SettleLnrTab(TabMoment moment) {
  if (LnrTab() < 0) {
    return;
  }
  const ModelTraits& traits = Traits();
  const bool flag = Def[u"$SSTab"].At(0, LnrTab()) == u"True";
  switch (moment) {
    case TabMoment::ModelChosen:
      SettleTab(flag ? traits.table_on_choice : TableSwitch::None, flag ? traits.table_points : kSmallTable);
      break;
    case TabMoment::FileOpened:
      SettleTab(flag ? traits.table_on_opening.value_or(traits.table_on_choice) : traits.table_without_flag,
                traits.table_points);
      break;
    case TabMoment::Uploaded:
      SettleTab(traits.table_after_upload, traits.table_points);
      break;
  }
}

void ParameterPage::SettleTab(TableSwitch table_switch, int points) {
  SetUpTable(points);
  if (table_switch != TableSwitch::AsItStands) {
    Tabs.SetTabEnabled(LnrTab(), SwitchedOn(table_switch));
  }
}

void ParameterPage::SettleFlaggedTabs() {
  if (!Def.Has(u"$SSTab")) {
    return;
  }
  int tab = 0;
  for (const DesignTab& design : ItsDesign().tabs) {
    const String& flag = Def[u"$SSTab"].At(0, tab);
    if (design.rule != TabRule::BySwitch) {
      Tabs.SetTabEnabled(tab, design.rule == TabRule::OpenIfTrue ? flag == u"True" : flag != u"False");
    }
    ++tab;
  }
}

bool ParameterPage::SwitchedOn(TableSwitch table_switch) const {
  switch (table_switch) {
    case TableSwitch::Always:
      return true;
    case TableSwitch::InputType:
      return InputTypeUsesTable();
    case TableSwitch::TableOption:
    case TableSwitch::LnrOption: {
      const OptionGroup* options = SwitchOptions(table_switch);
      return options == nullptr || options->Selected() != 0;
    }
    case TableSwitch::None:
    case TableSwitch::AsItStands:
      break;
  }
  return false;
}

bool ParameterPage::LnrActive() const {
  for (const TableSwitch table_switch : {TableSwitch::TableOption, TableSwitch::LnrOption}) {
    const OptionGroup* options = SwitchOptions(table_switch);
    if (options != nullptr && options->Selected() == 1) {
      return true;
    }
  }
  const TableSwitch own = Traits().table_on_choice;
  return (own == TableSwitch::Always || own == TableSwitch::InputType) && SwitchedOn(own);
}

bool ParameterPage::LnrSwitchedOff() const {
  const auto off = [this](TableSwitch table_switch) {
    const OptionGroup* options = SwitchOptions(table_switch);
    return options != nullptr && options->Selected() == 0;
  };
  return !LnrActive() && (off(TableSwitch::TableOption) || off(TableSwitch::LnrOption));
}

void ParameterPage::KeepTabState(int tab, bool enabled) {
  Def[u"$SSTab"].Set(0, tab, enabled ? u"True" : u"False");
}

bool ParameterPage::KeptTabEnabled(int tab) const { return Def[u"$SSTab"].At(0, tab) != u"False"; }

}  // namespace korva

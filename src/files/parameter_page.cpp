#include "files/parameter_page.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

String TwoDigits(const String& number) { return number.size() == 1 ? u"0" + number : number; }

}  // namespace

ParameterPage::ParameterPage(Program& program, const PageKind& kind, const PageForms& forms, DeviceLink& link)
    : DevicePage(program, kind, forms.device, link),
      Def(kind.family, forms.definition),
      GroupItem(forms.fields.groups),
      lbl_Item("lbl_Item", forms.fields.arrays.lbl_item),
      CaptionLabels("Label", forms.fields.arrays.label),
      Text("Text", forms.fields.arrays.text),
      Frames("Frame", forms.fields.arrays.frame),
      Combo("Combo", forms.fields.arrays.combo),
      lbl_unit("lbl_unit", forms.fields.arrays.lbl_unit),
      fields_form_(forms.fields) {
  RegisterFields(lbl_Item);
  RegisterFields(CaptionLabels);
  RegisterFields(Text);
  RegisterFields(Frames);
  RegisterFields(Combo);
  RegisterFields(lbl_unit);
  RegisterField(optTempUnit);
  ListenToFields();
}

void ParameterPage::AddOptions(const OptionRule& rule) {
  option_rules_.push_back(rule);
  if (std::find(options_.begin(), options_.end(), rule.options) == options_.end()) {
    RegisterField(*rule.options);
  }
}

void ParameterPage::RegisterField(OptionGroup& options) {
  Register(options);
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
  const int row = Def.FindRow(kTextIndex, Ascii(std::to_string(index)));
  if (Building() || row < 0) {
    return;
  }
  GroupItem.Set(DataCell(row, kGroup), DataCell(row, kItem), CellOf(row, Text[index].Text()));
  for (PagePart* part : Parts()) {
    part->FieldChanged(row);
  }
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
  }
  Tell({.item = item, .key = DataCell(row, kChoiceKey)});
  DataChanged = true;
}

void ParameterPage::OptionClicked(OptionGroup& options, int place) {
  if (&options == &optTempUnit && UploadBusy) {
    UploadBusy = false;
    return;
  }
  const OptionRule* rule = RuleOf(options);
  if (Building() || rule == nullptr) {
    return;
  }
  const ChoiceList list = Def.ListOf(rule->table);
  if (place >= list.Rows()) {
    return;
  }
  GroupItem.Set(u"01", String(rule->item), list.Cell(place, rule->keeps));
  Tell({.item = String(rule->item), .key = String(rule->key), .options = &options, .place = place});
  if (&options == &optTempUnit) {
    ShowTemperatureUnits();
  }
}

void ParameterPage::Tell(const Choice& choice) {
  for (PagePart* part : Parts()) {
    part->ChoiceMade(choice);
  }
}

String ParameterPage::CellOf(int row, const String& text) const {
  for (const PagePart* part : Parts()) {
    if (std::optional<String> cell = part->CellOf(row, text)) {
      return *cell;
    }
  }
  return Trimmed(text);
}

int ParameterPage::FindTextIndex(const ItemKey& item) const {
  const int row = FindDataRow({TwoDigits(item.Group()), TwoDigits(item.Key())});
  if (row < 0 || DataCell(row, kTextIndex).empty()) {
    return -1;
  }
  return Place(row, kTextIndex, Text.Count());
}

TextField* ParameterPage::FindField(const ItemKey& item) {
  const int index = FindTextIndex(item);
  return index < 0 ? nullptr : &Text[index];
}

Label* ParameterPage::UnitLabelOf(int row) {
  if (row < 0 || DataCell(row, kUnitLabel).empty()) {
    return nullptr;
  }
  const int index = LeadingInteger(DataCell(row, kUnitLabel));
  return lbl_unit.Has(index) ? &lbl_unit[index] : nullptr;
}

int ParameterPage::FindComboRow(int box) const {
  const int row = Def.FindRow(kComboIndex, Ascii(std::to_string(box)));
  return row < 0 ? Def.Data().Rows() : row;
}

int ParameterPage::FindDataRow(const ItemKey& item) const {
  int row = Def.FindRow(kItem, item.Key());
  while (row >= 0 && DataCell(row, kGroup) != item.Group()) {
    row = Def.FindRow(kItem, item.Key(), row + 1);
  }
  return row;
}

bool ParameterPage::IsWritten(int row) const { return IsNumeric(DataCell(row, kWritePosition)); }

bool ParameterPage::IsAmong(std::span<const StringView> items, int row) const {
  return DataCell(row, kGroup) == u"01" &&
         std::find(items.begin(), items.end(), DataCell(row, kItem)) != items.end();
}

bool ParameterPage::IsLive(int row) const { return !IsWritten(row) && IsAmong(fields_form_.live_items, row); }

bool ParameterPage::MayBeBlank(int row) const {
  return IsLive(row) || IsAmong(fields_form_.blank_items, row);
}

bool ParameterPage::NeedsChoice(int row) const { return IsAmong(fields_form_.needed_choices, row); }

bool ParameterPage::IsNumberRow(int row) const {
  return DataCell(row, kOnPage) == u"Y" && !DataCell(row, kTextIndex).empty() &&
         !IsAmong(fields_form_.text_items, row);
}

int ParameterPage::FindI10Row(const String& text) const {
  return text.empty() || !Def.Has(u"$I10") ? -1 : Def.ListOf(u"$I10").FindText(text);
}

int ParameterPage::InputTypeRow() const { return FindI10Row(Item(10)); }

int ParameterPage::TitleIndex(int i10_row) const {
  const String title = i10_row < 0 ? String() : Def.ListOf(u"$I10").Cell(i10_row, &ListColumns::title);
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

std::optional<ChoiceList> ParameterPage::RangesOfType() const {
  const int title = TitleIndex(InputTypeRow());
  if (title < 1) {
    return std::nullopt;
  }
  const ChoiceList ranges = Def.ListOf(u"$I11Body");
  return title > ranges.Titles() ? std::nullopt : std::optional(ranges.UnderTitle(title));
}

void ParameterPage::SetFieldColor(const ItemKey& item, Look look) {
  if (const int index = FindTextIndex(item); index >= 0) {
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
  ClearPage();
  for (PagePart* part : Parts()) {
    part->PageCleared();
  }
  const Platform& platform = ItsProgram().Surroundings();
  ReadDefFile(ItsProgram().Lines(), Box(),
              DefFilePath(AppPath, ItsFamily(), Def.Form(), DefFile, platform.files.Separator()), Def);
  LoadItemTitles();
  for (PagePart* part : Parts()) {
    part->DefinitionRead();
  }
  BuildPage();
  SettleTabs(TabMoment::ModelChosen);
  SettleFlaggedTabs();
  ApplyDefaults();
  DataChanged = false;
}

void ParameterPage::LoadItemTitles() {
  auto& names = Shared().KnownItemNames;
  names.fill({});
  if (!Def.HasColumn(kItemTitle)) {
    return;
  }
  for (int row = 0; row < Def.Data().Rows() && row < static_cast<int>(names.size()); ++row) {
    names[static_cast<std::size_t>(row)] = DataCell(row, kItemTitle);
  }
}

void ParameterPage::SettleTabs(TabMoment moment) {
  for (PagePart* part : Parts()) {
    part->SettleTabs(moment);
  }
}

void ParameterPage::SettleFlaggedTabs() {
  if (!Def.Has(kTabFlags)) {
    return;
  }
  int tab = 0;
  for (const DesignTab& design : ItsDesign().tabs) {
    const String& flag = TabFlag(tab);
    if (design.rule != TabRule::BySwitch) {
      Tabs.SetTabEnabled(tab, design.rule == TabRule::OpenIfTrue ? flag == u"True" : flag != u"False");
    }
    ++tab;
  }
}

const String& ParameterPage::TabFlag(int tab) const {
  static const String none;
  return Def.Has(kTabFlags) ? Def[kTabFlags].At(0, tab) : none;
}

void ParameterPage::KeepTabState(int tab, bool enabled) {
  if (enabled) {
    closed_tabs_.erase(tab);
  } else {
    closed_tabs_.insert(tab);
  }
}

bool ParameterPage::KeptTabEnabled(int tab) const { return !closed_tabs_.contains(tab); }

}  // namespace korva

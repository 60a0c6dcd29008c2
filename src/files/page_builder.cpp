// Shows the parameter set in the page's fields, row by row of the definition.

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "files/parameter_page.h"

namespace korva {

namespace {

constexpr StringView kInputTypeKey = u"$I10";

/// True while it lives, then what was before: a page may be built again from within a build.
class Scope {
 public:
  explicit Scope(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
  ~Scope() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

void CloseBox(ComboBox& box) {
  box.SetLocked(true);
  box.SetLook(Look::Grey);
}

void OpenBox(ComboBox& box) {
  box.SetLocked(false);
  box.SetLook(Look::Normal);
  box.Clear();
}

void AddEntries(ComboBox& box, const ChoiceList& list) {
  for (int row = 0; row < list.Rows(); ++row) {
    box.AddEntry(list.Text(row));
  }
}

void AddUsedEntries(ComboBox& box, const ChoiceList& list, ListColumn column) {
  for (int row = 0; row < list.Rows(); ++row) {
    if (!list.Cell(row, column).empty()) {
      box.AddEntry(list.Text(row));
    }
  }
}

String ShownValue(const String& cell) { return cell == kNeedless ? String() : cell; }

}  // namespace

void ParameterPage::ClearPage() {
  for (Control* field : fields_) {
    field->SetVisible(false);
  }
  for (int index = 0; index < Frames.Count(); ++index) {
    Frames[index].SetEnabled(true);
  }
  for (int index = 0; index < lbl_unit.Count(); ++index) {
    lbl_unit[index].SetCaption({});
  }
  for (OptionGroup* options : options_) {
    options->SetVisible(false);
    options->Clear();
  }
}

String ParameterPage::ShownText(int row) const {
  for (const PagePart* part : Parts()) {
    if (std::optional<String> text = part->ShownText(row)) {
      return *text;
    }
  }
  return SetCell(row);
}

void ParameterPage::BuildPage() {
  const Scope building(building_);
  txtAuthor.SetText(GroupItem.Author);
  txtMemo.SetText(GroupItem.Memo);
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    if (DataCell(row, kOnPage) == u"Y") {
      BuildRow(row);
    } else if (const OptionRule* rule = FindOptionRule(DataCell(row, kChoiceKey))) {
      TakeOption(row, *rule, Def.ListOf(rule->table));
    }
  }
  for (PagePart* part : Parts()) {
    part->PageBuilt();
  }
}

void ParameterPage::ShowAgain(int row) {
  const Scope building(building_);
  BuildRow(row);
}

void ParameterPage::BuildRow(int row) {
  const auto show_caption = [&](auto& controls, DataColumn index, DataColumn caption) {
    if (!DataCell(row, index).empty()) {
      auto& control = controls[Place(row, index, controls.Count())];
      control.SetVisible(true);
      control.SetCaption(DataCell(row, caption));
    }
  };
  show_caption(lbl_Item, kNumberLabel, kNumberCaption);
  show_caption(CaptionLabels, kLabel, kCaption);
  if (!DataCell(row, kTextIndex).empty()) {
    ShowField(row);
  }
  if (!DataCell(row, kComboIndex).empty()) {
    ShowBox(row);
  }
  if (!DataCell(row, kFrameIndex).empty()) {
    show_caption(Frames, kFrameIndex, kCaption);
    ShowOptions(row);
  }
  ShowUnit(row);
  for (PagePart* part : Parts()) {
    part->RowShown(row);
  }
}

void ParameterPage::ShowField(int row) {
  TextField& field = Text[Place(row, kTextIndex, Text.Count())];
  field.SetVisible(true);
  field.SetNumeric(IsNumberRow(row));
  OpenField(field);
  if (SetCell(row) == kNeedless) {
    CloseField(field);
  } else {
    field.SetText(IsLive(row) ? String() : ShownText(row));
  }
  if (Fixed(row)) {
    field.SetLocked(true);
    field.SetLook(Look::Grey);
  }
}

void ParameterPage::ShowBox(int row) {
  ComboBox& box = Combo[Place(row, kComboIndex, Combo.Count())];
  box.SetVisible(true);
  OpenBox(box);
  box.SetText(ShownValue(SetCell(row)));
  const std::span<const ListRule> lists = Lists();
  const auto rule = std::find_if(lists.begin(), lists.end(),
                                 [&](const ListRule& list) { return list.key == DataCell(row, kChoiceKey); });
  if (rule == lists.end()) {
    return;
  }
  const ChoiceList list = Def.ListOf(rule->table);
  switch (rule->fill) {
    case ListFill::InputType:
      FillInputTypes(box, row, list);
      ShowInputTypeUnits(FindI10Row(box.Text()));
      break;
    case ListFill::Range:
      FillRangeList(box);
      break;
    case ListFill::Whole:
      AddEntries(box, list);
      break;
    case ListFill::Coded:
      FillUsedRows(box, row, list, &ListColumns::code);
      break;
    case ListFill::Texts:
      FillUsedRows(box, row, list, &ListColumns::text);
      break;
  }
}

void ParameterPage::FillUsedRows(ComboBox& box, int row, const ChoiceList& list, ListColumn column) {
  AddUsedEntries(box, list, column);
  if (Fixed(row)) {
    CloseBox(box);
  }
  if (DataCell(row, kChoiceKey) == kInputTypeKey) {
    ShowInputTypeUnits(InputTypeRow());
  }
}

void ParameterPage::FillInputTypes(ComboBox& box, int row, const ChoiceList& types) const {
  const String& change_rule = DataCell(row, kChangeRule);
  if (change_rule == u"Y") {
    CloseBox(box);
  } else if (change_rule == u"N") {
    AddEntries(box, types);
    CloseBox(box);
  } else if (change_rule == kInputTypeKey) {
    const int present = FindI10Row(SetCell(row));
    if (present >= 0 && types.Cell(present, &ListColumns::fixed) == u"Y") {
      CloseBox(box);
      return;
    }
    const auto next_open = [&](int first) { return types.Find(&ListColumns::fixed, u"N", first); };
    for (int entry = next_open(0); entry >= 0; entry = next_open(entry + 1)) {
      box.AddEntry(types.Text(entry));
    }
  }
}

void ParameterPage::FillRangeList(ComboBox& box) const {
  OpenBox(box);
  if (TitleIndex(InputTypeRow()) == 0) {
    CloseBox(box);
  }
  if (const std::optional<ChoiceList> ranges = RangesOfType()) {
    AddEntries(box, *ranges);
    box.SetText(ShownValue(Item(11)));
  }
}

int ParameterPage::TakeOption(int row, const OptionRule& rule, const ChoiceList& list) {
  const String& cell = SetCell(row);
  const int kept = cell.empty() ? -1 : list.Find(rule.keeps, cell);
  if (kept >= 0 || cell.empty()) {
    return kept;
  }
  const int text = list.FindText(cell);
  const int named = text < 0 && rule.reads_codes ? list.FindCode(cell) : text;
  if (named >= 0) {
    GroupItem.Set(DataCell(row, kGroup), DataCell(row, kItem), list.Cell(named, rule.keeps));
  }
  return named;
}

void ParameterPage::ShowOptions(int row) {
  const OptionRule* rule = FindOptionRule(DataCell(row, kChoiceKey));
  if (rule == nullptr) {
    return;
  }
  OptionGroup& options = *rule->options;
  const ChoiceList list = Def.ListOf(rule->table);
  for (int place = 0; place < options.Count(); ++place) {
    const String caption = place < list.Rows() ? list.Text(place) : String();
    options[place].SetVisible(!rule->captions_from_table || !caption.empty());
    options[place].SetEnabled(true);
    if (rule->captions_from_table) {
      options[place].SetCaption(caption);
    }
  }
  const int place = TakeOption(row, *rule, list);
  if (place < 0 || place >= options.Count() || list.Code(place).empty()) {
    options.Clear();
  } else {
    if (&options == &optTempUnit) {
      UploadBusy = true;
    }
    options[place].SetValue(true);
    if (&options == &optTempUnit) {
      UploadBusy = false;
    }
    if (Fixed(row)) {
      FixOptions(row, options);
    }
  }
  if (&options == &optTempUnit) {
    ShowTemperatureUnits();
  }
}

void ParameterPage::FixOptions(int row, OptionGroup& options) const {
  const int last = Place(row, kLastOption, options.Count());
  for (int place = 0; place <= last; ++place) {
    options[place].SetEnabled(options[place].Value());
  }
}

void ParameterPage::ApplyDefaults() {
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    ApplyDefault(row);
  }
}

void ParameterPage::ApplyDefault(int row) {
  const OptionRule* rule = FindOptionRule(DataCell(row, kChoiceKey));
  const bool has_no_place = DataCell(row, kOnPage) == u"N";
  if (DataCell(row, kDefaultOption).empty() || rule == nullptr || has_no_place || !SetCell(row).empty()) {
    return;
  }
  OptionGroup& options = *rule->options;
  options[Place(row, kDefaultOption, options.Count())].SetValue(true);
  if (Fixed(row)) {
    FixOptions(row, options);
  }
}

void ParameterPage::ShowUnit(int row) {
  if (DataCell(row, kUnitLabel).empty()) {
    return;
  }
  Label& label = lbl_unit[Place(row, kUnitLabel, lbl_unit.Count())];
  label.SetVisible(true);
  const String& unit = DataCell(row, kUnitText);
  if (const UnitList* list = FindUnitList(DataCell(row, kUnitKey))) {
    PutUnit(row, UnitFrom(*list));
  } else if (unit == u"$in") {
    PutUnit(row, TemperatureUnit());
  } else {
    PutUnit(row, unit.empty() ? label.Caption() : unit);
  }
}

void ParameterPage::PutUnit(int row, const String& unit) {
  std::optional<String> of_part;
  for (const PagePart* part : Parts()) {
    of_part = of_part ? of_part : part->UnitOf(row);
  }
  lbl_unit[Place(row, kUnitLabel, lbl_unit.Count())].SetCaption(of_part.value_or(unit));
}

void ParameterPage::ShowTemperatureUnits() {
  const bool chosen = optTempUnit.Selected() >= 0;
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    // Without a choice the values that follow it keep the unit of their input type; the others have none.
    const bool follows = DataCell(row, kTemperature) == u"Item21" && chosen;
    const bool shows_it = DataCell(row, kUnitText) == u"$in" && DataCell(row, kUnitKey).empty();
    if ((follows || shows_it) && !DataCell(row, kUnitLabel).empty()) {
      PutUnit(row, TemperatureUnit());
    }
  }
}

void ParameterPage::ShowInputTypeUnits(int i10_row) {
  const ChoiceList types = Def.ListOf(kInputTypeKey);
  const bool none = i10_row < 0 || types.Code(i10_row).empty();
  ShowUnitsOf(kInputTypeKey, none ? String() : types.Cell(i10_row, &ListColumns::unit));
}

void ParameterPage::ShowUnitsOf(StringView unit_key, const String& unit) {
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    if (DataCell(row, kUnitKey) == unit_key && !DataCell(row, kUnitLabel).empty()) {
      PutUnit(row, unit);
    }
  }
}

int ParameterPage::Place(int row, DataColumn column, int count) const {
  const String& text = DataCell(row, column);
  const int place = LeadingInteger(text);
  if (place < 0 || place >= count) {
    throw RuntimeFailure(DefFile + u" の $Data " + Ascii(std::to_string(row + 1)) + u"行目の" +
                         Ascii(std::to_string(Def.ColumnOf(column) + 1)) + u"番目の欄「" + text +
                         u"」に当たる部品が画面にありません。");
  }
  return place;
}

const String& ParameterPage::SetCell(int row) const {
  return GroupItem.At(DataCell(row, kGroup), DataCell(row, kItem));
}

String ParameterPage::TemperatureUnit() const {
  const int place = optTempUnit.Selected();
  return place < 0 ? String() : optTempUnit[place].Caption();
}

const UnitList* ParameterPage::FindUnitList(const String& key) const {
  const std::span<const UnitList> lists = UnitLists();
  const auto found =
      std::find_if(lists.begin(), lists.end(), [&](const UnitList& list) { return list.key == key; });
  return found == lists.end() ? nullptr : &*found;
}

String ParameterPage::UnitFrom(const UnitList& list) const {
  const ChoiceList choices = Def.ListOf(list.key);
  const int row = choices.FindText(Item(list.item));
  return row < 0 ? String() : choices.Cell(row, &ListColumns::unit);
}

const OptionRule* ParameterPage::FindOptionRule(StringView key) const {
  const auto rule = std::find_if(option_rules_.begin(), option_rules_.end(), [&](const OptionRule& one) {
    return one.key == key && one.models.IsAllOrHas(DefFile);
  });
  return rule == option_rules_.end() ? nullptr : &*rule;
}

const OptionRule* ParameterPage::RuleOf(const OptionGroup& options) const {
  const auto rule = std::find_if(option_rules_.begin(), option_rules_.end(), [&](const OptionRule& one) {
    return one.options == &options && FindOptionRule(one.key) == &one;
  });
  return rule == option_rules_.end() ? nullptr : &*rule;
}

}  // namespace korva

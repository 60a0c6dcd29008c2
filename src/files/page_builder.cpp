// Shows the parameter set in the page's fields, row by row of the definition.

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "files/parameter_page.h"

namespace korva {

namespace {

constexpr int kBodyTitles = 3;  ///< titles that have a column of texts in $I11Body
constexpr int kMillivoltBox = 1;
constexpr int kMillivoltColumn = 2;
constexpr int kMillivoltRow = 4;
constexpr StringView kNoFilter = u"0:NO FILTER";
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

void ParameterPage::BuildPage() {
  const Scope building(building_);
  txtAuthor.SetText(GroupItem.Author);
  txtMemo.SetText(GroupItem.Memo);
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    if (DataCell(row, kOnPage) == u"Y") {
      BuildRow(row);
    }
  }
  ShowModelControls();
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
  ShowFurther(row);
}

void ParameterPage::ShowField(int row) {
  TextField& field = Text[Place(row, kTextIndex, Text.Count())];
  field.SetVisible(true);
  OpenField(field);
  if (SetCell(row) == kNeedless) {
    CloseField(field);
  } else {
    field.SetText(ShownText(row));
  }
  if (Fixed(row)) {
    field.SetLocked(true);
    field.SetLook(Look::Grey);
  } else if (Traits().filter_follows_type) {
    ApplyFilterRule();
  }
}

void ParameterPage::ApplyFilterRule() {
  const bool unfiltered = Item(23) == kNoFilter;
  for (int item = 24; item <= 30; ++item) {
    const String name = Ascii(std::to_string(item));
    TextField* field = FindField(name);
    if (field == nullptr) {
      continue;
    }
    if (unfiltered) {
      CloseField(*field);
    } else if (!Fixed(FindDataRow(u"01", name))) {
      OpenField(*field);
    }
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
  const StringTable& table = Def[rule->table];
  switch (rule->fill) {
    case ListFill::InputType:
      FillInputTypes(box, row, table);
      ShowInputTypeUnits(FindI10Row(box.Text()));
      break;
    case ListFill::Range:
      FillRangeList(box, TitleIndex(InputTypeRow()));
      ApplyMillivoltRule(box.Text());
      break;
    case ListFill::Whole:
      for (int entry = 0; entry < table.Rows(); ++entry) {
        box.AddEntry(table.At(entry, 1));
      }
      break;
  }
}

void ParameterPage::FillInputTypes(ComboBox& box, int row, const StringTable& types) {
  const String& change_rule = DataCell(row, kChangeRule);
  if (change_rule == u"Y") {
    if (Traits().lists_fixed_input_type) {
      box.AddEntry(types.At(0, 1));
      box.SetText(types.At(0, 1));
    }
    CloseBox(box);
  } else if (change_rule == u"N") {
    for (int entry = 0; entry < types.Rows(); ++entry) {
      box.AddEntry(types.At(entry, 1));
    }
    CloseBox(box);
  } else if (change_rule == kInputTypeKey) {
    const int present = FindI10Row(SetCell(row));
    if (present >= 0 && types.At(present, 5) == u"Y") {
      CloseBox(box);
      return;
    }
    for (int entry = types.FindRow(5, u"N"); entry >= 0; entry = types.FindRow(5, u"N", entry + 1)) {
      box.AddEntry(types.At(entry, 1));
    }
  }
}

void ParameterPage::FillRangeList(ComboBox& box, int title) {
  OpenBox(box);
  if (title == 0) {
    CloseBox(box);
  }
  if (title < 1 || title > kBodyTitles) {
    return;
  }
  const StringTable& body = Def[u"$I11Body"];
  for (int row = 0; row < body.Rows(); ++row) {
    box.AddEntry(body.At(row, title));
  }
  box.SetText(ShownValue(Item(11)));
}

void ParameterPage::ShowOptions(int row) {
  const std::optional<OptionRule> rule = FindOptionRule(DataCell(row, kChoiceKey));
  if (!rule) {
    return;
  }
  OptionGroup& options = *rule->options;
  const StringTable& table = Def[rule->table];
  for (int place = 0; place < options.Count(); ++place) {
    const String caption = place < table.Rows() ? table.At(place, 1) : String();
    options[place].SetVisible(!rule->captions_from_table || !caption.empty());
    options[place].SetEnabled(true);
    if (rule->captions_from_table) {
      options[place].SetCaption(caption);
    }
  }
  const String& cell = SetCell(row);
  const int place = cell.empty() ? -1 : table.FindRow(1, cell);
  if (place < 0 || place >= options.Count() || table.At(place, 0).empty()) {
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
    const std::optional<OptionRule> rule = FindOptionRule(DataCell(row, kChoiceKey));
    if (DataCell(row, kDefaultOption).empty() || !rule || !SetCell(row).empty()) {
      continue;
    }
    OptionGroup& options = *rule->options;
    options[Place(row, kDefaultOption, options.Count())].SetValue(true);
    if (Fixed(row)) {
      FixOptions(row, options);
    }
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
    label.SetCaption(UnitFrom(*list));
  } else if (unit == u"$in") {
    label.SetCaption(TemperatureUnit());
  } else if (!unit.empty()) {
    label.SetCaption(unit);
  }
}

void ParameterPage::ShowTemperatureUnits() {
  const bool chosen = optTempUnit.Selected() >= 0;
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    // Without a choice the values that follow it keep the unit of their input type; the others have none.
    const bool follows = DataCell(row, kTemperature) == u"Item21" && chosen;
    const bool shows_it = DataCell(row, kUnitText) == u"$in" && DataCell(row, kUnitKey).empty();
    if ((follows || shows_it) && !DataCell(row, kUnitLabel).empty()) {
      lbl_unit[Place(row, kUnitLabel, lbl_unit.Count())].SetCaption(TemperatureUnit());
    }
  }
}

void ParameterPage::ShowInputTypeUnits(int i10_row) {
  const StringTable& types = Def[kInputTypeKey];
  const bool none = i10_row < 0 || types.At(i10_row, 0).empty();
  ShowUnitsOf(kInputTypeKey, none ? String() : types.At(i10_row, 8));
}

void ParameterPage::ShowUnitsOf(StringView unit_key, const String& unit) {
  for (int row = 0; row < Def.Data().Rows(); ++row) {
    if (DataCell(row, kUnitKey) == unit_key && !DataCell(row, kUnitLabel).empty()) {
      lbl_unit[Place(row, kUnitLabel, lbl_unit.Count())].SetCaption(unit);
    }
  }
}

void ParameterPage::ApplyMillivoltRule(const String& range) {
  const StringTable& body = Def[u"$I11Body"];
  if (!Combo.Has(kMillivoltBox)) {
    return;
  }
  const std::vector<String>& entries = Combo[kMillivoltBox].Entries();
  if (static_cast<int>(entries.size()) != body.Rows()) {
    return;
  }
  for (int row = 0; row < body.Rows(); ++row) {
    if (entries[static_cast<std::size_t>(row)] != body.At(row, kMillivoltColumn)) {
      return;
    }
  }
  ShowUnitsOf(kInputTypeKey, range == body.At(kMillivoltRow, kMillivoltColumn) ? u"mV" : u"V");
}

int ParameterPage::Place(int row, DataColumn column, int count) const {
  const String& text = DataCell(row, column);
  const int place = LeadingInteger(text);
  if (place < 0 || place >= count) {
    throw RuntimeFailure(DefFile + u" の $Data " + Ascii(std::to_string(row + 1)) + u"行目の" +
                         Ascii(std::to_string(column + 1)) + u"番目の欄「" + text +
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
  const StringTable& table = Def[list.key];
  const int row = table.FindRow(1, Item(list.item));
  return row < 0 ? String() : table.At(row, 2);
}

std::optional<OptionRule> ParameterPage::FindOptionRule(StringView key) {
  const std::vector<OptionRule> rules = Options();
  const auto rule =
      std::find_if(rules.begin(), rules.end(), [&](const OptionRule& one) { return one.key == key; });
  return rule == rules.end() ? std::nullopt : std::optional(*rule);
}

}  // namespace korva

// What a choice of the input type or the range means for the other items, model by model.

#include "pages/kv_config/rules.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/kv_config/kv_config.h"

namespace korva {

namespace {

constexpr int kRangeBox = 1;
constexpr StringView kRangeTable = u"$I11Body";
constexpr int kVoltageTitle = 2;
constexpr int kMillivoltRow = 4;  ///< the one of the voltages that is told in mV
constexpr StringView kNoFilter = u"0:NO FILTER";
constexpr StringView kInputTypeKey = u"$I10";
constexpr StringView kSensorKey = u"$I11QEI";

/// Input types of QUO without a range of their own: straight, linearizer and the two square roots.
constexpr std::array<StringView, 4> kTypesWithoutRange = {u"11", u"21", u"41", u"42"};
constexpr StringView kLinearizerType = u"21";

}  // namespace

KvConfigRules::KvConfigRules(KvConfig& page) : page_(page) { page_.Add(*this); }

void KvConfigRules::RowShown(int row) {
  const KvConfigModel& model = page_.Model();
  if (model.filter_follows_type && !page_.DataCell(row, kTextIndex).empty() && !page_.Fixed(row)) {
    ApplyFilterRule();
  }
  if (page_.DataCell(row, kComboIndex).empty()) {
    return;
  }
  ComboBox& box = page_.Combo[page_.Place(row, kComboIndex, page_.Combo.Count())];
  const String& key = page_.DataCell(row, kChoiceKey);
  if (key == kInputTypeKey && page_.Fixed(row) && model.lists_fixed_input_type) {
    ListFixedInputType(box);
  } else if (key == u"$I11") {
    ApplyMillivoltRule(box.Text());
  }
}

void KvConfigRules::PageBuilt() {
  if (Frame* frame = TemperatureFrame()) {
    frame->SetEnabled(page_.Item(21) != kNeedless);
  }
}

void KvConfigRules::ChoiceMade(const Choice& choice) {
  if (choice.options != nullptr) {
    return;
  }
  if (choice.item == u"11" && choice.key != kSensorKey) {
    ApplyMillivoltRule(page_.Item(11));
  } else if (choice.item == u"23" && page_.Model().filter_follows_type) {
    ApplyFilterRule();
  }
  ApplyModelRules(choice.item);
}

void KvConfigRules::ListFixedInputType(ComboBox& box) {
  const String& text = page_.Def.ListOf(kInputTypeKey).Text(0);
  box.AddEntry(text);
  box.SetText(text);
  page_.ShowInputTypeUnits(page_.FindI10Row(text));
}

void KvConfigRules::ApplyMillivoltRule(const String& range) {
  const ChoiceList voltages = page_.Def.ListOf(kRangeTable).UnderTitle(kVoltageTitle);
  if (!page_.Combo.Has(kRangeBox)) {
    return;
  }
  const std::vector<String>& entries = page_.Combo[kRangeBox].Entries();
  if (static_cast<int>(entries.size()) != voltages.Rows()) {
    return;
  }
  for (int row = 0; row < voltages.Rows(); ++row) {
    if (entries[static_cast<std::size_t>(row)] != voltages.Text(row)) {
      return;
    }
  }
  page_.ShowUnitsOf(kInputTypeKey, range == voltages.Text(kMillivoltRow) ? u"mV" : u"V");
}

void KvConfigRules::ApplyFilterRule() {
  const bool unfiltered = page_.Item(23) == kNoFilter;
  for (int item = 24; item <= 30; ++item) {
    const String name = Ascii(std::to_string(item));
    TextField* field = page_.FindField(name);
    if (field == nullptr) {
      continue;
    }
    if (unfiltered) {
      ParameterPage::CloseField(*field);
    } else if (!page_.Fixed(page_.FindDataRow(name))) {
      ParameterPage::OpenField(*field);
    }
  }
}

void KvConfigRules::ApplyModelRules(const String& item) {
  const KvConfigModel& model = page_.Model();
  if (model.range_follows_type && item == u"10") {
    ListRangeAnew();
  }
  if (model.range_follows_type && (item == u"10" || item == u"11")) {
    ApplyRangeDefaults();
    page_.BuildPage();
  }
  if (model.resets_range_on_type && item == u"10") {
    ResetRangeToType();
  }
  if (page_.DefFile == u"QUO.def" && item == u"10") {
    RuleQUO();
  }
  if (page_.DefFile == u"QH.def") {
    RuleQH();
  }
  if (page_.DefFile == u"QHG.def") {
    RuleQHG();
  }
}

void KvConfigRules::ListRangeAnew() {
  if (page_.TitleIndex(page_.InputTypeRow()) == 0) {
    page_.SetItem(11, {});
  }
  page_.FillRangeList(page_.Combo[kRangeBox]);
}

void KvConfigRules::ApplyRangeDefaults() {
  const std::optional<ChoiceList> ranges = page_.RangesOfType();
  const int row = !ranges || page_.Item(11).empty() ? -1 : ranges->FindText(page_.Item(11));
  if (row < 0) {
    return;
  }
  page_.SetItem(14, Trimmed(ranges->Cell(row, &ListColumns::preset_low)));
  page_.SetItem(15, Trimmed(ranges->Cell(row, &ListColumns::preset_high)));
}

void KvConfigRules::SelectCelsius() {
  page_.optTempUnit[0].SetValue(true);
  page_.SetItem(21, page_.Def.ListOf(u"$I21").Text(0));
}

void KvConfigRules::ResetRangeToType() {
  SelectCelsius();
  if (const int row = page_.InputTypeRow(); row >= 0) {
    const ChoiceList types = page_.Def.ListOf(kInputTypeKey);
    page_.SetItem(14, types.Cell(row, &ListColumns::preset_low));
    page_.SetItem(15, types.Cell(row, &ListColumns::preset_high));
  }
  page_.BuildPage();
  if (Frame* frame = TemperatureFrame()) {
    frame->SetVisible(true);
  }
}

String KvConfigRules::InputTypeCode() const {
  const int row = page_.InputTypeRow();
  return row < 0 ? String() : page_.Def.ListOf(kInputTypeKey).Code(row);
}

Frame* KvConfigRules::TemperatureFrame() {
  const int row = page_.FindDataRow(u"21");
  if (row < 0 || page_.DataCell(row, kFrameIndex).empty()) {
    return nullptr;
  }
  const int index = LeadingInteger(page_.DataCell(row, kFrameIndex));
  return page_.Frames.Has(index) ? &page_.Frames[index] : nullptr;
}

void KvConfigRules::RuleQUO() {
  TextField* zero = page_.FindField(u"14");
  TextField* span = page_.FindField(u"15");
  if (zero == nullptr || span == nullptr) {
    return;
  }
  const String code = InputTypeCode();
  const bool ranged =
      std::find(kTypesWithoutRange.begin(), kTypesWithoutRange.end(), code) == kTypesWithoutRange.end();
  if (ranged) {
    ParameterPage::OpenField(*zero);
    ParameterPage::OpenField(*span);
    ResetRangeToType();
  } else {
    ParameterPage::CloseField(*zero);
    ParameterPage::CloseField(*span);
    for (const int item : {14, 15, 21}) {
      page_.SetItem(item, String(kNeedless));
    }
    if (Frame* frame = TemperatureFrame()) {
      frame->SetEnabled(false);
    }
  }
  page_.Tabs.SetTabEnabled(page_.TabWith(TextKey::Linearizer), code == kLinearizerType);
}

void KvConfigRules::RuleQH() {
  const String code = InputTypeCode();
  OpenOrCloseItems(code != u"2" && code != u"1", {21, 24, 25}, {21, 24, 25});
}

// An open input type empties item 24, not item 26: the device keeps item 26 of no use.
void KvConfigRules::RuleQHG() { OpenOrCloseItems(InputTypeCode() != u"1", {21, 25, 26}, {21, 24, 25}); }

void KvConfigRules::OpenOrCloseItems(bool open, std::initializer_list<int> items,
                                     std::initializer_list<int> emptied) {
  const auto field_of = [this](int item) { return page_.FindField(Ascii(std::to_string(item))); };
  if (std::any_of(items.begin(), items.end(), [&](int item) { return field_of(item) == nullptr; })) {
    return;
  }
  if (open) {
    for (const int item : items) {
      ParameterPage::OpenField(*field_of(item));
    }
    for (const int item : emptied) {
      if (TextField* field = field_of(item)) {
        field->SetText({});
      }
      page_.SetItem(item, {});
    }
    return;
  }
  for (const int item : items) {
    ParameterPage::CloseField(*field_of(item));
    page_.SetItem(item, String(kNeedless));
  }
}

}  // namespace korva

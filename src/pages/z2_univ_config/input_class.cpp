#include "pages/z2_univ_config/input_class.h"

#include <algorithm>

#include "transfer/known_items.h"
#include "transfer/preset_values.h"

namespace korva {

namespace {

constexpr StringView kClasses = u"$I00";
constexpr StringView kInputs = u"$I10";
constexpr StringView kFirstOutputs = u"$I11";
constexpr StringView kSecondOutputs = u"$I41";
constexpr int kClassItem = 0;
constexpr int kUnitItem = 21;

/// An item that some classes have; in the order of kInputClasses.
struct ClassItem {
  StringView item;
  std::array<bool, kInputClasses.size()> in_class;
};
constexpr auto kClassItems = std::to_array<ClassItem>({
    {.item = u"21", .in_class = {false, true, true, false}},
    {.item = u"23", .in_class = {false, true, false, false}},
    {.item = u"24", .in_class = {false, true, true, true}},
    {.item = u"25", .in_class = {true, false, false, true}},
});

constexpr RangeChoice kInput = {
    .item = kTypeItem, .list = kInputs, .low_item = kZeroItem, .high_item = kSpanItem};
constexpr RangeChoice kFirstOutput = {
    .item = kRangeItem, .list = kFirstOutputs, .low_item = kOutputZeroItem, .high_item = kOutputSpanItem};
constexpr RangeChoice kSecondOutput = {.item = kSecondOutputTypeItem,
                                       .list = kSecondOutputs,
                                       .low_item = kSecondOutputZeroItem,
                                       .high_item = kSecondOutputSpanItem};

bool HasItem(const ClassItem& item, StringView key) {
  const auto* const found = std::find(kInputClasses.begin(), kInputClasses.end(), key);
  return found != kInputClasses.end() &&
         item.in_class.at(static_cast<std::size_t>(found - kInputClasses.begin()));
}

}  // namespace

InputClass::InputClass(ParameterPage& page) : page_(page) { page_.Add(*this); }

StringView InputClass::KeyOfInput() const {
  const String& input = page_.Item(kTypeItem);
  const auto* const key = std::find_if(kInputClasses.begin(), kInputClasses.end(), [&](StringView one) {
    return !input.empty() && page_.Def.ListOf(one).FindText(input) >= 0;
  });
  return key == kInputClasses.end() ? StringView() : *key;
}

bool InputClass::Settle() {
  const StringView before = Key();
  const StringView now = KeyOfInput();
  page_.Def.ChooseList(now);
  for (const ClassItem& item : kClassItems) {
    if (const int row = page_.FindDataRow(item.item); row >= 0) {
      SetFlag(row, HasItem(item, now));
    }
  }
  return before != now;
}

void InputClass::SetFlag(int row, bool has) {
  for (const DataColumn column : {kUploaded, kOnPage}) {
    page_.Def[u"$Data"].Set(row, page_.Def.ColumnOf(column), has ? u"Y" : u"N");
  }
}

void InputClass::PageBuilt() {
  if (Settle()) {
    page_.BuildPage();
    return;
  }
  for (const ClassItem& item : kClassItems) {
    if (const int row = page_.FindDataRow(item.item); row >= 0 && page_.DataCell(row, kOnPage) != u"Y") {
      HideRow(row);
    }
  }
  ShowClass();
  ShowUnits();
}

void InputClass::SettleTabs(TabMoment moment) {
  if (moment == TabMoment::FileOpened) {
    page_.ApplyDefaults();
  }
}

void InputClass::HideRow(int row) {
  const auto hide = [&](auto& controls, DataColumn index) {
    if (!page_.DataCell(row, index).empty()) {
      controls[page_.Place(row, index, controls.Count())].SetVisible(false);
    }
  };
  hide(page_.lbl_Item, kNumberLabel);
  hide(page_.CaptionLabels, kLabel);
  hide(page_.Frames, kFrameIndex);
  if (const OptionRule* rule = page_.FindOptionRule(page_.DataCell(row, kChoiceKey))) {
    rule->options->SetVisible(false);
    rule->options->Clear();
  }
}

void InputClass::ShowClass() {
  const int row = page_.FindDataRow(u"00");
  if (row < 0) {
    return;
  }
  const ChoiceList classes = page_.Def.ListOf(kClasses);
  const int place = Key().empty() ? -1 : classes.Find(&ListColumns::list, Key());
  page_.SetItem(kClassItem, place < 0 ? String() : classes.Text(place));
  page_.ShowAgain(row);
}

void InputClass::ChoiceMade(const Choice& choice) {
  if (choice.key == kClasses) {
    TakeClass(page_.Item(kClassItem));
  } else if (choice.key == kInputs) {
    BringRange(page_, kInput, UnitOfScale());
  } else if (choice.key == kFirstOutputs) {
    BringRange(page_, kFirstOutput);
  } else if (choice.key == kSecondOutputs) {
    BringRange(page_, kSecondOutput);
  } else if (choice.options == &page_.optTempUnit) {
    ShowUnits();
  }
}

void InputClass::TakeClass(const String& text) {
  const ChoiceList classes = page_.Def.ListOf(kClasses);
  const int place = classes.FindText(text);
  const String key = place < 0 ? String() : classes.Cell(place, &ListColumns::list);
  if (!page_.Def.Has(key)) {
    return;
  }
  const ChoiceList inputs = page_.Def.ListOf(key);
  page_.SetItem(kTypeItem, inputs.Rows() == 0 ? String() : inputs.Text(0));
  page_.BuildPage();
  page_.ApplyDefaults();  // what only this class has may never have been chosen
  BringRange(page_, kInput, UnitOfScale());
}

// --- units

std::optional<String> InputClass::UnitOf(int row) const {
  if (page_.DataCell(row, kUnitKey) == kInputs) {
    return UnitOfScale();
  }
  return row == page_.FindDataRow(u"06") ? std::optional(UnitOfSignal()) : std::nullopt;
}

void InputClass::ShowUnits() { page_.ShowUnitsOf(kInputs, UnitOfScale()); }

String InputClass::UnitOfScale() const {
  if (Key() == kThermocoupleInputs || Key() == kResistanceInputs) {
    return TemperatureUnit();
  }
  return Key() == kPotentiometerInputs ? String(u"%") : UnitOfInput();
}

String InputClass::UnitOfSignal() const {
  if (Key() == kThermocoupleInputs) {
    return u"mV";
  }
  return Key() == kResistanceInputs ? String(u"Ohm") : UnitOfScale();
}

String InputClass::UnitOfInput() const {
  const int row = page_.InputTypeRow();
  return Key() != kDirectInputs || row < 0 ? String()
                                           : page_.Def.ListOf(kInputs).Cell(row, &ListColumns::unit);
}

String InputClass::TemperatureUnit() const {
  const ChoiceList units = page_.Def.ListOf(u"$I21");
  const String& unit = page_.Item(kUnitItem);
  const int row = unit.empty() ? -1 : units.FindText(unit);
  return row < 0 ? String() : units.Cell(row, &ListColumns::unit);
}

}  // namespace korva

// What a choice of the input type or the range means for the other items, model by model.

#include <algorithm>
#include <array>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/kv_config/kv_config.h"

namespace korva {

namespace {

constexpr int kRangeBox = 1;

/// Input types of QUO without a range of their own: straight, linearizer and the two square roots.
constexpr std::array<StringView, 4> kTypesWithoutRange = {u"11", u"21", u"41", u"42"};
constexpr StringView kLinearizerType = u"21";

}  // namespace

void KvConfig::ApplyModelRules(const String& item) {
  const ModelTraits& traits = Traits();
  if (traits.range_follows_type && item == u"10") {
    ListRangeAnew();
  }
  if (traits.range_follows_type && (item == u"10" || item == u"11")) {
    ApplyRangeDefaults();
    BuildPage();
  }
  if (traits.resets_range_on_type && item == u"10") {
    ResetRangeToType();
  }
  if (DefFile == u"QUO.def" && item == u"10") {
    RuleQUO();
  }
  if (DefFile == u"QH.def") {
    RuleQH();
  }
  if (DefFile == u"QHG.def") {
    RuleQHG();
  }
}

void KvConfig::ListRangeAnew() {
  const int title = TitleIndex(InputTypeRow());
  if (title == 0) {
    SetItem(11, {});
  }
  FillRangeList(Combo[kRangeBox], title);
}

void KvConfig::ApplyRangeDefaults() {
  const int title = TitleIndex(InputTypeRow());
  if (title < 1 || title > 3) {
    return;
  }
  const StringTable& body = Def[u"$I11Body"];
  const int row = Item(11).empty() ? -1 : body.FindRow(title, Item(11));
  if (row < 0) {
    return;
  }
  SetItem(14, Trimmed(body.At(row, 2 * title + 2)));
  SetItem(15, Trimmed(body.At(row, 2 * title + 3)));
}

void KvConfig::SelectCelsius() {
  optTempUnit[0].SetValue(true);
  SetItem(21, Def[u"$I21"].At(0, 1));
}

void KvConfig::ResetRangeToType() {
  SelectCelsius();
  if (const int row = InputTypeRow(); row >= 0) {
    SetItem(14, Def[u"$I10"].At(row, 2));
    SetItem(15, Def[u"$I10"].At(row, 3));
  }
  BuildPage();
  if (Frame* frame = TemperatureFrame()) {
    frame->SetVisible(true);
  }
}

String KvConfig::InputTypeCode() const {
  const int row = InputTypeRow();
  return row < 0 ? String() : Def[u"$I10"].At(row, 0);
}

Frame* KvConfig::TemperatureFrame() {
  const int row = FindDataRow(u"01", u"21");
  if (row < 0 || DataCell(row, kFrameIndex).empty()) {
    return nullptr;
  }
  const int index = LeadingInteger(DataCell(row, kFrameIndex));
  return Frames.Has(index) ? &Frames[index] : nullptr;
}

void KvConfig::RuleQUO() {
  TextField* zero = FindField(u"14");
  TextField* span = FindField(u"15");
  if (zero == nullptr || span == nullptr) {
    return;
  }
  const String code = InputTypeCode();
  const bool ranged =
      std::find(kTypesWithoutRange.begin(), kTypesWithoutRange.end(), code) == kTypesWithoutRange.end();
  if (ranged) {
    OpenField(*zero);
    OpenField(*span);
    ResetRangeToType();
  } else {
    CloseField(*zero);
    CloseField(*span);
    for (const int item : {14, 15, 21}) {
      SetItem(item, String(kNeedless));
    }
    if (Frame* frame = TemperatureFrame()) {
      frame->SetEnabled(false);
    }
  }
  Tabs.SetTabEnabled(LnrTab(), code == kLinearizerType);
}

void KvConfig::RuleQH() {
  const String code = InputTypeCode();
  OpenOrCloseItems(code != u"2" && code != u"1", {21, 24, 25}, {21, 24, 25});
}

// An open input type empties item 24, not item 26: the device keeps item 26 of no use.
void KvConfig::RuleQHG() { OpenOrCloseItems(InputTypeCode() != u"1", {21, 25, 26}, {21, 24, 25}); }

void KvConfig::OpenOrCloseItems(bool open, std::initializer_list<int> items,
                                std::initializer_list<int> emptied) {
  const auto field_of = [this](int item) { return FindField(Ascii(std::to_string(item))); };
  if (std::any_of(items.begin(), items.end(), [&](int item) { return field_of(item) == nullptr; })) {
    return;
  }
  if (open) {
    for (const int item : items) {
      OpenField(*field_of(item));
    }
    for (const int item : emptied) {
      if (TextField* field = field_of(item)) {
        field->SetText({});
      }
      SetItem(item, {});
    }
    return;
  }
  for (const int item : items) {
    CloseField(*field_of(item));
    SetItem(item, String(kNeedless));
  }
}

}  // namespace korva

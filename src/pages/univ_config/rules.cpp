#include "pages/univ_config/rules.h"

#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/univ_config/input_choice.h"
#include "pages/univ_config/univ_config.h"
#include "transfer/conversion.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr int kSwitchItem = 23;
constexpr int kSwitchOn = 1;
/// Options that some inputs have no use for: temperature unit, linearizer, burnout.
constexpr std::array kSensorItems = {21, kSwitchItem, 24};

/// The item whose choice decides whether the user sets this end of a range; -1 for any other item.
int ChoiceOfEnd(int item) {
  switch (item) {
    case kZeroItem:
    case kSpanItem:
      return kTypeItem;
    case kOutputZeroItem:
    case kOutputSpanItem:
      return kRangeItem;
    default:
      return -1;
  }
}

}  // namespace

UnivConfigRules::UnivConfigRules(UnivConfig& page) : page_(page) {
  page_.Add(*this);
  page_.Register(lbl_Tc99User);
  lbl_Tc99User.SetVisible(false);
}

void UnivConfigRules::RowShown(int row) {
  const int item = ItemOf(page_, row);
  const int choice = ChoiceOfEnd(item);
  const bool fixed = choice >= 0 && !page_.Item(choice).empty() &&
                     !IsOfUse(item, page_.Item(kTypeItem), page_.Item(kRangeItem));
  if (TextField* field = fixed ? page_.FindField(page_.KeyOf(row)) : nullptr) {
    field->SetLocked(true);
    field->SetLook(Look::Grey);
  }
}

void UnivConfigRules::ChoiceMade(const Choice& choice) {
  if (choice.options != nullptr) {
    page_.MarkEdited();
  } else if (choice.item == u"10") {
    TakeInput();
  } else if (choice.item == u"11") {
    TakeOutput();
  }
}

void UnivConfigRules::TakeInput() {
  BeginAnew();
  page_.units.FollowInput();
  const int row = page_.InputTypeRow();
  if (row >= 0) {
    const ChoiceList types = page_.Def.ListOf(kInputTypes);
    Bring(kZeroItem, InShownUnit(types.Cell(row, &ListColumns::preset_low), true));
    Bring(kSpanItem, InShownUnit(types.Cell(row, &ListColumns::preset_high), false));
  }
  page_.linearizer.FollowInput();
  ShowWhatApplies();
}

void UnivConfigRules::TakeOutput() {
  const ChoiceList outputs = page_.Def.ListOf(kOutputTypes);
  const int row = outputs.FindText(page_.Item(kRangeItem));
  if (row >= 0) {
    Bring(kOutputZeroItem, outputs.Cell(row, &ListColumns::preset_low));
    Bring(kOutputSpanItem, outputs.Cell(row, &ListColumns::preset_high));
  }
  ShowWhatApplies();
}

void UnivConfigRules::BeginAnew() {
  for (const int item : kSensorItems) {
    const int row = page_.FindDataRow(FormatMask(item, u"00"));
    if (row >= 0 && page_.Item(item) == kNeedless && IsOfUse(item, page_.Item(kTypeItem), {})) {
      page_.SetItem(item, {});
      page_.ShowAgain(row);
      page_.ApplyDefault(row);
    }
  }
}

void UnivConfigRules::Bring(int item, const String& value) {
  page_.SetItem(item, value);
  if (const int row = page_.FindDataRow(FormatMask(item, u"00")); row >= 0) {
    page_.ShowAgain(row);
  }
}

String UnivConfigRules::InShownUnit(const String& preset, bool up) const {
  const String unit = page_.TemperatureUnit();
  const bool other = unit == kDegF || unit == kKelvin;
  if (preset.empty() || !other || !IsTemperature(ClassOfInput(page_.Item(kTypeItem)))) {
    return preset;
  }
  const double limit = LimitInUnit(LeadingNumber(preset), unit);
  return ShortestText(up ? WholeUp(limit) : WholeDown(limit));
}

String UnivConfigRules::TableKind() const {
  const int row = page_.InputTypeRow();
  return row < 0 ? String() : page_.Def.ListOf(kInputTypes).Cell(row, &ListColumns::kind);
}

void UnivConfigRules::ShowWhatApplies() {
  const String& hint = TableHintText(TableKind());
  lbl_Tc99User.SetCaption(hint);
  lbl_Tc99User.SetVisible(!hint.empty());
  ShowSwitch();
  SettleOptions();
}

void UnivConfigRules::SettleOptions() {
  const String& input = page_.Item(kTypeItem);
  const bool undecided = ClassOfInput(input) == InputClass::None;
  for (const int item : kSensorItems) {
    const int row = page_.FindDataRow(FormatMask(item, u"00"));
    if (row >= 0 && !page_.DataCell(row, kFrameIndex).empty()) {
      Frame& frame = page_.Frames[page_.Place(row, kFrameIndex, page_.Frames.Count())];
      frame.SetEnabled(page_.Item(item) != kNeedless && (undecided || IsOfUse(item, input, {})));
    }
  }
}

void UnivConfigRules::ShowSwitch() {
  const LnrQuantity* quantity = page_.linearizer.Quantity();
  const bool forced = quantity != nullptr && quantity->is_input_curve;
  OptionGroup& options = page_.linearizer.Opt_Lnr;
  const int row = page_.FindDataRow(FormatMask(kSwitchItem, u"00"));
  if (forced) {
    options.Mark(kSwitchOn);
    options.SetEnabled(false);
  } else if (row >= 0 && !options[kSwitchOn].Enabled() && !page_.Fixed(row)) {
    page_.ShowAgain(row);  // a user's curve had locked it
  } else if (row < 0) {
    options.Clear();
  }
}

}  // namespace korva

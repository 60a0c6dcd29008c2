#include "pages/z2_kv_config_v5/input_classes.h"

#include <array>

#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kInputs = u"$I11";
constexpr StringView kSupplies = u"$I08";
constexpr StringView kLineReceiver = u"4";
constexpr int kSupplyItem = 8;
constexpr int kThresholdItem = 9;

// Boxes by their indexes.
constexpr int kInputBox = 3;
constexpr int kSupplyBox = 5;
constexpr int kThresholdBox = 10;

}  // namespace

InputClasses::InputClasses(ParameterPage& page, Threshold& threshold) : page_(page), threshold_(threshold) {
  page_.Add(*this);
}

void InputClasses::ChoiceMade(const Choice& choice) {
  if (choice.options == nullptr) {
    check_input_type();
  }
}

void InputClasses::TabEntered(int tab) {
  if (tab == page_.TabWith(TextKey::IoCheck)) {
    check_input_type();
  }
}

bool InputClasses::IsLineReceiver() const {
  const ChoiceList inputs = page_.Def.ListOf(kInputs);
  const String& input = page_.Combo[kInputBox].Text();
  const int row = input.empty() ? -1 : inputs.FindText(input);
  return row >= 0 && inputs.Cell(row, &ListColumns::input_class) == kLineReceiver;
}

bool InputClasses::RS422_upload_check() {
  if (!IsLineReceiver()) {
    return false;
  }
  ComboBox& supply = page_.Combo[kSupplyBox];
  supply.Clear();
  supply.SetLocked(true);
  supply.SetLook(Look::Grey);
  ParameterPage::CloseField(page_.Text[kThresholdBox]);
  // Behind the fields, whose change goes into the set.
  page_.SetItem(kSupplyItem, Trimmed(page_.Def.ListOf(kSupplies).Text(0)));
  page_.SetItem(kThresholdItem, u"0");
  threshold_.SetUsable(false);
  return true;
}

void InputClasses::check_input_type() {
  if (!RS422_upload_check()) {
    Open();
  }
}

void InputClasses::Open() {
  if (!threshold_.Usable()) {
    for (const StringView item : {u"08", u"09"}) {
      if (const int row = page_.FindDataRow(item); row >= 0) {
        page_.ShowAgain(row);
      }
    }
  }
  threshold_.SetUsable(true);
}

}  // namespace korva

// The value check of the page of family QXI.

#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/univ_config/input_choice.h"
#include "pages/univ_config/transfer.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr std::array kNumberItems = {
    kZeroItem,     kSpanItem,      26, 29, 27, 30, kOutputZeroItem, kOutputSpanItem,
    kScaleLowItem, kScaleHighItem, 80, 81, 82, 83};

}  // namespace

bool UnivConfigCheck::CheckValues() {
  return fields_.CheckTag() && CheckNumbers() && CheckInputRange() && CheckOutputRange() &&
         fields_.CheckScale();
}

std::optional<FieldRange> UnivConfigCheck::RangeOf(int row) const {
  const int item = fields_.ItemOf(row);
  auto range = Narrowed(FieldChecks::RangeOfTag(item), fields_.RangeOfScale(item));
  if (JudgesInputRange()) {
    range = Narrowed(range, fields_.RangeOfZeroSpan(item, false));
  }
  return JudgesOutputRange() ? Narrowed(range, fields_.RangeOfOutput(item)) : range;
}

bool UnivConfigCheck::Judges(int item) const {
  const String key = FormatMask(item, u"00");
  const TextField* field = page_.FindField(key);
  if (field == nullptr || field->Locked() || page_.Item(item) == kNeedless) {
    return false;
  }
  return form_.Applies(page_.FindDataRow(key));
}

bool UnivConfigCheck::CheckNumbers() {
  bool good = true;
  for (const int item : kNumberItems) {
    if (!Judges(item)) {
      continue;
    }
    TextField& field = *page_.FindField(FormatMask(item, u"00"));
    const bool number = IsNumeric(Trimmed(field.Text()));
    field.SetLook(number ? Look::Normal : Look::Bad);
    good = good && number;
  }
  return good;
}

bool UnivConfigCheck::JudgesInputRange() const {
  const bool limited = ClassOfInput(page_.Item(kTypeItem)) != InputClass::None;
  return limited && Judges(kZeroItem) && Judges(kSpanItem);
}

bool UnivConfigCheck::JudgesOutputRange() const { return Judges(kOutputZeroItem) && Judges(kOutputSpanItem); }

bool UnivConfigCheck::CheckInputRange() { return !JudgesInputRange() || fields_.CheckZeroSpan(false); }

bool UnivConfigCheck::CheckOutputRange() { return !JudgesOutputRange() || fields_.CheckOutputRange(); }

}  // namespace korva

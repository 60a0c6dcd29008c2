#include "tables/user_table_fields.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/table_exchange.h"

namespace korva {

namespace {

/// A range of the device's resistance measurement.
struct ResistanceRange {
  StringView code;
  StringView text;
};
constexpr auto kRanges = std::to_array<ResistanceRange>({{.code = u"0", .text = u"8000 ohm"},
                                                         {.code = u"1", .text = u"1000 ohm"},
                                                         {.code = u"2", .text = u"300 ohm"},
                                                         {.code = u"3", .text = u"150 ohm"},
                                                         {.code = u"4", .text = u"50 ohm"}});

constexpr StringView kTemperatureUnit = u"deg C";

/// Text of the range that files and devices may tell by its text, its code or its number of ohms; empty for
/// none.
String RangeText(StringView told) {
  const String text = Trimmed(told);
  const auto* const range = std::find_if(kRanges.begin(), kRanges.end(), [&](const ResistanceRange& one) {
    return text == one.code || text == one.text || text == one.text.substr(0, one.text.find(u' '));
  });
  return range == kRanges.end() ? String() : String(range->text);
}

bool IsBlank(const TextField& field) { return Trimmed(field.Text()).empty(); }

/// A number, and a whole one within the limits where there are some.
bool IsGood(const String& text, const std::optional<LnrLimits>& limits) {
  if (!IsNumeric(text)) {
    return false;
  }
  const double number = LeadingNumber(text);
  return !limits || (number == std::floor(number) && IsBetween(limits->high, limits->low, number));
}

bool HasScale(UserTable table) { return table == UserTable::Thermocouple || table == UserTable::Resistance; }

}  // namespace

UserTableFields::UserTableFields(ParameterPage& page, const UserTableFamily& family)
    : page_(page), family_(family) {
  page_.RegisterAll<Control>(
      {&lblStep, &lblBase, &lblSize, &lblStepUnit, &lblBaseUnit, &txtStep, &txtBase, &txtSize});
  if (family_.ranged) {
    page_.RegisterAll<Control>({&lblRange, &cmbRange});
  }
  for (TextField* field : {&txtStep, &txtBase, &txtSize}) {
    field->SetNumeric(true);
    field->OnChange = [this] { Changed(); };
  }
  for (const ResistanceRange& range : kRanges) {
    cmbRange.AddEntry(String(range.text));
  }
  cmbRange.OnClick = [this] { Changed(); };
}

void UserTableFields::Changed() {
  if (!showing_) {
    page_.MarkEdited();
  }
  if (OnChange) {
    OnChange();
  }
}

void UserTableFields::SetCaptions(Language language) {
  lblStep.SetCaption(CaptionText(TextKey::TablePitch, language));
  lblBase.SetCaption(CaptionText(TextKey::TableBase, language));
  lblSize.SetCaption(CaptionText(TextKey::TableSize, language));
  lblRange.SetCaption(CaptionText(TextKey::Range, language));
  lblStepUnit.SetCaption(String(kTemperatureUnit));
  lblBaseUnit.SetCaption(String(kTemperatureUnit));
}

void UserTableFields::SetEnabled(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{&txtStep, &txtBase, &txtSize, &cmbRange}) {
    control->SetEnabled(enabled);
  }
}

void UserTableFields::Show(UserTable table) {
  for (Control* control :
       std::initializer_list<Control*>{&lblStep, &txtStep, &lblStepUnit, &lblBase, &txtBase, &lblBaseUnit}) {
    control->SetVisible(HasScale(table));
  }
  lblRange.SetVisible(HasRange(table));
  cmbRange.SetVisible(HasRange(table));
}

void UserTableFields::ShowText(TextField& field, const String& text) {
  showing_ = true;
  field.SetText(text);
  showing_ = false;
}

void UserTableFields::ShowRange(const String& text) { cmbRange.SetText(text); }

void UserTableFields::Take(const Texts& texts) {
  ShowText(txtBase, texts[0]);
  ShowText(txtStep, texts[1]);
  ShowText(txtSize, texts[2]);
  ShowRange(RangeText(texts[3]));
}

UserTableFields::Texts UserTableFields::Held() const {
  return {txtBase.Text(), txtStep.Text(), txtSize.Text(), cmbRange.Text()};
}

void UserTableFields::Take(const CsvHeads& heads, UserTable table) {
  if (HasScale(table)) {
    ShowText(txtBase, heads.base.value_or(txtBase.Text()));
    ShowText(txtStep, heads.step.value_or(txtStep.Text()));
  }
  ShowText(txtSize, heads.size.value_or(txtSize.Text()));
  if (heads.range && HasRange(table)) {
    ShowRange(RangeText(*heads.range));
  }
}

CsvHeads UserTableFields::Heads(UserTable table) const {
  CsvHeads heads = {.size = txtSize.Text()};
  if (HasScale(table)) {
    heads.base = txtBase.Text();
    heads.step = txtStep.Text();
  }
  if (HasRange(table)) {
    heads.range = cmbRange.Text();
  }
  return heads;
}

void UserTableFields::TakeStep(const String& answer) {
  if (family_.most_step > 0 && LeadingNumber(answer) > family_.most_step) {
    TakeSize(Ascii(std::to_string(family_.most_step)));
  } else {
    ShowText(txtStep, answer);
  }
}

void UserTableFields::TakeBase(const String& answer) { ShowText(txtBase, answer); }

void UserTableFields::TakeSize(const String& size) { ShowText(txtSize, size); }

void UserTableFields::TakeRange(const String& code) {
  const auto* const range = std::find_if(kRanges.begin(), kRanges.end(),
                                         [&](const ResistanceRange& one) { return one.code == code; });
  ShowRange(range == kRanges.end() ? String() : String(range->text));
}

int UserTableFields::Size() const { return PointCount(txtSize.Text()).value_or(0); }

String UserTableFields::RangeCode() const {
  const auto* const range = std::find_if(kRanges.begin(), kRanges.end(), [this](const ResistanceRange& one) {
    return one.text == cmbRange.Text();
  });
  return range == kRanges.end() ? String() : String(range->code);
}

Control* UserTableFields::Blank(UserTable table) {
  for (TextField* field : {&txtStep, &txtBase}) {
    if (HasScale(table) && IsBlank(*field)) {
      return field;
    }
  }
  if (IsBlank(txtSize)) {
    return &txtSize;
  }
  return HasRange(table) && RangeCode().empty() ? &cmbRange : nullptr;
}

Control* UserTableFields::Check(UserTable table, const UserTableForm& form) {
  const std::optional<int> size = PointCount(txtSize.Text());
  const std::array<std::pair<TextField*, bool>, 3> findings = {
      {{&txtStep, !HasScale(table) || IsGood(txtStep.Text(), family_.steps)},
       {&txtBase, !HasScale(table) || IsGood(txtBase.Text(), family_.bases)},
       {&txtSize, size && *size >= form.fewest && *size <= form.most}}};
  Control* first = nullptr;
  for (const auto& [field, good] : findings) {
    field->SetLook(good ? Look::Normal : Look::Bad);
    first = first == nullptr && !good ? field : first;
  }
  return first;
}

std::optional<FieldRange> UserTableFields::RangeOf(const TextField& field, const UserTableForm& form) const {
  if (&field == &txtSize) {
    return FieldRange{.low = static_cast<double>(form.fewest), .high = static_cast<double>(form.most)};
  }
  const std::optional<LnrLimits> limits = &field == &txtStep   ? family_.steps
                                          : &field == &txtBase ? family_.bases
                                                               : std::nullopt;
  return limits ? std::optional(FieldRange{.low = limits->low, .high = limits->high}) : std::nullopt;
}

void UserTableFields::ClearMarks() {
  for (TextField* field : {&txtStep, &txtBase, &txtSize}) {
    field->SetLook(Look::Normal);
  }
}

}  // namespace korva

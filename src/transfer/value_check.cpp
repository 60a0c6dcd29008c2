#include "transfer/value_check.h"

#include <string>
#include <utility>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

bool IsEmpty(const TextField& field) { return field.Visible() && field.Enabled() && field.Text().empty(); }

}  // namespace

ValueCheck::ValueCheck(ParameterPage& page, const RowForm& form, CheckSteps& steps)
    : page_(page), form_(form), steps_(steps) {
  page_.Add(*this);
  page_.cmdCheck.OnClick = [this] { Run(); };
}

std::optional<FieldRange> ValueCheck::RangeOfRow(int row) const { return steps_.RangeOf(row); }

void ValueCheck::Run() {
  page_.LockFrame();
  if (CheckAllValues()) {
    page_.TransferBar.SetValue(100);
    page_.Box().Show(BoxKey::CheckDone);
  }
  page_.ResetBars();
  page_.UnlockFrame();
  GoToFault();
}

void ValueCheck::NoteBad() {
  fault_ = page_.FirstShown([this](const Control& control) {
    return control.IsBad() && page_.KeptTabEnabled(page_.TabOf(control));
  });
}

void ValueCheck::GoToFault() {
  if (Control* fault = std::exchange(fault_, nullptr)) {
    page_.GoTo(*fault);
  }
}

bool ValueCheck::CheckAllValues() {
  for (PagePart* part : page_.Parts()) {
    part->SetTaken();
  }
  switch (FindFault()) {
    case Finding::Blank:
      page_.Box().Show(BoxKey::FieldBlank);
      return false;
    case Finding::Bad:
      page_.Box().Show(BoxKey::ValueBad);
      return false;
    case Finding::Good:
      break;
  }
  return true;
}

Finding ValueCheck::FindFault() {
  fault_ = nullptr;
  if (!CheckBlankFields()) {
    return Finding::Blank;
  }
  page_.TransferBar.SetValue(5);
  if (!steps_.CheckValues()) {
    NoteBad();
    return Finding::Bad;
  }
  if (const Finding parts = CheckParts(); parts != Finding::Good) {
    return parts;
  }
  if (!CheckChoices()) {
    NoteBad();
    return Finding::Bad;
  }
  page_.TransferBar.SetValue(10);
  return Finding::Good;
}

Finding ValueCheck::CheckParts() {
  for (PagePart* part : page_.Parts()) {
    if (const Finding finding = part->Check(); finding != Finding::Good) {
      fault_ = part->Checked();
      return finding;
    }
  }
  return Finding::Good;
}

bool ValueCheck::CheckBlankFields() {
  if (const int tag = page_.FindTextIndex(u"02"); tag >= 0 && IsEmpty(page_.Text[tag])) {
    page_.SetItem(kTagItem, String(kEmptyTag));
  }
  fault_ = page_.FirstShown([this](const Control& control) {
    const auto* const field = dynamic_cast<const TextField*>(&control);
    const auto* const box = dynamic_cast<const ComboBox*>(&control);
    return (field != nullptr && IsBlank(*field)) || (box != nullptr && IsBlank(*box));
  });
  for (int index = 0; index < page_.Text.Count() && fault_ == nullptr; ++index) {
    fault_ = IsBlank(page_.Text[index]) ? &page_.Text[index] : nullptr;
  }
  return fault_ == nullptr;
}

bool ValueCheck::IsBlank(const TextField& field) const {
  return field.Name() == page_.Text[0].Name() && IsEmpty(field) && !field.Locked() &&
         field.Index() != page_.FindTextIndex(u"02") && !MayBeBlank(field.Index());
}

bool ValueCheck::IsBlank(const ComboBox& box) const {
  if (box.Name() != page_.Combo[0].Name() || !box.Text().empty() || box.Locked()) {
    return false;
  }
  const int row = page_.FindComboRow(box.Index());
  return row < page_.Def.Data().Rows() && page_.NeedsChoice(row);
}

bool ValueCheck::MayBeBlank(int index) const {
  const String number = Ascii(std::to_string(index));
  for (int row = page_.Def.FindRow(kTextIndex, number); row >= 0;
       row = page_.Def.FindRow(kTextIndex, number, row + 1)) {
    if (page_.MayBeBlank(row) || !form_.Applies(row)) {
      return true;
    }
  }
  return false;
}

bool ValueCheck::CheckChoices() {
  bool good = true;
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    const int index = LeadingInteger(page_.DataCell(row, kComboIndex));
    if (!page_.IsWritten(row) || page_.DataCell(row, kComboIndex).empty() || !page_.Combo.Has(index)) {
      continue;
    }
    ComboBox& box = page_.Combo[index];
    if (!form_.HasCode(row)) {
      box.SetLook(Look::Bad);
      good = false;
    } else if (box.ShownLook() == Look::Bad) {
      box.SetLook(Look::Normal);
    }
  }
  return good;
}

}  // namespace korva

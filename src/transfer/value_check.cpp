#include "transfer/value_check.h"

#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/known_items.h"

namespace korva {

ValueCheck::ValueCheck(ParameterPage& page, const RowForm& form, CheckSteps& steps)
    : page_(page), form_(form), steps_(steps) {
  page_.cmdCheck.OnClick = [this] { Run(); };
}

void ValueCheck::Run() {
  page_.LockFrame();
  if (CheckAllValues()) {
    page_.TransferBar.SetValue(100);
    page_.Box().Show(BoxKey::CheckDone);
  }
  page_.ResetBars();
  page_.UnlockFrame();
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
  if (!CheckBlankFields()) {
    return Finding::Blank;
  }
  page_.TransferBar.SetValue(5);
  if (!steps_.CheckValues()) {
    return Finding::Bad;
  }
  if (const Finding parts = CheckParts(); parts != Finding::Good) {
    return parts;
  }
  if (!CheckChoices()) {
    return Finding::Bad;
  }
  page_.TransferBar.SetValue(10);
  return Finding::Good;
}

Finding ValueCheck::CheckParts() {
  for (PagePart* part : page_.Parts()) {
    if (const Finding finding = part->Check(); finding != Finding::Good) {
      return finding;
    }
  }
  return Finding::Good;
}

bool ValueCheck::CheckBlankFields() {
  const int tag = page_.FindTextIndex(u"02");
  for (int index = 0; index < page_.Text.Count(); ++index) {
    const TextField& field = page_.Text[index];
    if (!field.Visible() || !field.Enabled() || !field.Text().empty()) {
      continue;
    }
    if (index == tag) {
      page_.SetItem(kTagItem, String(kEmptyTag));
    } else if (!field.Locked() && !IsLiveField(index)) {
      return false;
    }
  }
  return true;
}

bool ValueCheck::IsLiveField(int index) const {
  const String number = Ascii(std::to_string(index));
  for (int row = page_.Def.FindRow(kTextIndex, number); row >= 0;
       row = page_.Def.FindRow(kTextIndex, number, row + 1)) {
    if (page_.IsLive(row)) {
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

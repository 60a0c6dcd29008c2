#include "transfer/value_check.h"

#include <algorithm>
#include <array>

#include "transfer/known_items.h"

namespace korva {

ValueCheck::ValueCheck(ParameterPage& page, CheckSteps& steps) : page_(page), steps_(steps) {
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
  const Finding parts = CheckParts();
  if (parts == Finding::Good) {
    page_.TransferBar.SetValue(10);
  }
  return parts;
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

std::span<const StringView> CheckSteps::LiveItems() const {
  static constexpr std::array<StringView, 7> items = {u"03_set", u"03_mon", u"04", u"05",
                                                      u"06",     u"07",     u"08"};
  return items;
}

bool ValueCheck::IsLiveField(int index) const {
  const auto items = steps_.LiveItems();
  return std::any_of(items.begin(), items.end(), [&](StringView item) {
    const String key(item);
    return page_.FindTextIndex(key) == index && !page_.IsWritten(page_.FindDataRow(key));
  });
}

}  // namespace korva

#include "pages/univ_config/transfer.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/univ_config/input_choice.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr int kLastRow = 36;

}  // namespace

bool UnivConfigForm::Applies(int row) const {
  return IsOfUse(ItemOf(Page(), row), Page().Item(kTypeItem), Page().Item(kRangeItem));
}

std::optional<CodeTable> UnivConfigForm::CodesOf(int item) const {
  std::optional<CodeTable> codes = CodesOfRow(FormatMask(item, u"00"));
  const OptionRule* rule = codes ? Page().FindOptionRule(codes->key) : nullptr;
  if (rule != nullptr) {
    codes->holds = rule->keeps;
  }
  return codes;
}

float UnivConfigUpload::ProgressAt(int row, int /*rows*/) const {
  return static_cast<float>(row) / kLastRow * 70 + 20;
}

String UnivConfigDownload::WriteChecked(const WriteEntry& entry) {
  Page().Shared().LastItemReply.clear();
  return DownloadSteps::WriteChecked(entry);
}

bool UnivConfigDownload::WasRefused() const {
  const String& reply = Page().Shared().LastItemReply;
  return reply == u"CNG" || reply == u"CNU";
}

String UnivConfigDownload::Proof(const WriteEntry& entry, const String& echo) const {
  return echo.empty() && WasRefused() ? String() : DownloadSteps::Proof(entry, echo);
}

bool UnivConfigDownload::CompareReply(const WriteEntry& entry, const String& reply) const {
  const String& key = Page().DataCell(entry.row, kChoiceKey);
  if (!entry.prefix.empty() || Page().FindOptionRule(key) == nullptr) {
    return DownloadSteps::CompareReply(entry, reply);
  }
  const ChoiceList list = Page().Def.ListOf(key);
  const int row = list.FindCode(entry.data);
  return reply == entry.data || (row >= 0 && reply == list.Text(row));
}

void UnivConfigDownload::ShowWriteFailure(const WriteEntry& entry, const String& reply) {
  const Boxes& box = Page().Box();
  const String place = u"Group=" + entry.item.group + u" Item=" + entry.item.item;
  if (!reply.empty()) {
    box.Show(BoxKey::ItemDownloadMismatch, {place});
  } else if (WasRefused()) {
    box.Show(BoxKey::ItemDownloadError, {place, Page().Shared().LastItemReply.substr(1)});
  } else {
    box.Show(BoxKey::ItemWriteFailed, {entry.item.group, entry.item.item});
  }
}

}  // namespace korva

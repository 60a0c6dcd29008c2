#include <algorithm>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/columns.h"
#include "transfer/transfer_page.h"

namespace korva {

void TransferPage::DownloadCommand() {
  if (!Box().Ask(BoxKey::StartDownload)) {
    return;
  }
  BeginDownload();
  LockFrame();
  if (DownloadValues()) {
    Box().Show(BoxKey::DownloadDone);
    CheckPendingQuit();
  } else {
    EndDownload();
  }
  UnlockFrame();
}

bool TransferPage::DownloadValues() {
  if (!LinkTest() || !ModelChosen() || !EnterMonitorMode() || !CheckInputType()) {
    return false;
  }
  RoundValues();
  if (!CheckAllValues() || !CheckChoices() || !WriteAllItems()) {
    return false;
  }
  TransferBar.SetValue(0);
  if (TableInUse() && !DownloadTable()) {
    LnrProgressBar.SetValue(0);
    return false;
  }
  return true;
}

bool TransferPage::CheckInputType() {
  const StringTable& types = Def[u"$I10"];
  const String in_device = Trimmed(Items().ReadRetry(kRepeats, u"01", u"10"));
  const int device_row = FindI10Row(in_device);
  if (device_row < 0) {
    return true;
  }
  const String chosen = Trimmed(Item(kTypeItem));
  if (types.At(device_row, kTypeSettable) != u"Y") {
    if (chosen == in_device) {
      return true;
    }
    const bool named = CaptionLabels.Has(device_row) && CaptionLabels[device_row].Visible();
    Box().Show(BoxKey::InputTypeMismatch, {named ? CaptionLabels[device_row].Caption() : String()});
    return false;
  }
  const int chosen_row = FindI10Row(chosen);
  if (chosen_row >= 0 && types.At(chosen_row, kTypeSettable) == u"N") {
    Box().Show(BoxKey::InputTypeNotSettable);
    return false;
  }
  return true;
}

bool TransferPage::CheckChoices() {
  const StringTable& data = Def.Data();
  bool good = true;
  for (int row = 0; row < data.Rows(); ++row) {
    const int index = LeadingInteger(DataCell(row, kComboIndex));
    if (!IsWritten(row) || DataCell(row, kComboIndex).empty() || !Combo.Has(index)) {
      continue;
    }
    ComboBox& box = Combo[index];
    if (!HasCode(row)) {
      box.SetLook(Look::Bad);
      good = false;
    } else if (box.ShownLook() == Look::Bad) {
      box.SetLook(Look::Normal);
    }
  }
  if (!good) {
    Box().Show(BoxKey::ValueBad);
  }
  return good;
}

bool TransferPage::HasCode(int row) const {
  const std::optional<CodeTable> codes = CodesToSend(row);
  const String& item = DataCell(row, kItem);
  const String& cell = GroupItem.At(DataCell(row, kGroup), item);
  if (!codes || Def[codes->key].FindRow(codes->text_column, cell) >= 0) {
    return true;
  }
  // Either spelling will be brought into the device's own.
  const auto spelt = [&](const SensorTexts& texts) {
    return std::find(texts.begin(), texts.end(), Trimmed(cell)) != texts.end();
  };
  return Traits().spells_by_version && LeadingInteger(item) == kTypeItem &&
         (spelt(ShortSensorTexts()) || spelt(LongSensorTexts()));
}

std::optional<CodeTable> TransferPage::CodesToSend(int row) const {
  const String& group = DataCell(row, kGroup);
  const String& item = DataCell(row, kItem);
  const String& cell = GroupItem.At(group, item);
  const bool choice = IsChoice(row) && group == u"01";
  return choice && !cell.empty() && cell != kNeedless && IsToBeWritten(row) ? CodesOf(LeadingInteger(item))
                                                                            : std::nullopt;
}

bool TransferPage::BeginWriting() {
  if (!EnterProgrammingMode()) {
    return false;
  }
  if (Traits().spells_by_version) {
    CollateSpelling();
  }
  return true;
}

void TransferPage::CollateSpelling() {
  const SensorTexts& device_texts = SensorTextsOf(Items().ReadRetry(kRepeats, u"00", u"99"));
  const SensorTexts& other_texts =
      &device_texts == &ShortSensorTexts() ? LongSensorTexts() : ShortSensorTexts();
  const String chosen = Trimmed(Item(kTypeItem));
  for (const SensorTexts* texts : {&other_texts, &device_texts}) {
    const auto* const found = std::find(texts->begin(), texts->end(), chosen);
    if (found != texts->end()) {
      SetItem(kTypeItem, String(device_texts[static_cast<std::size_t>(found - texts->begin())]));
      break;
    }
  }
  SpellInputTypes(device_texts);
  BuildPage();
}

void TransferPage::AdaptDefinition() {
  const String& version = GroupItem.At(0, kVersionItem);
  if (Traits().spells_by_version && !version.empty()) {
    SpellInputTypes(SensorTextsOf(version));
  }
}

void TransferPage::SpellInputTypes(const SensorTexts& texts) {
  StringTable& types = Def[u"$I10"];
  for (int row = 0; row < kSensorTexts; ++row) {
    types.Set(row, kTypeText, String(texts[static_cast<std::size_t>(row)]));
  }
}

bool TransferPage::WriteAllItems() {
  if (!BeginWriting()) {
    return false;
  }
  WriteList list;
  BuildWriteList(list);
  const bool written = WriteVerifyList(list);
  EnterMonitorMode();
  TransferBar.SetValue(written ? 100 : 0);
  return written;
}

void TransferPage::BuildWriteList(WriteList& list) {
  TransferBar.SetValue(15);
  const StringTable& data = Def.Data();
  for (int row = 0; row < data.Rows(); ++row) {
    if (!IsWritten(row)) {
      continue;
    }
    const String& position = DataCell(row, kWritePosition);
    const int place = LeadingInteger(position);
    if (place < 0 || place >= kWritePositions) {
      throw RuntimeFailure(u"定義ファイル " + DefFile + u" の Item" + data.At(row, kItem) +
                           u" の書込み順 \"" + position + u"\" は 0 から 20 の範囲外です。");
    }
    list[static_cast<std::size_t>(place)] = EntryOf(row);
  }
  TransferBar.SetValue(20);
}

WriteEntry TransferPage::EntryOf(int row) const {
  WriteEntry entry{.group = DataCell(row, kGroup), .item = DataCell(row, kItem), .prefix = ReplyPrefix(row)};
  const String& cell = GroupItem.At(entry.group, entry.item);
  if (cell.empty() || !IsToBeWritten(row)) {
    return entry;
  }
  entry.source = cell;
  if (cell == kNeedless) {
    entry.data = cell;
  } else if (!IsChoice(row)) {
    entry.data = DataOf(row, cell);
  } else if (const std::optional<CodeTable> codes = CodesToSend(row)) {
    entry.data = CodeOf(*codes, entry.item, cell);
  }
  return entry;
}

String TransferPage::DataOf(int /*row*/, const String& cell) const {
  return cell == kEmptyTag ? cell : Trimmed(cell);
}

bool TransferPage::IsToBeWritten(int row) const {
  const String& condition = DataCell(row, kWriteCondition);
  if (!Applies(row)) {
    return false;
  }
  if (condition == u"Y") {
    return true;
  }
  const int type = InputTypeRow();
  if (type < 0) {
    return false;
  }
  const StringTable& types = Def[u"$I10"];
  return (condition == u"$I10" && types.At(type, kTypeSettable) == u"Y") ||
         (condition == u"$I10_CNECTI11" && !types.At(type, kTypeTitle).empty());
}

String TransferPage::CodeOf(const CodeTable& codes, const String& item, const String& text) const {
  const StringTable& table = Def[codes.key];
  const int row = table.FindRow(codes.text_column, text);
  if (row < 0) {
    throw RuntimeFailure(u"Item" + item + u" の設定値 \"" + text + u"\" に対応するコードが定義ファイル " +
                         DefFile + u" の " + String(codes.key) + u" にありません。");
  }
  return table.At(row, 0);
}

std::optional<CodeTable> TransferPage::RangeCodesUnderTitle() const {
  const int title = TitleIndex(InputTypeRow());
  if (title < 1 || title > kRangeTitles) {
    return std::nullopt;
  }
  return CodeTable{.key = u"$I11Body", .text_column = title};
}

bool TransferPage::WriteVerifyList(WriteList& list) {
  for (int position = 0; position < kWritePositions; ++position) {
    WriteEntry& entry = list[static_cast<std::size_t>(position)];
    if (!entry.data.empty() && entry.data != kNeedless && !WriteVerified(entry)) {
      return false;
    }
    TransferBar.SetValue(static_cast<float>(position * 70.0 / (kWritePositions - 1) + 20));
  }
  return true;
}

bool TransferPage::WriteVerified(WriteEntry& entry) {
  const bool tag = LeadingInteger(entry.item) == kTagItem;
  if (Traits().drops_trailing_point && !tag && entry.data.back() == u'.') {
    entry.data = ShortestText(LeadingNumber(entry.data));
  }
  String reply = WriteChecked(entry);
  AfterWrite();
  if (entry.item == u"14" || entry.item == u"15") {
    // The device moves zero and span within limits of its own, so what it holds counts and not its echo.
    reply = Items().ReadRetry(kRepeats, entry.group, entry.item);
    if (reply == u"ERROR" || reply == kNeedless) {
      reply.clear();
    }
  }
  if (reply.empty() || !CompareReply(entry, reply)) {
    ShowWriteFailure(entry, reply);
    return false;
  }
  entry.reply = reply;
  return true;
}

String TransferPage::WriteChecked(const WriteEntry& entry) {
  // The tag is written even where it can't be read.
  if (Items().ReadRetry(kRepeats, entry.group, entry.item).empty() &&
      LeadingInteger(entry.item) != kTagItem) {
    return {};
  }
  return WriteData(entry);
}

String TransferPage::WriteData(const WriteEntry& entry) {
  return Items().WriteRetry(kRepeats, entry.group, entry.item, entry.data);
}

void TransferPage::ShowWriteFailure(const WriteEntry& /*entry*/, const String& /*reply*/) {
  Box().Show(BoxKey::DownloadDataMismatch);
}

}  // namespace korva

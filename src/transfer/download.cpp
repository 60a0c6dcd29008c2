#include "transfer/download.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/known_items.h"
#include "transfer/upload.h"

namespace korva {

bool DownloadSteps::ConfirmModel() { return ModelChosen(page_); }

bool DownloadSteps::Collate() { return CollateInputType(page_); }

Download::Download(ParameterPage& page, const RowForm& form, ValueCheck& check, DownloadSteps& steps)
    : page_(page), form_(form), check_(check), steps_(steps), numbers_(page, [this](int row) {
        return DataToSend(form_.CarrierOf(row));
      }) {
  page_.cmdDownload.OnClick = [this] { Run(); };
}

void Download::Run() {
  if (page_.OperationRuns() || !page_.Box().Ask(BoxKey::StartDownload)) {
    return;
  }
  page_.BeginDownload();
  page_.LockFrame();
  numbers_.BeginSending();
  page_.TellBegan(Transfer::Download);
  const bool done = DownloadValues();
  page_.TellEnded(done);
  if (done) {
    page_.Box().Show(BoxKey::DownloadDone);
    page_.CheckPendingQuit();
  } else {
    page_.EndDownload();
  }
  page_.UnlockFrame();
  check_.GoToFault();
}

bool Download::DownloadValues() {
  if (!page_.LinkTest() || !steps_.ConfirmModel() || !page_.EnterMonitorMode() || !steps_.Collate()) {
    return false;
  }
  steps_.RoundValues();
  if (!check_.CheckAllValues() || !WriteAllItems()) {
    return false;
  }
  page_.TransferBar.SetValue(0);
  return DownloadParts();
}

bool Download::DownloadParts() {
  const auto& parts = page_.Parts();
  return std::all_of(parts.begin(), parts.end(), [](PagePart* part) { return part->Download(); });
}

namespace {

/// A choice that some devices have from their maker, for good.
struct FixedChoice {
  StringView item;  ///< of group "01"
  StringView list;
  BoxKey mismatch;      ///< (caption)
  BoxKey not_settable;  ///< (caption), or without an argument
};
constexpr FixedChoice kInputType = {.item = u"10",
                                    .list = u"$I10",
                                    .mismatch = BoxKey::InputTypeMismatch,
                                    .not_settable = BoxKey::InputTypeNotSettable};
constexpr FixedChoice kOutputType = {.item = u"11",
                                     .list = u"$I11",
                                     .mismatch = BoxKey::OutputTypeMismatch,
                                     .not_settable = BoxKey::OutputTypeMismatch};

int RowOf(const ChoiceList& list, const String& text) { return text.empty() ? -1 : list.FindText(text); }

/// The device's choice as it reports it.
String InDevice(const ParameterPage& page, const FixedChoice& choice) {
  return Trimmed(page.Items().ReadRetry(kItemRepeats, {.group = u"01", .item = String(choice.item)}));
}

/// Tells how the device's choice was collated; nothing was sent.
void TellCollated(const ParameterPage& page, const FixedChoice& choice, const String& in_device, bool good) {
  const Evidence fault = in_device.empty() ? EvidenceOfFailure(page.Line().LastReply()) : Evidence::Differs;
  page.TellStep({.row = page.FindDataRow(choice.item),
                 .item = {.group = u"01", .item = String(choice.item)},
                 .sent = Trimmed(page.Item(LeadingInteger(choice.item))),
                 .answered = in_device,
                 .evidence = good ? Evidence::Collated : fault,
                 .only_due = true});
}

/// What speaks against the chosen one; nothing where nothing does. `device_row` is that of `in_device`, the
/// device's choice, in `device_list`.
std::optional<BoxKey> FaultOf(const ParameterPage& page, const FixedChoice& choice, const String& in_device,
                              const ChoiceList& device_list, int device_row) {
  const String chosen = Trimmed(page.Item(LeadingInteger(choice.item)));
  // A list without the column fixes nothing.
  if (device_list.Has(&ListColumns::settable) && !device_list.Settable(device_row)) {
    return chosen == in_device ? std::nullopt : std::optional(choice.mismatch);
  }
  const ChoiceList list = page.Def.ListOf(choice.list);
  const int row = RowOf(list, chosen);
  return row >= 0 && list.Cell(row, &ListColumns::settable) == u"N" ? std::optional(choice.not_settable)
                                                                    : std::nullopt;
}

/// Judges as FaultOf; false after its box.
bool CollateChoice(const ParameterPage& page, const FixedChoice& choice, const String& in_device,
                   const ChoiceList& device_list, int device_row) {
  const std::optional<BoxKey> fault = FaultOf(page, choice, in_device, device_list, device_row);
  TellCollated(page, choice, in_device, !fault);
  if (fault) {
    const bool named = page.CaptionLabels.Has(device_row) && page.CaptionLabels[device_row].Visible();
    page.Box().Show(*fault, {named ? page.CaptionLabels[device_row].Caption() : String()});
  }
  return !fault;
}

}  // namespace

bool CollateInputType(const ParameterPage& page, std::span<const StringView> lists) {
  const String in_device = InDevice(page, kInputType);
  const auto in_list = [&](StringView key) {
    return page.Def.Has(key) && RowOf(page.Def.ListOf(key), in_device) >= 0;
  };
  const auto found = std::find_if(lists.begin(), lists.end(), in_list);
  if (found == lists.end()) {
    return true;
  }
  const ChoiceList list = page.Def.ListOf(*found);
  return CollateChoice(page, kInputType, in_device, list, RowOf(list, in_device));
}

bool CollateOutputType(const ParameterPage& page) {
  const String in_device = InDevice(page, kOutputType);
  const ChoiceList list = page.Def.ListOf(kOutputType.list);
  const int row = RowOf(list, in_device);
  if (row < 0) {
    TellCollated(page, kOutputType, in_device, false);
    page.Box().Show(BoxKey::OutputTypeUnknown);
    return false;
  }
  return CollateChoice(page, kOutputType, in_device, list, row);
}

bool Download::WriteAllItems() {
  if (!steps_.BeginWriting()) {
    return false;
  }
  WriteList list = BuildWriteList();
  const bool written = WriteVerifyList(list);
  page_.EnterMonitorMode();
  page_.TransferBar.SetValue(written ? 100 : 0);
  return written;
}

WriteList Download::BuildWriteList() {
  page_.TransferBar.SetValue(15);
  const StringTable& data = page_.Def.Data();
  WriteList list(static_cast<std::size_t>(data.Rows()));
  for (int row = 0; row < data.Rows(); ++row) {
    if (!page_.IsWritten(row)) {
      continue;
    }
    const String& position = page_.DataCell(row, kWritePosition);
    const int place = LeadingInteger(position);
    if (place < 0 || place >= data.Rows()) {
      throw RuntimeFailure(u"定義ファイル " + page_.DefFile + u" の Item" + page_.DataCell(row, kItem) +
                           u" の書込み順 \"" + position + u"\" は 0 から " +
                           Ascii(std::to_string(data.Rows() - 1)) + u" の範囲外です。");
    }
    list[static_cast<std::size_t>(place)] = EntryOf(row);
  }
  page_.TransferBar.SetValue(20);
  return list;
}

WriteEntry Download::EntryOf(int row) const {
  WriteEntry entry{.row = row, .item = page_.WireOf(row), .prefix = form_.ReplyPrefix(row)};
  const String& cell = page_.SetCell(row);
  entry.skip = form_.IsToBeWritten(row) ? Skip::NoValue : Skip::NotOfUse;
  if (cell.empty() || entry.skip == Skip::NotOfUse) {
    return entry;
  }
  entry.source = cell;
  if (cell == kNeedless) {
    entry.data = cell;
    entry.skip = Skip::Needless;
  } else if (!form_.IsChoice(row)) {
    entry.data = form_.DataOf(row, cell);
  } else if (const std::optional<CodeTable> codes = form_.CodesToSend(row)) {
    entry.data = CodeOf(*codes, entry.item.item, cell);
  } else {
    entry.skip = Skip::NoCode;
  }
  return entry;
}

String Download::CodeOf(const CodeTable& codes, const String& item, const String& text) const {
  const ChoiceList list = form_.ListOf(codes);
  const int row = list.Find(codes.holds, text);
  if (row < 0) {
    throw RuntimeFailure(u"Item" + item + u" の設定値 \"" + text + u"\" に対応するコードが定義ファイル " +
                         page_.DefFile + u" の " + String(codes.key) + u" にありません。");
  }
  return list.Code(row);
}

String Download::DataToSend(int row) const {
  if (!page_.IsWritten(row) || form_.IsChoice(row)) {
    return {};
  }
  const WriteEntry entry = EntryOf(row);
  return entry.data.empty() || entry.data == kNeedless ? String() : steps_.FinalData(entry);
}

namespace {

bool IsUnsent(const WriteEntry& entry) { return entry.data.empty() || entry.data == kNeedless; }

/// True for zero and span, which the device moves within limits of its own: what it holds counts, and not its
/// echo.
bool IsReadAgain(const WriteEntry& entry) { return entry.item.item == u"14" || entry.item.item == u"15"; }

}  // namespace

bool Download::WriteVerifyList(WriteList& list) {
  const int last = steps_.LastPosition();
  int position = 0;
  for (WriteEntry& entry : list) {
    if (IsUnsent(entry)) {
      TellUnwritten(entry, Evidence::Skipped);
    } else if (!WriteVerified(entry)) {
      std::for_each(list.begin() + position + 1, list.end(),
                    [this](const WriteEntry& rest) { TellUnwritten(rest, Evidence::NotReached); });
      return false;
    }
    page_.TransferBar.SetValue(static_cast<float>(std::min(position, last) * 70.0 / last + 20));
    ++position;
  }
  return true;
}

void Download::TellUnwritten(const WriteEntry& entry, Evidence evidence) const {
  if (entry.row < 0) {
    return;
  }
  const bool unsent = IsUnsent(entry);
  page_.TellStep({.row = entry.row,
                  .item = entry.item,
                  .sent = unsent ? String() : entry.data,
                  .evidence = unsent ? Evidence::Skipped : evidence,
                  .skip = unsent ? entry.skip : Skip::None,
                  .only_due = !unsent});
}

void Download::TellWritten(const WriteEntry& entry, const String& reply, bool good) const {
  const bool compared = good && steps_.ComparesReply(entry, reply);
  Evidence evidence = compared ? Evidence::Compared : Evidence::Echoed;
  if (!good) {
    evidence = Evidence::Differs;
  } else if (IsReadAgain(entry)) {
    evidence = compared ? Evidence::ReadBack : Evidence::Held;
  }
  const String sent = steps_.Wrote() ? entry.data : String();
  page_.TellSent({.row = entry.row, .item = entry.item, .sent = sent}, reply, evidence);
}

bool Download::WriteVerified(WriteEntry& entry) {
  entry.data = steps_.FinalData(entry);
  const String echo = steps_.WriteChecked(entry);
  steps_.AfterWrite();
  const String reply = steps_.Proof(entry, echo);
  for (int row = 0; !reply.empty() && row < page_.Def.Data().Rows(); ++row) {
    if (form_.CarrierOf(row) == entry.row) {
      numbers_.Sent(row, entry.data);
    }
  }
  const bool good = !reply.empty() && steps_.CompareReply(entry, reply);
  TellWritten(entry, reply, good);
  if (!good) {
    steps_.ShowWriteFailure(entry, reply);
    return false;
  }
  entry.reply = reply;
  return true;
}

String DownloadSteps::WriteChecked(const WriteEntry& entry) {
  // The tag is written even where it can't be read.
  wrote_ = !ReadBefore(entry).empty() || LeadingInteger(entry.item.item) == kTagItem;
  return wrote_ ? WriteData(entry) : String();
}

String DownloadSteps::Proof(const WriteEntry& entry, const String& echo) const {
  if (!IsReadAgain(entry)) {
    return echo;
  }
  const String held = page_.Items().ReadRetry(kItemRepeats, entry.item);
  return held == u"ERROR" || held == kNeedless ? String() : held;
}

String DownloadSteps::ReadBefore(const WriteEntry& entry) const {
  return page_.Items().ReadRetry(kItemRepeats, entry.item);
}

String DownloadSteps::WriteData(const WriteEntry& entry) {
  return page_.Items().WriteRetry(kItemRepeats, entry.item, entry.data);
}

void DownloadSteps::ShowWriteFailure(const WriteEntry& /*entry*/, const String& /*reply*/) {
  page_.Box().Show(BoxKey::DownloadDataMismatch);
}

}  // namespace korva

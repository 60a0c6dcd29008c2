#include "transfer/upload.h"

#include <algorithm>

#include "core/text_utilities.h"
#include "transfer/known_items.h"

namespace korva {

bool ModelChosen(const Page& page) {
  if (page.lst_TypeSelect.Text().empty()) {
    page.Box().Show(BoxKey::NoModelChosen);
    return false;
  }
  return true;
}

bool UploadSteps::ConfirmModel() { return ModelChosen(page_) && page_.Box().ConfirmUpload(); }

Upload::Upload(ParameterPage& page, const RowForm& form, UploadSteps& steps)
    : page_(page), form_(form), steps_(steps) {
  page_.cmdUpload.OnClick = [this] { Run(); };
}

String UploadSteps::ReadItem(int row) const {
  return page_.Items().ReadRetry(kItemRepeats, page_.WireOf(row));
}

void Upload::Run() {
  if (page_.OperationRuns() || page_.ConfirmDiscard()) {
    return;
  }
  page_.BeginOperation();
  page_.LockFrame();
  page_.TellBegan(Transfer::Upload);
  const bool begun = page_.LinkTest() && steps_.ConfirmModel();
  const Values values = begun ? UploadValues() : Values{};
  const bool done = values.complete && ReadParts();
  page_.TellEnded(done);
  if (done) {
    page_.Box().Show(BoxKey::UploadDone);
  }
  page_.EndOperation();
  page_.UnlockFrame();
  if (values.complete || values.any) {
    page_.DataChanged = true;  // the page now differs from any file
  }
  if (begun) {
    page_.SettleTabs(TabMoment::Uploaded);
  }
}

bool Upload::ReadParts() {
  const auto& parts = page_.Parts();
  return std::all_of(parts.begin(), parts.end(), [](PagePart* part) { return part->Upload(); });
}

Upload::Values Upload::UploadValues() {
  page_.UploadBusy = true;
  for (PagePart* part : page_.Parts()) {
    part->UploadBegins();
  }
  const Values values = ReadAllItems();
  page_.BuildPage();
  for (TextField* field : {&page_.txtAuthor, &page_.txtMemo, &page_.txtFileTitle}) {
    field->SetText({});
  }
  page_.UploadBusy = false;
  page_.TransferBar.SetValue(100);
  return values;
}

Upload::Values Upload::ReadAllItems() {
  page_.GroupItem.ClearItems();
  page_.TransferBar.SetValue(0);
  page_.EnterMonitorMode();  // a device that doesn't take it is read all the same
  Values values;
  const int rows = page_.Def.Data().Rows();
  for (int row = 0; row < rows; ++row) {
    if (page_.DataCell(row, kUploaded) != u"Y") {
      continue;
    }
    const RowRead read = ReadRow(row);
    if (read == RowRead::Stop) {
      return values;
    }
    values.any = values.any || read == RowRead::Read;
    page_.TransferBar.SetValue(steps_.ProgressAt(row, rows));
  }
  values.complete = true;
  page_.TransferBar.SetValue(100);
  steps_.AfterAllRead();
  return values;
}

RowRead Upload::ReadRow(int row) {
  const String answer = steps_.ReadItem(row);
  page_.TellRead({.row = row, .item = page_.WireOf(row)}, answer);
  const RowRead read = steps_.Judge(answer);
  if (read == RowRead::Stop) {
    return read;
  }
  page_.GroupItem.Set(page_.DataCell(row, kGroup), page_.DataCell(row, kItem), StripReplyPrefix(row, answer));
  if (read == RowRead::Read) {
    steps_.AfterItemRead(row);
  }
  return read;
}

String Upload::StripReplyPrefix(int row, const String& reply) const {
  const String prefix = form_.ReplyPrefix(row);
  if (reply == u"ERROR" || reply == kNeedless || prefix.empty()) {
    return Trimmed(reply);
  }
  return Trimmed(WithoutPrefix(reply, prefix));
}

}  // namespace korva

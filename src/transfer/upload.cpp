#include <array>

#include "core/text_utilities.h"
#include "transfer/columns.h"
#include "transfer/transfer_page.h"

namespace korva {

TransferPage::TransferPage(Program& program, const PageKind& kind, DeviceLink& link,
                           const FieldArrays& arrays, int groups)
    : ParameterPage(program, kind, link, arrays, groups) {
  cmdUpload.OnClick = [this] { UploadCommand(); };
  cmdDownload.OnClick = [this] { DownloadCommand(); };
  cmdCheck.OnClick = [this] { CheckCommand(); };
}

void TransferPage::SetCaptions(Language language) {
  ParameterPage::SetCaptions(language);
  constexpr std::array kUnits = {kDegC, kDegF, kKelvin};
  for (std::size_t place = 0; place < kUnits.size(); ++place) {
    optTempUnit[static_cast<int>(place)].SetCaption(String(kUnits.at(place)));
  }
}

void TransferPage::UploadCommand() {
  if (ConfirmDiscard()) {
    return;
  }
  BeginOperation();
  LockFrame();
  const bool uploaded = LinkTest() && ConfirmModel();
  if (uploaded) {
    UploadValues();
  }
  EndOperation();
  UnlockFrame();
  if (uploaded) {
    DataChanged = true;  // the page now differs from any file
    SettleLnrTab(TabMoment::Uploaded);
  }
}

void TransferPage::UploadValues() {
  UploadBusy = true;
  const ParameterSet before = GroupItem;
  ReadAllItems();
  BuildPage();
  for (TextField* field : {&txtAuthor, &txtMemo, &txtFileTitle}) {
    field->SetText({});
  }
  UploadBusy = false;
  TransferBar.SetValue(100);
  TableStep(before);
  Box().Show(BoxKey::UploadDone);
}

bool TransferPage::ModelChosen() {
  if (lst_TypeSelect.Text().empty()) {
    Box().Show(BoxKey::NoModelChosen);
    return false;
  }
  return true;
}

bool TransferPage::ConfirmModel() { return ModelChosen() && Box().ConfirmUpload(); }

void TransferPage::ReadAllItems() {
  GroupItem.ClearItems();
  TransferBar.SetValue(0);
  EnterMonitorMode();  // a device that doesn't take it is read all the same
  const StringTable& data = Def.Data();
  for (int row = 0; row < data.Rows(); ++row) {
    if (data.At(row, kUploaded) != u"Y") {
      continue;
    }
    const String& group = data.At(row, kGroup);
    const String& item = data.At(row, kItem);
    const String reply = Items().ReadRetry(kRepeats, group, item);
    GroupItem.Set(group, item, StripReplyPrefix(row, reply));
    if (!reply.empty()) {
      AfterItemRead(row);
    }
    TransferBar.SetValue(static_cast<float>(row + 1) / static_cast<float>(data.Rows()) * 100);
  }
  TransferBar.SetValue(100);
  if (Traits().spells_by_version) {
    SpellInputTypes(SensorTextsOf(GroupItem.At(0, kVersionItem)));
  }
}

String TransferPage::ReplyPrefix(int row) const { return DataCell(row, kReplyPrefix); }

String TransferPage::StripReplyPrefix(int row, const String& reply) const {
  const String prefix = ReplyPrefix(row);
  if (reply == u"ERROR" || reply == kNeedless || prefix.empty()) {
    return Trimmed(reply);
  }
  return Trimmed(WithoutPrefix(reply, prefix));
}

void TransferPage::TableStep(const ParameterSet& before) {
  const ModelTraits& traits = Traits();
  bool kept = false;
  switch (traits.table_after_upload) {
    case TableSwitch::None:
      SetTableUnsaved(false);
      return;
    case TableSwitch::Always:
    case TableSwitch::AsItStands:
      kept = !UploadTable(before);
      break;
    case TableSwitch::InputType:
      kept = InputTypeUsesTable() && !UploadTable(before);
      break;
    case TableSwitch::TableOption:
    case TableSwitch::LnrOption: {
      const OptionGroup* options = SwitchOptions(traits.table_after_upload);
      const bool switched_off = options != nullptr && options->Selected() == 0;
      Tabs.SetTabEnabled(LnrTab(), !switched_off);
      kept = !switched_off && !UploadTable(before);
      break;
    }
  }
  SetTableUnsaved(kept && TableUnsaved());
  SetUpTable(traits.table_points);
}

}  // namespace korva

#include "companions/second_page.h"

#include <algorithm>

#include "files/cfg_file.h"

namespace korva {

namespace {

Platform WithOwn(const Platform& platform, EventLoop& loop, Dialogs& dialogs) {
  return {.loop = loop,
          .port = platform.port,
          .dialogs = dialogs,
          .files = platform.files,
          .code_page = platform.code_page};
}

/// Some models keep their table in the device's memory, of which an upload reads nothing else.
bool IsOfTable(const TransferStep& step) {
  return step.what == TextKey::Linearizer || step.what == TextKey::UserTable ||
         step.what == TextKey::DeviceMemory;
}

}  // namespace

SecondPage::SecondPage(ParameterPage& first, const Families& families, const BarePageMaker& make)
    : first_(first),
      loop_(first.ItsProgram().Loop()),
      dialogs_(first.ItsProgram().Surroundings().dialogs),
      program_(WithOwn(first.ItsProgram().Surroundings(), loop_, dialogs_), first.ItsProgram().Folders(),
               families, [](Program&, const Family&) { return nullptr; }),
      page_(make(program_, first.ItsFamily())) {
  page_->Transfers = this;
  page_->Load();
  page_->lst_TypeSelect.SetListIndex(first.lst_TypeSelect.ListIndex());
  page_->TransferBar.Observe([this] { first_.TransferBar.SetValue(page_->TransferBar.Value()); });
}

Comparison::Outcome SecondPage::ReadDevice() {
  page_->cmdUpload.Click();
  first_.CommFailed = page_->CommFailed;
  return complete_ ? Comparison::Outcome::Complete : Comparison::Outcome::Broken;
}

Comparison::Outcome SecondPage::ReadFile(const String& path) {
  LineReader& lines = program_.Lines();
  if (!OpenCfgFile(lines, program_.Box(), path)) {
    return Comparison::Outcome::Broken;
  }
  const std::optional<CfgModel> model = ModelOfCfgFile(lines, page_->Models);
  const String& def_file = page_->Models.At(page_->lst_TypeSelect.ListIndex(), ModelTable::kDefFile);
  if (model && page_->Models.At(model->row, ModelTable::kDefFile) != def_file) {
    lines.CloseTextFile(kCfgHandle);
    return Comparison::Outcome::OtherModel;
  }
  page_->Shared().CfgFilePath = path;
  page_->OpenChosenFile();
  // A warning tells that the file was not read to its end; what is missing is no difference.
  table_read_ = !dialogs_.Warned();
  return dialogs_.Warned() ? Comparison::Outcome::Broken : Comparison::Outcome::Complete;
}

std::optional<Evidence> SecondPage::TableFault() const {
  const auto fault =
      std::find_if(table_.begin(), table_.end(), [](const auto& step) { return IsFailure(step.second); });
  return fault == table_.end() ? std::nullopt : std::optional(fault->second);
}

void SecondPage::StepDone(const TransferStep& step) {
  if (step.what == TextKey::DeviceMode && !IsFailure(step.evidence)) {
    first_.TellForced({});  // in monitor mode the device's output is its own
  }
  if (IsOfTable(step)) {
    table_read_ = true;
    table_[step.item.group + u"/" + step.item.item + u" " + step.part + u" " + step.sent] = step.evidence;
  }
  if (step.row >= 0 && IsFailure(step.evidence)) {
    (step.evidence == Evidence::Silent ? silent_ : untold_).insert(step.row);
  }
}

}  // namespace korva

#include "core/page.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "core/program.h"

namespace korva {

Page::Page(Program& program, const PageKind& kind)
    : Tabs(kind.tab_control, static_cast<int>(kind.design.tabs.size())), program_(program), kind_(kind) {
  RegisterFrame();
  Tabs.OnEntered = [this](int tab) {
    for (PagePart* part : parts_) {
      part->TabEntered(tab);
    }
  };
  Tabs.OnClicked = [this](int tab) {
    for (PagePart* part : parts_) {
      part->TabClicked(tab);
    }
  };
  txtMemo.SetMultiline(true);
  txtFileTitle.SetLocked(true);
  txtFileTitle.SetLook(Look::Grey);
  OptCom.RaisesWhenOn = true;
  lbl_Waitfor.SetVisible(false);
  lblWaiting.SetVisible(false);
  lblForced.SetVisible(false);
  lblHeldClose.SetVisible(false);
  flaMsg_CannotEnd.SetVisible(false);
  lblMsg_CannotEnd.PutInto(&flaMsg_CannotEnd);

  lst_TypeSelect.OnClick = [this] { OnModelSelected(); };
  OptCom.OnClick = [this](int place) { ChoosePort(place + 1); };
  cmdExit.OnClick = [this] {
    if (!OnUnload()) {
      Program::End();
    }
  };
}

Page::~Page() = default;

void Page::RegisterFrame() {
  RegisterAll<Control>(
      {&lst_TypeSelect, &lbl_TypeSelect, &cmdUpload,      &cmdDownload,      &cmdOpen,          &cmdSave,
       &cmdNew,         &cmdCheck,       &cmdExit,        &txtAuthor,        &txtMemo,          &txtDirName,
       &txtFileTitle,   &lblAuthor,      &lblMemo,        &lblDirName,       &lblFileTitle,     &Tabs,
       &TransferBar,    &lbl_Waitfor,    &lbl_FrmVersion, &flaMsg_CannotEnd, &lblMsg_CannotEnd, &lblWaiting,
       &lblForced,      &lblHeldClose,   &Notes});
  Register(OptCom);
}

void Page::Adopt(std::unique_ptr<PagePart> companion) {
  Add(*companion);
  companions_.push_back(std::move(companion));
}

void Page::PutIntoStatus(Button& button) {
  Register(button);
  status_buttons_.push_back(&button);
}

void Page::Register(Control& control) {
  controls_.push_back(&control);
  by_name_.emplace(control.FullName(), &control);
}

void Page::Register(OptionGroup& options) {
  for (int place = 0; place < options.Count(); ++place) {
    Register(options[place]);
  }
  option_groups_.push_back(&options);
}

void Page::Register(const ModalWindow& window) {
  for (Control* control : window.Controls()) {
    Register(*control);
    in_windows_.insert(control);
  }
}

void Page::OnLoad() {
  Load();
  PreparePort();
}

void Page::Load() {
  const Platform& platform = program_.Surroundings();
  AppPath = program_.Folders().installed;
  DataPath = program_.Join(program_.Folders().own, u"data");
  txtDirName.SetText(DataPath);
  const String system = program_.Join(AppPath, u"system");
  ReadModelCatalogue(program_.Lines(), system + platform.files.Separator() + u"MdlVTRMFx.jpn", Models);
  FillModelList();
  SetCaptions(Language::Japanese);
  PrepareFamilyTabs();
  DataChanged = false;
  loaded_ = true;
}

void Page::FillModelList() {
  lst_TypeSelect.Clear();
  for (int row = 0; row < ModelTable::kRows; ++row) {
    lst_TypeSelect.AddEntry(Models.At(row, ModelTable::kName));
  }
}

void Page::OnActivate() {
  ShowForced();
  lst_TypeSelect.SetTopIndex(Shared().ListTopIndex);
  lst_TypeSelect.SetListIndex(Shared().SelectedModelIndex);
  ReopenPort();
}

void Page::OnModelSelected() {
  if (OperationRuns()) {
    lst_TypeSelect.ShowListIndex(accepted_model_);
    return;
  }
  if (program_.FindFamily(FamilyOfRow(Models, lst_TypeSelect.ListIndex())) == nullptr) {
    return;
  }
  if (ConfirmDiscard()) {
    lst_TypeSelect.ShowListIndex(accepted_model_);
    return;
  }
  if (SwitchFamily() || !FindModel()) {
    return;
  }
  accepted_model_ = lst_TypeSelect.ListIndex();
  ReadModel();
  DataChanged = false;
}

bool Page::SwitchFamily() {
  const Family* family = program_.FindFamily(FamilyOfRow(Models, lst_TypeSelect.ListIndex()));
  if (family == nullptr) {
    return true;
  }
  if (family->word == kind_.family.word) {
    return false;
  }
  const auto [top, selected] = std::pair(Shared().ListTopIndex, Shared().SelectedModelIndex);
  Shared().ListTopIndex = lst_TypeSelect.TopIndex();
  Shared().SelectedModelIndex = lst_TypeSelect.ListIndex();
  if (!program_.Show(*family)) {
    Shared().ListTopIndex = top;
    Shared().SelectedModelIndex = selected;
  }
  return true;
}

bool Page::FindModel() {
  const auto row = FindModelByName(Models, lst_TypeSelect.Text());
  if (!row) {
    Box().Show(BoxKey::ModelUnknown);
    return false;
  }
  DefFile = Models.At(*row, ModelTable::kDefFile);
  return true;
}

bool Page::AskSaveChanges() {
  switch (Box().Show(BoxKey::SaveChanges)) {
    case Answer::Yes:
      return !SaveCfgFile();
    case Answer::No:
      DataChanged = false;
      ClearParameterSet();
      BuildPage();
      return false;
    default:
      return true;
  }
}

bool Page::ConfirmDiscard() { return DataChanged && AskSaveChanges(); }

bool Page::OperationRuns() const { return Shared().CommBusy; }

void Page::BeginOperation() {
  Shared().CommBusy = true;
  Shared().DownloadBusy = false;
  // A close request that a download held off is not to cut a later operation short.
  Shared().QuitRequested = false;
  lblHeldClose.SetVisible(false);
  HoldClose(TextKey::CloseAtPause);
  ResetBars();
  RestorePort();
}

void Page::BeginDownload() {
  BeginOperation();
  Shared().DownloadBusy = true;
  HoldClose(TextKey::CloseAtEnd);
}

void Page::HoldClose(TextKey what_will_happen) { lblHeldClose.SetCaption(CaptionText(what_will_happen)); }

void Page::TellForced(const String& value) {
  if (Shared().ForcedOutput != value) {
    Shared().ForcedOutput = value;
    ShowForced();
  }
}

void Page::ShowForced() {
  const String& value = Shared().ForcedOutput;
  lblForced.SetCaption(CaptionText(TextKey::OutputForced) + u"  " + value);
  lblForced.SetVisible(!value.empty());
  for (PagePart* part : parts_) {
    part->OutputForced(!value.empty());
  }
}

void Page::EndOperation() {
  Shared().CommBusy = false;
  Shared().DownloadBusy = false;
  lblHeldClose.SetVisible(false);
  ResetBars();
}

void Page::EndDownload() {
  if (!CommFailed) {
    EnterMonitorMode();
  }
  EndOperation();
  flaMsg_CannotEnd.SetVisible(false);
}

void Page::CheckPendingQuit() {
  EndDownload();
  if (Shared().QuitRequested) {
    Program::End();
  }
}

void Page::ResetBars() {
  TransferBar.SetValue(0);
  for (PagePart* part : parts_) {
    part->ResetBars();
  }
}

void Page::SetLocked(bool locked) {
  for (Control* control : std::initializer_list<Control*>{&cmdSave, &cmdCheck, &cmdExit}) {
    control->SetEnabled(!locked);
  }
  for (PagePart* part : parts_) {
    part->SetLocked(locked);
  }
  ShowBarred(locked || exchanges_barred_);
}

void Page::ShowBarred(bool barred) {
  // A file may be one of another model, which would be chosen; a new set has nothing that the loop follows.
  for (Control* control :
       std::initializer_list<Control*>{&cmdUpload, &cmdDownload, &cmdOpen, &cmdNew, &lst_TypeSelect}) {
    control->SetEnabled(!barred);
  }
  OptCom.SetEnabled(!exchanges_barred_);
  for (PagePart* part : parts_) {
    part->SetExchangesBarred(barred);
  }
}

void Page::BarExchanges() {
  exchanges_barred_ = true;
  ShowBarred(true);
}

void Page::FreeExchanges() {
  exchanges_barred_ = false;
  ShowBarred(false);
}

void Page::LockFrame() {
  for (int tab = 0; tab < Tabs.Count(); ++tab) {
    KeepTabState(tab, Tabs.TabEnabled(tab));
  }
  SetLocked(true);
  for (int tab = 0; tab < Tabs.Count(); ++tab) {
    Tabs.SetTabEnabled(tab, false);
  }
}

void Page::UnlockFrame() {
  SetLocked(false);
  for (int tab = 0; tab < Tabs.Count(); ++tab) {
    Tabs.SetTabEnabled(tab, KeptTabEnabled(tab));
  }
}

bool Page::OnUnload() {
  SharedState& shared = Shared();
  if (shared.CommBusy) {
    shared.QuitRequested = true;
    lblHeldClose.SetVisible(true);
    if (shared.DownloadBusy) {
      flaMsg_CannotEnd.SetCaption({});
      lblMsg_CannotEnd.SetCaption(CannotEndText());
      flaMsg_CannotEnd.SetVisible(true);
    }
    return true;
  }
  // A save question that is cancelled keeps this window, while the others go all the same.
  const bool cancel = DataChanged && AskSaveChanges();
  ClosePort();
  program_.UnloadOthers(*this);
  return cancel;
}

void Page::SetCaptions(Language language) {
  language_ = language;
  for (int tab = 0; tab < Tabs.Count(); ++tab) {
    Tabs.SetTabCaption(tab, CaptionText(kind_.design.tabs[static_cast<std::size_t>(tab)].caption, language));
  }
  const std::array<std::pair<CaptionedControl*, TextKey>, 14> captions = {{
      {&lbl_TypeSelect, TextKey::Model},
      {&lblAuthor, TextKey::Author},
      {&lblDirName, TextKey::Directory},
      {&lblFileTitle, TextKey::FileName},
      {&lblMemo, TextKey::Memo},
      {&cmdUpload, TextKey::Upload},
      {&cmdDownload, TextKey::Download},
      {&cmdOpen, TextKey::Open},
      {&cmdSave, TextKey::Save},
      {&cmdCheck, TextKey::Check},
      {&cmdNew, TextKey::New},
      {&cmdExit, TextKey::Exit},
      {&lbl_Waitfor, TextKey::Waiting},
      {&TransferBar, TextKey::TransferBar},
  }};
  for (const auto& [control, key] : captions) {
    control->SetCaption(CaptionText(key, language));
  }
  constexpr std::array kComCaptions = {TextKey::Com1, TextKey::Com2, TextKey::Com3, TextKey::Com4};
  for (std::size_t place = 0; place < kComCaptions.size(); ++place) {
    OptCom[static_cast<int>(place)].SetCaption(CaptionText(kComCaptions.at(place), language));
  }
  lbl_FrmVersion.SetCaption(CaptionText(TextKey::Version, language));
  for (PagePart* part : parts_) {
    part->SetCaptions(language);
  }
}

int Page::TabWith(TextKey caption) const {
  const std::span<const DesignTab> tabs = kind_.design.tabs;
  const auto found = std::find_if(tabs.begin(), tabs.end(),
                                  [caption](const DesignTab& tab) { return tab.caption == caption; });
  return found == tabs.end() ? -1 : static_cast<int>(found - tabs.begin());
}

void Page::GoTo(Control& control) {
  if (const int tab = TabOf(control); tab >= 0 && Tabs.TabEnabled(tab)) {
    Tabs.SetCurrent(tab);
  }
  control.SetFocus();
}

std::string_view Page::WhyRefused(const Control& control) const {
  if (!Showing()) {
    return "page not showing";
  }
  if (program_.Window().Get() != nullptr) {
    return "window open";
  }
  switch (control.Refused()) {
    case Refusal::Hidden:
      return "hidden";
    case Refusal::Disabled:
      return "disabled";
    case Refusal::Locked:
      return "locked";
    case Refusal::None:
      break;
  }
  const int tab = TabOf(control);
  return tab >= 0 && !Tabs.TabEnabled(tab) ? "tab disabled" : std::string_view();
}

Control* Page::FindControl(std::string_view full_name) const {
  const auto found = by_name_.find(full_name);
  return found == by_name_.end() ? nullptr : found->second;
}

OptionGroup* Page::FindOptions(std::string_view name) const {
  const auto found = std::find_if(option_groups_.begin(), option_groups_.end(),
                                  [&](const OptionGroup* options) { return (*options)[0].Name() == name; });
  return found == option_groups_.end() ? nullptr : *found;
}

SharedState& Page::Shared() const { return program_.Shared(); }

const Boxes& Page::Box() const { return program_.Box(); }

bool Page::Showing() const { return program_.Showing() == this; }

void Page::ApplyDesign() { placement_.Apply(kind_.design, *this); }

}  // namespace korva

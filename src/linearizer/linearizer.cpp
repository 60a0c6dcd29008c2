#include "linearizer/linearizer.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "core/program.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kCsvHandle = 4;
constexpr int kTypeItem = 10;  ///< the input type

String NotText(const String& path) { return path + u"\nテキストファイルではありません。"; }

/// Why the grid can't be written: names its first text with a character that the code page lacks, and the
/// cell by the words of its editor.
String LackedCharacter(const CodePage& code_page, const Grid& grid) {
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int column = 1; column < grid.Columns(); ++column) {
      const String& text = grid.At(row, column).text;
      if (!code_page.Encode(text)) {
        return u"行 " + Ascii(std::to_string(row)) + u"、列 " + Ascii(std::to_string(column)) + u"の「" +
               text + u"」にファイルの文字コードに無い文字があるので、保存できません。";
      }
    }
  }
  return {};
}

}  // namespace

Linearizer::Linearizer(ParameterPage& page, const LnrFamily& family, const OrNone<CsvFamily>& csv,
                       LnrStore* store)
    : page_(page),
      family_(family),
      csv_(csv),
      table_(page.GroupItem, LnrFlexGrid, family_.quantities.front().heads),
      editor_(page, table_),
      transfer_(page, table_, LnrProgressBar, store) {
  page_.Add(*this);
  RegisterControls();
  LnrFlexGrid.Resize(kLnrShortPoints + 1, kLnrColumns);
  lbl_LnrUnsaved.SetVisible(false);
  ListenToControls();
}

void Linearizer::RegisterControls() {
  page_.RegisterAll<Control>({&LnrProgressBar, &LnrFlexGrid, &lbl_LnrUnsaved});
  if (csv_.Has()) {
    page_.Register(cmd_csvFileOpen);
  }
  if (csv_.Has() && csv_.Value().saves) {
    page_.Register(cmd_csvFileSave);
  }
  if (family_.edits_by_arrows) {
    page_.Register(Lnr_OK);
  }
  if (!family_.limits.empty()) {
    page_.Register(lblLnrLimits);
  }
}

void Linearizer::ListenToControls() {
  LnrFlexGrid.OnCellClick = [this](int row, int column) {
    if (!Refused()) {
      editor_.Select(row, column);
    }
  };
  editor_.cmdLnrChangeOK.OnClick = [this] { Change(0); };
  editor_.cmdLnrChangeCancel.OnClick = [this] { CancelChange(); };
  editor_.txtLnrNewValue.OnKey = [this](Key key) { return PressInEditor(key); };
  LnrFlexGrid.OnScroll = [this] { HideField(); };
  Lnr_OK.OnClick = [this] {
    Change(0);
    editor_.HideField();
  };
  cmd_csvFileOpen.OnClick = [this] { OpenCsv(); };
  cmd_csvFileSave.OnClick = [this] { SaveCsv(); };
}

void Linearizer::Change(int rows) {
  if (!Refused()) {
    editor_.Ok();
    editor_.ReturnToTable(rows);
  }
}

void Linearizer::CancelChange() {
  editor_.Cancel();
  editor_.ReturnToTable(0);
}

bool Linearizer::PressInEditor(Key key) {
  if (key == Key::Escape) {
    CancelChange();
    return true;
  }
  if (family_.edits_by_arrows) {
    return TakeByArrow(key);
  }
  if (key == Key::Enter) {
    Change(1);
  }
  return key == Key::Enter;
}

bool Linearizer::TakeByArrow(Key key) {
  Change(0);
  if (key == Key::Enter || LnrSwitchedOff()) {
    return true;
  }
  const int rows = key == Key::Down ? 1 : key == Key::Up ? -1 : 0;
  const int columns = key == Key::Right ? 1 : key == Key::Left ? -1 : 0;
  editor_.GoOn(rows, columns);
  return true;
}

void Linearizer::HideField() {
  if (family_.edits_by_arrows) {
    editor_.HideField();
  }
}

void Linearizer::TabEntered(int /*tab*/) { HideField(); }

void Linearizer::SetCaptions(Language language) {
  editor_.SetCaptions(language);
  LnrProgressBar.SetCaption(CaptionText(TextKey::Linearizer, language));
  Lnr_OK.SetCaption(CaptionText(TextKey::Ok, language));
  cmd_csvFileOpen.SetCaption(CaptionText(TextKey::OpenCsv, language));
  cmd_csvFileSave.SetCaption(CaptionText(TextKey::SaveCsv, language));
  lbl_LnrUnsaved.SetCaption(CaptionText(TextKey::TableUnsaved, language));
  lblLnrLimits.SetCaption(String(family_.limits));
  for (OptionGroup* options : {&Opt_Table, &Opt_Lnr}) {
    (*options)[0].SetCaption(CaptionText(TextKey::OptionNo, language));
    (*options)[1].SetCaption(CaptionText(TextKey::OptionYes, language));
  }
}

void Linearizer::SetLocked(bool locked) {
  for (Control* control : std::initializer_list<Control*>{&LnrFlexGrid, &editor_.fraLnrChange,
                                                          &cmd_csvFileOpen, &cmd_csvFileSave}) {
    control->SetEnabled(!locked);
  }
}

void Linearizer::UploadBegins() {
  before_ = page_.GroupItem;
  page_.Notes.Tell(Notice::NoTable, {});
}

void Linearizer::PageCleared() {
  page_.Notes.Tell(Notice::NoTable, {});
  LnrFlexGrid.Resize(PointsOf(Model().points) + 1, kLnrColumns);
  editor_.Reset();
  table_.ClearGrid();
}

void Linearizer::ChoiceMade(const Choice& choice) {
  if (choice.options == &Opt_Table || choice.options == &Opt_Lnr) {
    const bool without_table = KindOfInput && Quantity() == nullptr;
    page_.Tabs.SetTabEnabled(Tab(), choice.place != 0 && !without_table);
  }
}

void Linearizer::SettleTabs(TabMoment moment) {
  const LnrModel& model = Model();
  switch (moment) {
    case TabMoment::ModelChosen:
      SettleTab(TabFlagged() ? model.on_choice : TableSwitch::None);
      break;
    case TabMoment::FileOpened:
      SettleTab(TabFlagged() ? model.on_opening.value_or(model.on_choice) : model.without_flag);
      SetTableUnsaved(false);
      break;
    case TabMoment::Uploaded:
      SettleTab(AfterUpload());
      break;
  }
}

TableSwitch Linearizer::AfterUpload() const {
  return family_.needs_flag && !TabFlagged() ? TableSwitch::None : Model().after_upload;
}

const LnrQuantity* Linearizer::Quantity() const {
  if (!KindOfInput) {
    return &family_.quantities.front();
  }
  const String kind = KindOfInput();
  const auto found = std::find_if(family_.quantities.begin(), family_.quantities.end(),
                                  [&](const LnrQuantity& one) { return one.kind == kind; });
  return found == family_.quantities.end() ? nullptr : &*found;
}

void Linearizer::SettleTab(TableSwitch table_switch) {
  SetUp(Model().points);
  if (table_switch != TableSwitch::AsItStands) {
    page_.Tabs.SetTabEnabled(Tab(), SwitchedOn(table_switch));
  }
}

const OptionGroup* Linearizer::OptionsOf(TableSwitch table_switch) const {
  switch (table_switch) {
    case TableSwitch::TableOption:
      return &Opt_Table;
    case TableSwitch::LnrOption:
      return &Opt_Lnr;
    default:
      return nullptr;
  }
}

bool Linearizer::SwitchedOn(TableSwitch table_switch) const {
  switch (table_switch) {
    case TableSwitch::Always:
      return true;
    case TableSwitch::InputType:
      return std::find(family_.table_types.begin(), family_.table_types.end(), page_.Item(kTypeItem)) !=
             family_.table_types.end();
    case TableSwitch::InputKind:
      return Quantity() != nullptr && (Quantity()->is_input_curve || Opt_Lnr.Selected() != 0);
    case TableSwitch::TableOption:
    case TableSwitch::LnrOption:
      return OptionsOf(table_switch)->Selected() != 0;
    case TableSwitch::None:
    case TableSwitch::AsItStands:
      break;
  }
  return false;
}

bool Linearizer::LnrActive() const {
  if (KindOfInput) {
    return Quantity() != nullptr && (Quantity()->is_input_curve || Opt_Lnr.Selected() == 1);
  }
  if (Opt_Table.Selected() == 1 || Opt_Lnr.Selected() == 1) {
    return true;
  }
  const TableSwitch own = Model().on_choice;
  return (own == TableSwitch::Always || own == TableSwitch::InputType) && SwitchedOn(own);
}

bool Linearizer::InUse() const {
  return (TabFlagged() || Model().without_flag != TableSwitch::None) && LnrActive();
}

bool Linearizer::LnrSwitchedOff() const {
  return !LnrActive() && (Opt_Table.Selected() == 0 || Opt_Lnr.Selected() == 0);
}

bool Linearizer::Refused() const {
  if (LnrSwitchedOff()) {
    page_.Box().Show(BoxKey::LinearizerSwitchedOff);
    return true;
  }
  return false;
}

void Linearizer::SetUp(int points) {
  if (const LnrQuantity* quantity = Quantity()) {
    table_.SetHeads(quantity->heads);
  }
  editor_.Reset();
  table_.SetUp(PointsOf(points));
}

bool Linearizer::CheckLnrTable() {
  const LnrQuantity& quantity = Quantity() == nullptr ? family_.quantities.front() : *Quantity();
  const bool good = family_.rule == LnrRule::Range
                        ? CheckLnrRange(table_)
                        : CheckLnrCurve(table_, quantity.x_limits, quantity.y_limits, LnrProgressBar);
  editor_.TakeMarks();
  table_.GoToFirstBad();
  return good;
}

Finding Linearizer::Check() {
  if (!InUse()) {
    return Finding::Good;
  }
  if (family_.rule == LnrRule::Range && table_.IsBlank()) {
    return Finding::Blank;  // it passes the rule, and would make the device's curve a flat zero
  }
  return CheckLnrTable() ? Finding::Good : Finding::Bad;
}

void Linearizer::Upload() {
  const int points = Model().points;
  const TableSwitch table_switch = AfterUpload();
  const bool open = OpenTabForUpload(table_switch);
  const bool kept = family_.buttons != nullptr || (open && !UploadPoints(points));
  if (kept) {
    SetUp(points);
    TakeFormerTable();
  }
  SetTableUnsaved(kept && TableUnsaved());
  if (table_switch != TableSwitch::None) {
    SetUp(points);
  }
  before_.reset();
}

bool Linearizer::OpenTabForUpload(TableSwitch table_switch) {
  if (table_switch == TableSwitch::InputKind) {
    return Quantity() != nullptr;  // it is read though its switch stands at none
  }
  if (OptionsOf(table_switch) == nullptr) {
    return table_switch == TableSwitch::AsItStands || SwitchedOn(table_switch);
  }
  page_.Tabs.SetTabEnabled(Tab(), SwitchedOn(table_switch));
  return SwitchedOn(table_switch);
}

bool Linearizer::UploadPoints(int points) {
  SetUp(points);
  return transfer_.Upload();
}

void Linearizer::TakeFormerTable() {
  for (int row = 1; row <= table_.Points(); ++row) {
    for (int column = 1; column < kLnrColumns; ++column) {
      const PointPlace place = PointItem(table_.Points(), row, column).value();
      table_.Store(row, column, before_->At(place.group, place.item));
    }
  }
}

bool Linearizer::Download() {
  const bool good = family_.buttons != nullptr || !InUse() || transfer_.DownloadLnr();
  if (!good) {
    LnrProgressBar.SetValue(0);
  }
  return good;
}

std::optional<String> Linearizer::ChooseCsvFile(bool save) const {
  const Platform& platform = page_.ItsProgram().Surroundings();
  const auto path = platform.dialogs.ChooseFile({.save = save,
                                                 .start_folder = page_.txtDirName.Text(),
                                                 .filter = CsvFilter(),
                                                 .name = save ? page_.ProposedName(u".csv") : String()});
  return path && path->empty() ? std::nullopt : path;
}

std::optional<CsvTable> Linearizer::ReadFile(const String& path, const CsvReader& reader) const {
  LineReader& lines = page_.ItsProgram().Lines();
  SystemReason reason;
  if (!lines.TryOpenTextFile(path, kCsvHandle, reason)) {
    page_.Box().Show(BoxKey::CsvOpenFailed, {path + u"\n" + ReasonText(reason)});
    return std::nullopt;
  }
  std::optional<CsvTable> read = ReadCsv(lines, kCsvHandle, reader, table_.Points());
  lines.CloseTextFile(kCsvHandle);
  if (!read) {
    page_.Box().Show(BoxKey::CsvOpenFailed, {NotText(path)});
  }
  return read;
}

void Linearizer::OpenCsv() {
  if (!csv_.Has() || Refused()) {
    return;
  }
  const CsvFamily& csv = csv_.Value();
  if (csv.cancels_edit) {
    editor_.Cancel();
    HideField();
  }
  const std::optional<String> path = ChooseCsvFile(false);
  if (!path) {
    return;
  }
  if (!page_.ItsProgram().Surroundings().files.Exists(*path)) {
    page_.Box().Show(BoxKey::CsvFileNotFound);
    return;
  }
  const std::optional<CsvTable> read = ReadFile(*path, csv.reader);
  if (!read) {
    return;
  }
  table_.Clear();
  int row = 0;
  for (const CsvPoint& point : read->points) {
    ++row;
    table_.Store(row, 1, point.x);
    table_.Store(row, 2, point.y);
  }
  table_.ShowLnrTable();
  editor_.GoToTop();
  SetTableUnsaved(true);
  if (read->size && OnSizeRead) {
    OnSizeRead(*read->size);
  }
}

bool Linearizer::SaveCsv() {
  if (!csv_.Has() || Refused()) {
    return false;
  }
  const std::optional<String> path = ChooseCsvFile(true);
  if (!path) {
    return false;
  }
  editor_.TellOpenEdit();
  const Platform& platform = page_.ItsProgram().Surroundings();
  const String text = CsvText(table_.Shown(), table_.Points(), csv_.Value().writes_size);
  const std::optional<std::string> bytes = platform.code_page.Encode(text);
  SystemReason reason;
  if (bytes && platform.files.Replace(*path, *bytes, reason)) {
    CsvFilePath = *path;
    CsvFileName = path->substr(path->rfind(platform.files.Separator()) + 1);
    return true;
  }
  page_.Box().Show(BoxKey::CsvSaveFailed,
                   {bytes ? ReasonText(reason) : LackedCharacter(platform.code_page, table_.Shown())});
  return false;
}

}  // namespace korva

#include "tables/user_tables.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_check.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr StringView kStartText = u"0.00";
constexpr int kSwitchItem = 25;
constexpr StringView kSwitchList = u"$I25";
constexpr StringView kOn = u"ON";

/// True when the set switches the linearizer on: by the text of that choice, or by its code.
bool SwitchedOn(const ParameterPage& page) {
  const String& cell = page.Item(kSwitchItem);
  if (cell == kOn) {
    return true;
  }
  const ChoiceList list = page.Def.ListOf(kSwitchList);
  const int row = list.FindText(String(kOn));
  return row >= 0 && !cell.empty() && list.Code(row) == cell;
}

}  // namespace

UserTables::Buttons::Buttons(ParameterPage& page, UserTables& tables) : TableMover(page), tables_(tables) {
  cmdReadOutTable.OnClick = [this] { ReadOut(); };
  cmdWriteInTable.OnClick = [this] { WriteIn(); };
}

void UserTables::Buttons::ReadOut() {
  if (!ItsPage().OperationRuns() && !tables_.Refused()) {
    Exchange({.move = [this] { return tables_.Read(); }, .changes_mode = true, .report = BoxKey::TableRead});
  }
}

void UserTables::Buttons::WriteIn() {
  if (!ItsPage().OperationRuns() && !tables_.Refused()) {
    Exchange({.move = [this] { return CheckAndWrite(); },
              .changes_mode = true,
              .holds_close = true,
              .report = BoxKey::TableWritten});
  }
}

bool UserTables::Buttons::CheckAndWrite() {
  tables_.SetTaken();
  const Finding finding = tables_.CheckShown();
  if (finding != Finding::Good) {
    ItsPage().Box().Show(finding == Finding::Blank ? BoxKey::TableFieldBlank : BoxKey::ValueBad);
    NoteFault(tables_.fault_);
    return false;
  }
  return tables_.transfer_.Write(tables_.TableInHand());
}

UserTables::UserTables(ParameterPage& page, const UserTableFamily& family, const OrNone<CsvFamily>& csv)
    : TablePart(page, csv, linearizer_),
      fields(page, family),
      buttons(page, *this),
      page_(page),
      family_(family),
      linearizer_(LnrFlexGrid, family_.linearizer.heads, family_.linearizer.points),
      thermocouple_(TCFlexGrid, family_.thermocouple.heads, family_.thermocouple.points),
      resistance_(RTDFlexGrid, family_.resistance.heads, family_.resistance.points),
      kinds_{{{.table = UserTable::Linearizer,
               .caption = TextKey::Linearizer,
               .form = &family_.linearizer,
               .grid = &LnrFlexGrid,
               .points = &linearizer_},
              {.table = UserTable::Thermocouple,
               .caption = TextKey::TcTable,
               .form = &family_.thermocouple,
               .grid = &TCFlexGrid,
               .points = &thermocouple_},
              {.table = UserTable::Resistance,
               .caption = TextKey::RtdTable,
               .form = &family_.resistance,
               .grid = &RTDFlexGrid,
               .points = &resistance_}}},
      transfer_(page, family, fields, buttons.Table_ProgressBar) {
  page_.RegisterAll<Control>({&TCFlexGrid, &RTDFlexGrid});
  if (!family_.linearizer.note.empty()) {
    page_.Register(lblLnrLimits);
  }
  Editor().Listen(TCFlexGrid);
  Editor().Listen(RTDFlexGrid);
  fields.OnChange = [this] { FollowFields(); };
  Reset();
  Show(UserTable::Linearizer);
}

void UserTables::SetCaptions(Language language) {
  TablePart::SetCaptions(language);
  fields.SetCaptions(language);
  page_.Tabs.SetTabCaption(Tab(), CaptionText(KindOf(shown_).caption, language));
}

void UserTables::SetLocked(bool locked) {
  TablePart::SetLocked(locked);
  TCFlexGrid.SetEnabled(!locked);
  RTDFlexGrid.SetEnabled(!locked);
  fields.SetEnabled(!locked);
}

void UserTables::SetCleared() {
  TablePart::SetCleared();
  Reset();
}

void UserTables::SetSaved() {
  TablePart::SetSaved();
  if (const String loss = FirstLoss(); !loss.empty()) {
    const String& told = page_.Notes.Told(Notice::NotKept);
    const String before = told.empty() ? page_.Words(TextKey::NotKept) : told + u"、";
    page_.Notes.Tell(Notice::NotKept, before + page_.Words(TextKey::UserTable) + loss);
  }
}

String UserTables::FirstLoss() const {
  const auto has_comma = [](const String& text) { return text.find(u',') != String::npos; };
  const UserTableFields::Texts texts = fields.Held();
  if (std::any_of(texts.begin(), texts.end(), has_comma)) {
    return u" " + page_.Words(TextKey::Row) + u" 1～";
  }
  const UserTable table = OfSet();
  const LnrTable& points = TableOf(table);
  for (int row = 1; table != UserTable::None && row <= points.Points(); ++row) {
    for (int column = 1; column < points.Columns(); ++column) {
      if (has_comma(points.Value(row, column))) {
        return u" " + page_.Words(TextKey::Row) + u" " + Ascii(std::to_string(row)) + u"～";
      }
    }
  }
  return {};
}

void UserTables::PageCleared() { Reset(); }

void UserTables::Reset() {
  Editor().Reset();
  for (const Kind& kind : kinds_) {
    kind.points->Start(String(kStartText));
  }
  fields.Take(UserTableFields::Texts());
  fields.ClearMarks();
}

void UserTables::ChoiceMade(const Choice& /*choice*/) { Settle(); }

std::function<void()> UserTables::Keep() {
  return [this, shown = shown_, linearizer = linearizer_.IsFresh(), thermocouple = thermocouple_.IsFresh(),
          resistance = resistance_.IsFresh()] {
    linearizer_.SetFresh(linearizer);
    thermocouple_.SetFresh(thermocouple);
    resistance_.SetFresh(resistance);
    Show(shown);
    FollowFields();
  };
}

void UserTables::SettleTabs(TabMoment moment) {
  if (moment == TabMoment::FileOpened) {
    TakeOpened();
  }
  Settle();
}

void UserTables::TakeOpened() {
  Reset();
  SetTableUnsaved(false);
  const std::optional<SavedTable> opened = std::exchange(opened_, std::nullopt);
  if (!opened) {
    return;
  }
  fields.Take(opened->fields);
  if (const UserTable table = OfSet(); table != UserTable::None && !opened->cells.empty()) {
    TakeCells(opened->cells, TableOf(table));
  }
}

void UserTables::Settle() {
  const UserTable table = InUse();
  Show(table == UserTable::None ? UserTable::Linearizer : table);
  page_.Tabs.SetTabEnabled(Tab(), table != UserTable::None);
}

void UserTables::Show(UserTable table) {
  shown_ = table;
  Editor().Use(InHand());
  for (const Kind& kind : kinds_) {
    kind.grid->SetVisible(kind.table == table);
  }
  fields.Show(table);
  lblLnrLimits.SetCaption(String(KindOf(table).form->note));
  page_.Tabs.SetTabCaption(Tab(), page_.Words(KindOf(table).caption));
}

UserTable UserTables::OfSet() const {
  const String& type = page_.Item(kTypeItem);
  const auto input = std::find_if(family_.inputs.begin(), family_.inputs.end(), [&](const UserInput& one) {
    return one.models.IsAllOrHas(page_.DefFile) &&
           (one.beginning ? type.starts_with(one.text) : Trimmed(type) == one.text);
  });
  if (input != family_.inputs.end()) {
    return input->table;
  }
  return SwitchedOn(page_) ? UserTable::Linearizer : UserTable::None;
}

UserTable UserTables::InUse() const {
  const UserTable table = OfSet();
  const int row = page_.FindDataRow(ItemKey(u"01", u"25"));
  const bool switch_takes_part = row >= 0 && page_.DataCell(row, kOnPage) == u"Y";
  const bool takes_part = table != UserTable::Linearizer || switch_takes_part;
  return takes_part && page_.TabFlag(Tab()) == u"True" ? table : UserTable::None;
}

bool UserTables::Refused() const {
  const bool refused = InUse() == UserTable::None;
  if (refused) {
    page_.Box().Show(BoxKey::LinearizerSwitchedOff);
  }
  return refused;
}

const UserTables::Kind& UserTables::KindOf(UserTable table) const {
  const auto* const kind =
      std::find_if(kinds_.begin(), kinds_.end(), [table](const Kind& one) { return one.table == table; });
  return kind == kinds_.end() ? kinds_.front() : *kind;
}

void UserTables::FollowFields() {
  const int size = fields.Size();
  for (const Kind& kind : kinds_) {
    kind.grid->SetRowsInUse(size > 0 ? std::min(size, kind.points->Points()) : -1);
  }
  const String& base = fields.txtBase.Text();
  const String& step = fields.txtStep.Text();
  std::optional<Grid::RowScale> scale;
  if (IsNumeric(base) && IsNumeric(step)) {
    scale = {.first = LeadingNumber(base), .step = LeadingNumber(step)};
  }
  TCFlexGrid.SetRowScale(scale);
  RTDFlexGrid.SetRowScale(scale);
}

CsvHeads UserTables::HeadsToWrite() {
  CsvHeads heads = fields.Heads(shown_);
  if (Trimmed(*heads.size).empty()) {
    heads.size = Ascii(std::to_string(CsvPoints(InHand().Shown(), InHand().Points())));
  }
  return heads;
}

String UserTables::CfgSection() const {
  const UserTable table = OfSet();
  const LnrTable& points = TableOf(table);
  return TableSection(fields.Held(), table == UserTable::None || points.IsFresh() ? nullptr : &points);
}

SectionRead UserTables::ReadCfgSection(StringView key, LineReader& lines, int handle) {
  if (key != kTableKey) {
    return SectionRead::NotMine;
  }
  opened_.emplace();
  return ReadTableSection(lines, handle, *opened_);
}

bool UserTables::Read() {
  Editor().Reset();
  fields.ClearMarks();
  SetTableUnsaved(false);
  page_.DataChanged = true;  // the page now differs from any file
  return transfer_.Read(TableInHand());
}

bool UserTables::Upload() {
  const UserTable table = InUse();
  if (table == UserTable::None ||
      (table == UserTable::Linearizer && !page_.Box().Ask(BoxKey::UploadLinearizer))) {
    return true;
  }
  Show(table);
  const bool read = Read();
  if (!read) {
    page_.EnterMonitorMode();
  }
  return read;
}

std::optional<FieldRange> UserTables::RangeOfField(const TextField& field) const {
  const auto of_editor = TablePart::RangeOfField(field);
  return of_editor ? of_editor : fields.RangeOf(field, *KindOf(shown_).form);
}

FieldRange UserTables::RangeOfColumn(int /*column*/) const {
  const LnrLimits& limits = KindOf(shown_).form->limits;
  return {.low = limits.low, .high = limits.high};
}

Finding UserTables::CheckShown() {
  InHand().ClearLnrMarks();
  fields.ClearMarks();
  fault_ = fields.Blank(shown_);
  if (fault_ != nullptr) {
    Editor().TakeMarks();
    return Finding::Blank;
  }
  fault_ = fields.Check(shown_, *KindOf(shown_).form);
  const bool good = CheckPoints();
  Editor().TakeMarks();
  InHand().GoToFirstBad();
  if (fault_ == nullptr && !good) {
    fault_ = KindOf(shown_).grid;
  }
  return fault_ == nullptr ? Finding::Good : Finding::Bad;
}

bool UserTables::CheckPoints() {
  LnrTable& table = InHand();
  const LnrLimits& limits = KindOf(shown_).form->limits;
  const int size = fields.Size();
  const bool good = shown_ == UserTable::Linearizer
                        ? CheckLnrCurve(table, limits, limits, LnrProgressBar, size)
                        : CheckLnrLimits(table, limits);
  return CheckLnrFilled(table, size) && good;
}

Finding UserTables::Check() {
  const UserTable table = InUse();
  if (table == UserTable::None) {
    return Finding::Good;
  }
  Show(table);
  return CheckShown();
}

bool UserTables::Download() {
  const UserTable table = InUse();
  if (table == UserTable::None ||
      (table == UserTable::Linearizer && !page_.Box().Ask(BoxKey::DownloadLinearizer))) {
    return true;
  }
  Show(table);
  return transfer_.Write(TableInHand());
}

}  // namespace korva

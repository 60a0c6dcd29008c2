#include "linearizer/linearizer.h"

#include <algorithm>
#include <string>

#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kTypeItem = 10;  ///< the input type

}  // namespace

Linearizer::Linearizer(ParameterPage& page, const LnrFamily& family, const OrNone<CsvFamily>& csv,
                       LnrStore* store)
    : TablePart(page, csv, table_),
      page_(page),
      family_(family),
      table_(page.GroupItem, LnrFlexGrid, family_.quantities.front().heads),
      transfer_(page, table_, LnrProgressBar, store) {
  LnrFlexGrid.Resize(kLnrShortPoints + 1, kLnrColumns);
  AddControls();
}

void Linearizer::AddControls() {
  if (family_.edits_by_arrows) {
    page_.Register(Lnr_OK);
    Editor().EditByArrows();
  }
  if (!family_.limits.empty()) {
    page_.Register(lblLnrLimits);
  }
  Lnr_OK.OnClick = [this] {
    Editor().Change(0);
    Editor().HideField();
  };
}

void Linearizer::SetCaptions(Language language) {
  TablePart::SetCaptions(language);
  Lnr_OK.SetCaption(CaptionText(TextKey::Ok, language));
  lblLnrLimits.SetCaption(String(family_.limits));
  Opt_Table[0].SetCaption(CaptionText(TextKey::OptionNo, language));
  Opt_Table[1].SetCaption(CaptionText(TextKey::OptionYes, language));
}

void Linearizer::UploadBegins() {
  before_ = page_.GroupItem;
  page_.Notes.Tell(Notice::NoTable, {});
}

void Linearizer::PageCleared() {
  page_.Notes.Tell(Notice::NoTable, {});
  LnrFlexGrid.Resize(PointsOf(Model().points) + 1, kLnrColumns);
  Editor().Reset();
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

bool Linearizer::IsOfSensor() const { return Quantity() != nullptr && Quantity()->is_input_curve; }

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
    NameUnsaved();
  }
  Editor().Reset();
  table_.SetUp(PointsOf(points));
}

const LnrQuantity& Linearizer::QuantityOrFirst() const {
  const LnrQuantity* const of_input = Quantity();
  return of_input == nullptr ? family_.quantities.front() : *of_input;
}

FieldRange Linearizer::RangeOfColumn(int column) const {
  if (family_.rule == LnrRule::Range) {
    return {.low = kLnrRange.low, .high = kLnrRange.high, .ends = false};
  }
  const LnrLimits& limits = column == 1 ? QuantityOrFirst().x_limits : QuantityOrFirst().y_limits;
  return {.low = limits.low, .high = limits.high};
}

bool Linearizer::CheckLnrTable() {
  const LnrQuantity& quantity = QuantityOrFirst();
  const bool good = family_.rule == LnrRule::Range
                        ? CheckLnrRange(table_)
                        : CheckLnrCurve(table_, quantity.x_limits, quantity.y_limits, LnrProgressBar);
  Editor().TakeMarks();
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

bool Linearizer::Upload() {
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
  return true;
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

void Linearizer::TakeHeads(const CsvHeads& heads) {
  if (heads.size && OnSizeRead) {
    OnSizeRead(*heads.size);
  }
}

CsvHeads Linearizer::HeadsToWrite() {
  const String points = Ascii(std::to_string(CsvPoints(LnrFlexGrid, table_.Points())));
  return {.size = Csv().Value().writes_size ? std::optional(points) : std::nullopt};
}

}  // namespace korva

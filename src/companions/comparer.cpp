#include "companions/comparer.h"

#include <algorithm>
#include <string>
#include <utility>

#include "companions/row_value.h"
#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_check.h"
#include "transfer/known_items.h"
#include "transfer/upload.h"

namespace korva {

namespace {

constexpr StringView kTableItem = u"table";
constexpr std::string_view kUnitBoxes = "cbo_unit";  ///< in which the unit of the field before is chosen

String Number(int number) { return Ascii(std::to_string(number)); }

String WithUnit(ParameterPage& page, int row, const String& text) {
  const String unit = UnitShownOf(page, row);
  return text.empty() || unit.empty() ? text : text + u" " + unit;
}

/// True when the same unit is chosen for a row, or none can be.
bool SameUnitBox(ParameterPage& one, ParameterPage& other, int row) {
  const ComboBox* const here = UnitBoxOf(one, row);
  const ComboBox* const there = UnitBoxOf(other, row);
  return here == nullptr || there == nullptr || here->Text() == there->Text();
}

/// True for texts that read the same, or are the same number.
bool Same(const String& one, const String& other) {
  return one == other || (IsNumeric(one) && IsNumeric(other) && LeadingNumber(one) == LeadingNumber(other));
}

bool SameCell(const String& one, const String& other) {
  return one == other ||
         (MeansItsValue(one) && MeansItsValue(other) && Same(ValueFromLnrCell(one), ValueFromLnrCell(other)));
}

}  // namespace

Comparer::Comparer(ParameterPage& page, const Families& families, const BarePageMaker& make,
                   Comparison& comparison, ComparisonPanel& panel)
    : page_(page), families_(families), make_(make), comparison_(comparison), panel_(panel) {
  page_.PutIntoStatus(cmdCompare);
  page_.PutIntoStatus(cmdCompareFile);
  cmdCompare.OnClick = [this] {
    CompareDevice();
    panel_.Open();
  };
  cmdCompareFile.OnClick = [this] { CompareChosenFile(); };
}

void Comparer::SetCaptions(Language language) {
  cmdCompare.SetCaption(CaptionText(TextKey::Compare, language));
  cmdCompareFile.SetCaption(CaptionText(TextKey::CompareFile, language));
  panel_.SetLanguage(language);
}

void Comparer::SetExchangesBarred(bool barred) {
  cmdCompare.SetEnabled(!barred);
  cmdCompareFile.SetEnabled(!barred);
}

void Comparer::FieldChanged(int row) {
  // A live value is no edit.
  if (const Control* control = ControlOf(page_, row); control != nullptr && !control->Locked()) {
    Unmark();
  }
}

void Comparer::CompareDevice() {
  if (page_.OperationRuns() || !ModelChosen(page_)) {
    return;
  }
  page_.BeginOperation();
  page_.LockFrame();
  SecondPage other(page_, families_, make_);
  const Comparison::Outcome outcome = other.ReadDevice();
  page_.EndOperation();
  page_.UnlockFrame();
  Take(Comparison::With::Device, other, outcome);
}

void Comparer::CompareChosenFile() {
  if (page_.OperationRuns()) {
    return;
  }
  const std::optional<String> path = page_.ItsProgram().Surroundings().dialogs.ChooseFile(
      {.start_folder = Folder(), .filter = OpenCfgFilter(), .filter_index = kOpenCfgFilterIndex});
  if (path) {
    CompareFile(*path);
    panel_.Open();
  }
}

void Comparer::CompareFile(const String& path) {
  if (page_.OperationRuns() || !ModelChosen(page_)) {
    return;
  }
  SecondPage other(page_, families_, make_);
  const Comparison::Outcome outcome = other.ReadFile(path);
  Take(Comparison::With::File, other, outcome);
}

void Comparer::Take(Comparison::With with, SecondPage& other, Comparison::Outcome outcome) {
  Unmark();
  const bool complete = outcome == Comparison::Outcome::Complete;
  comparison_.Take(with, page_.lst_TypeSelect.Text(), outcome,
                   complete ? DifferencesFrom(with, other) : std::vector<Difference>());
}

std::vector<Difference> Comparer::DifferencesFrom(Comparison::With with, SecondPage& other) {
  std::vector<Difference> found;
  CompareRows(with, other, found);
  if (other.TableRead()) {
    if (const std::optional<Evidence> fault = other.TableFault()) {
      found.push_back({.item = String(kTableItem),
                       .caption = page_.Words(TextKey::UserTable),
                       .page = {},
                       .other = {},
                       .silent = fault == Evidence::Silent,
                       .untold = fault != Evidence::Silent});
    }
    CompareGrids(other, found);
    CompareTableFields(other, found);
  }
  return found;
}

bool Comparer::IsCompared(int row, Comparison::With with, const ParameterPage& other) const {
  if (page_.DataCell(row, kOnPage) != u"Y" || page_.IsLive(row)) {
    return false;
  }
  // A field that no upload is for may have come with another: nothing else fills it.
  const bool came = !page_.DataCell(row, kTextIndex).empty() && !other.SetCell(row).empty();
  return with == Comparison::With::File || IsUploaded(row) || came;
}

bool Comparer::IsUploaded(int row) const {
  // Several rows may show parts of one item, of which one travels.
  const StringTable& data = page_.Def.Data();
  for (int one = 0; one < data.Rows(); ++one) {
    if (page_.DataCell(one, kUploaded) == u"Y" &&
        page_.DataCell(one, kGroup) == page_.DataCell(row, kGroup) &&
        LeadingInteger(page_.DataCell(one, kItem)) == LeadingInteger(page_.DataCell(row, kItem))) {
      return true;
    }
  }
  return false;
}

void Comparer::AlignUnits(ParameterPage& other) const {
  const int unit = page_.optTempUnit.Selected();
  if (unit >= 0 && other.optTempUnit.Selected() >= 0 && other.optTempUnit.Selected() != unit) {
    other.optTempUnit[unit].Click();
  }
}

bool Comparer::IsSameType(int row, const ParameterPage& other) const {
  const int type = page_.InputTypeRow();
  return type >= 0 && type == other.InputTypeRow() && page_.DataCell(row, kGroup) == u"01" &&
         LeadingInteger(page_.DataCell(row, kItem)) == kTypeItem;
}

void Comparer::CompareRows(Comparison::With with, SecondPage& other, std::vector<Difference>& found) {
  const int rows = page_.Def.Data().Rows();
  std::vector<String> chosen(static_cast<std::size_t>(rows));
  for (int row = 0; row < rows; ++row) {
    chosen[static_cast<std::size_t>(row)] =
        IsCompared(row, with, other.Page()) ? ShownOf(other.Page(), row) : String();
  }
  AlignUnits(other.Page());
  for (int row = 0; row < rows; ++row) {
    if (!IsCompared(row, with, other.Page())) {
      continue;
    }
    const String here = ShownOf(page_, row);
    const bool choice = OptionsOf(page_, row) != nullptr;
    const String there = choice ? chosen[static_cast<std::size_t>(row)] : ShownOf(other.Page(), row);
    const bool same = Same(here, there) || IsSameType(row, other.Page());
    const bool unknown = other.Silent(row) || other.Untold(row);
    if (unknown || !same || !SameUnitBox(page_, other.Page(), row)) {
      found.push_back({.item = page_.DataCell(row, kGroup) + u"/" + page_.DataCell(row, kItem),
                       .caption = CaptionOf(page_, row),
                       .page = WithUnit(page_, row, here),
                       .other = WithUnit(other.Page(), row, there),
                       .silent = other.Silent(row),
                       .untold = other.Untold(row)});
      MarkRow(row, other.Page());
    }
  }
}

void Comparer::CompareGrids(SecondPage& other, std::vector<Difference>& found) {
  const bool partly = other.TableFault().has_value();
  for (Control* control : page_.Controls()) {
    auto* const here = dynamic_cast<Grid*>(control);
    const auto* const there =
        here == nullptr ? nullptr : dynamic_cast<const Grid*>(other.Page().FindControl(here->FullName()));
    const bool in_use = there != nullptr && here->Visible() && there->Visible();
    const int rows = in_use ? std::min(here->Rows(), there->Rows()) : 0;
    for (int row = 1; row < rows; ++row) {
      for (int column = 1; column < std::min(here->Columns(), there->Columns()); ++column) {
        const String& one = here->At(row, column).text;
        const String& another = there->At(row, column).text;
        const bool unknown = partly && another.empty();
        if (!unknown && !SameCell(one, another)) {
          found.push_back(
              {.item = String(kTableItem) + u" " + Number(row) + u"," + Number(column),
               .caption = page_.Words(TextKey::UserTable) + u" " + Simplified(here->At(0, column).text),
               .page = one,
               .other = another});
          MarkCell(*here, row, column);
        }
      }
    }
  }
}

void Comparer::CompareTableFields(SecondPage& other, std::vector<Difference>& found) {
  for (const auto& [name, caption] : kTableFields) {
    Control* here = page_.FindControl(name);
    const Control* there = other.Page().FindControl(name);
    if (here == nullptr || there == nullptr || !here->Visible() || !there->Visible()) {
      continue;
    }
    const String one = Trimmed(here->ShownText());
    const String another = Trimmed(there->ShownText());
    if (!Same(one, another)) {
      found.push_back(
          {.item = String(kTableItem), .caption = page_.Words(caption), .page = one, .other = another});
      Mark(*here);
    }
  }
}

void Comparer::MarkRow(int row, ParameterPage& other) {
  if (Control* control = ControlOf(page_, row)) {
    Mark(*control);
  } else if (OptionGroup* options = OptionsOf(page_, row)) {
    for (int place = 0; place < options->Count(); ++place) {
      Mark((*options)[place]);
    }
  }
  if (!SameUnitBox(page_, other, row)) {
    Mark(*UnitBoxOf(page_, row));
  }
}

void Comparer::Mark(Control& control) {
  FollowEdits();
  control.SetDiffers(true);
  marked_.push_back(&control);
}

void Comparer::MarkCell(Grid& grid, int row, int column) {
  FollowEdits();
  marked_grids_[&grid] = grid.Edits();
  grid.SetCellDiffers(row, column);
  if (followed_.insert(&grid).second) {
    grid.Observe([this, &grid] {
      const auto marked = marked_grids_.find(&grid);
      if (marked != marked_grids_.end() && marked->second != grid.Edits()) {
        Unmark();
      }
    });
  }
}

void Comparer::FollowEdits() {
  if (std::exchange(follows_, true)) {
    return;
  }
  Follow(page_.txtAuthor);
  Follow(page_.txtMemo);
  for (const auto& [name, caption] : kTableFields) {
    if (Control* control = page_.FindControl(name)) {
      Follow(*control);
    }
  }
  for (Control* control : page_.Controls()) {
    if (control->Name() == kUnitBoxes) {
      Follow(*control);
    }
  }
}

void Comparer::Follow(Control& control) {
  control.Observe([this, &control, text = control.ShownText()]() mutable {
    if (text != control.ShownText()) {
      text = control.ShownText();
      Unmark();
    }
  });
}

void Comparer::Unmark() {
  for (const auto& [grid, edits] : std::exchange(marked_grids_, {})) {
    grid->ClearDiffers();
  }
  for (Control* control : marked_) {
    control->SetDiffers(false);
  }
  marked_.clear();
}

}  // namespace korva

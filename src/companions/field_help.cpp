#include "companions/field_help.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <string>

#include "companions/meanings.h"
#include "companions/part_of.h"
#include "companions/row_value.h"
#include "core/design_names.h"
#include "core/grid.h"
#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/table_buttons.h"

namespace korva {

namespace {

constexpr StringView kLineBreak = u"\n";

/// True for a control that a user sets or reads a value in, and for a frame, which may be that of options.
bool IsInput(const Control& control) {
  return dynamic_cast<const TextField*>(&control) != nullptr ||
         dynamic_cast<const ComboBox*>(&control) != nullptr ||
         dynamic_cast<const OptionButton*>(&control) != nullptr ||
         dynamic_cast<const Frame*>(&control) != nullptr;
}

/// True for a field whose number stands there for the user to change, and that no check has marked as bad.
bool Judged(const TextField& field) {
  return field.Visible() && field.Enabled() && !field.Locked() && field.ShownLook() != Look::Bad &&
         NumericLength(field.Text()) > 0;
}

/// False for a pair whose numbers don't go together. One without two numbers is not judged.
bool TakesPair(const FieldRange& range) {
  const auto number = [](const TextField* end) { return end != nullptr && NumericLength(end->Text()) > 0; };
  return !number(range.lower) || !number(range.upper) ||
         range.TakesPair(LeadingNumber(range.lower->Text()), LeadingNumber(range.upper->Text()));
}

/// The lines that are not empty, one below the other.
String Lines(std::initializer_list<String> lines) {
  String all;
  for (const String& line : lines) {
    if (!line.empty()) {
      all.append(all.empty() ? StringView() : kLineBreak).append(line);
    }
  }
  return all;
}

String Joined(const String& one, const String& other) {
  return one.empty() || other.empty() ? one + other : one + u" " + other;
}

String NumberInUnit(double number, const String& unit) {
  return unit.empty() ? ShortestText(number) : ShortestText(number) + u" " + unit;
}

}  // namespace

FieldHelp::FieldHelp(ParameterPage& page) : page_(page) {
  for (const PagePart* part : page_.Parts()) {
    if (const auto* teller = dynamic_cast<const RangeTeller*>(part)) {
      tellers_.push_back(teller);
    }
  }
  // A part that was added later may take the place of one before, as a count takes that of a forced output.
  std::reverse(tellers_.begin(), tellers_.end());
  for (Control* control : page_.Controls()) {
    if (!control->Help && IsInput(*control)) {
      control->Help = [this, control] { return HelpOf(*control); };
    }
    if (auto* field = dynamic_cast<TextField*>(control)) {
      Follow(*field);
    }
  }
  FollowTable();
}

void FieldHelp::Follow(TextField& field) {
  if (field.Name() != page_.Text[0].Name()) {
    others_.push_back(&field);
  }
  // While the page is built its fields change many times, and all are judged at the end.
  field.Observe([this, &field, text = String()]() mutable {
    const bool other_text = text != field.Text();
    text = field.Text();
    if (!page_.Building()) {
      FieldShown(field, other_text);
    }
  });
}

void FieldHelp::FieldShown(TextField& field, bool other_text) const {
  if (!other_text && !Judged(field)) {
    field.SetOutside(false);
    return;
  }
  const auto found = std::find_if(numbers_.begin(), numbers_.end(),
                                  [&field](const NumberField& one) { return one.field == &field; });
  const std::optional<FieldRange> range = RangeOf(field, found == numbers_.end() ? -1 : found->row);
  Judge(field, range);
  if (other_text && range) {
    JudgeOtherEnd(field, *range);
  }
}

void FieldHelp::JudgeOtherEnd(const TextField& field, const FieldRange& range) const {
  const TextField* const other = range.upper == &field ? range.lower : range.upper;
  const auto found = std::find_if(numbers_.begin(), numbers_.end(),
                                  [other](const NumberField& one) { return one.field == other; });
  if (found != numbers_.end()) {
    Judge(*found->field, found->row);
  }
}

void FieldHelp::FollowTable() {
  auto* const grid = dynamic_cast<Grid*>(page_.FindControl("LnrFlexGrid"));
  auto* const size = dynamic_cast<TextField*>(page_.FindControl("txtSize"));
  if (grid == nullptr || size == nullptr || PartOf<TableButtons>(page_) == nullptr) {
    return;
  }
  grid->Observe([this, grid, size, edits = grid->Edits()]() mutable {
    if (edits != grid->Edits() && !page_.Building()) {
      edits = grid->Edits();
      Judge(*size, -1);
    }
  });
}

std::optional<FieldRange> FieldHelp::RangeOf(const TextField& field) const {
  return RangeOf(field, RowOf(field));
}

std::optional<FieldRange> FieldHelp::RangeOf(const TextField& field, int row) const {
  for (const RangeTeller* teller : tellers_) {
    if (auto range = row < 0 ? teller->RangeOfField(field) : teller->RangeOfRow(row)) {
      return range;
    }
  }
  return std::nullopt;
}

void FieldHelp::Judge(TextField& field, int row) const {
  Judge(field, Judged(field) ? RangeOf(field, row) : std::nullopt);
}

void FieldHelp::Judge(TextField& field, const std::optional<FieldRange>& range) {
  field.SetOutside(range && range->length == 0 && Judged(field) &&
                   !(range->Takes(LeadingNumber(field.Text())) && TakesPair(*range)));
}

void FieldHelp::DefinitionRead() {
  numbers_.clear();
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (page_.IsNumberRow(row)) {
      numbers_.push_back({&page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())], row});
    }
  }
}

void FieldHelp::JudgeRows() const {
  for (const NumberField& number : numbers_) {
    Judge(*number.field, number.row);
  }
}

void FieldHelp::JudgeOthers() const {
  for (TextField* field : others_) {
    Judge(*field, -1);
  }
}

void FieldHelp::ChoiceMade(const Choice& /*choice*/) {
  JudgeRows();
  JudgeOthers();
}

void FieldHelp::FieldChanged(int row) {
  if (page_.DataCell(row, kTextIndex).empty()) {
    JudgeRows();
  }
}

void FieldHelp::SettleTabs(TabMoment /*moment*/) { JudgeOthers(); }

String FieldHelp::HelpOf(const Control& control) const {
  const int row = RowOf(control);
  if (row < 0 && dynamic_cast<const Frame*>(&control) != nullptr) {
    return {};  // a box of something else
  }
  const auto* const field = dynamic_cast<const TextField*>(&control);
  return Lines({TitleOf(control, row), field == nullptr ? String() : LimitsOf(*field),
                field == nullptr ? String() : FaultOf(*field), MeaningOf(control, row),
                field == nullptr ? String() : ConditionOf(*field), StateOf(control, row)});
}

String FieldHelp::TitleOf(const Control& control, int row) const {
  const DesignRow* line = page_.RowOf(control);
  const String own = line == nullptr ? String() : LabelBefore(control, line->field);
  if (row < 0) {
    const bool named = line == nullptr || !own.empty();
    return named ? own : Joined(ShownIn(line->number), ShownIn(line->label));
  }
  const String& key = page_.DataCell(row, kItem);
  return Joined(u"Item " + key.substr(0, key.find(u'_')) + u" ", Joined(CaptionOf(page_, row), own));
}

String FieldHelp::MeaningOf(const Control& control, int row) const {
  const Language language = page_.CaptionLanguage();
  const StringView own = MeaningOfControl(control.Name(), language);
  if (!own.empty() || row < 0) {
    return String(own.empty() ? MeaningOfControl(control.FullName(), language) : own);
  }
  const String& caption = page_.DataCell(row, kCaption);
  return String(MeaningOfItem(caption.empty() ? page_.DataCell(row, kNumberCaption) : caption,
                              page_.DataCell(row, kItem), language));
}

String FieldHelp::LimitsOf(const TextField& field) const {
  const std::optional<FieldRange> range = RangeOf(field);
  if (!range) {
    return {};
  }
  if (range->length > 0) {
    return Filled(page_.Words(TextKey::HelpLength), {Ascii(std::to_string(range->length))});
  }
  const Language language = page_.CaptionLanguage();
  const String low = NumberInUnit(range->low, {});
  const String high = NumberInUnit(range->high, UnitBeside(field));
  if (std::isinf(range->low)) {
    return Filled(WordsOf(LimitWords::AtMost, language), {high});
  }
  if (std::isinf(range->high)) {
    return Filled(WordsOf(LimitWords::AtLeast, language), {NumberInUnit(range->low, UnitBeside(field))});
  }
  return range->ends ? Filled(page_.Words(TextKey::HelpRange), {low, high})
                     : Filled(WordsOf(LimitWords::Between, language), {low, high});
}

String FieldHelp::FaultOf(const TextField& field) const {
  const std::optional<FieldRange> range = field.Outside() ? RangeOf(field) : std::nullopt;
  if (!range) {
    return {};
  }
  return range->Takes(LeadingNumber(field.Text()))
             ? String(WordsOf(LimitWords::Unpaired, page_.CaptionLanguage()))
             : page_.Words(TextKey::HelpOutside);
}

String FieldHelp::ConditionOf(const TextField& field) const {
  const std::optional<FieldRange> range = RangeOf(field);
  const Language language = page_.CaptionLanguage();
  const auto say = [&](bool said, LimitWords words, const String& number) {
    return said ? Filled(WordsOf(words, language), {number}) : String();
  };
  if (!range) {
    return {};
  }
  return Lines({say(range->span > 0, LimitWords::Span, NumberInUnit(range->span, UnitBeside(field))),
                say(range->suppression > 0, LimitWords::Suppression, ShortestText(range->suppression)),
                say(range->rises, LimitWords::Rising, {}),
                say(range->also.has_value(), LimitWords::Besides, ShortestText(range->also.value_or(0)))});
}

String FieldHelp::StateOf(const Control& control, int row) const {
  if (row < 0) {
    return {};
  }
  if (page_.IsLive(row) && page_.Fixed(row)) {
    return page_.Words(TextKey::HelpLive);
  }
  // A box is locked as well where its row leaves it to the type that the device has.
  const bool box = dynamic_cast<const ComboBox*>(&control) != nullptr;
  const bool locked = box && control.Locked() && !page_.DataCell(row, kChangeRule).empty();
  return page_.Fixed(row) || locked ? page_.Words(TextKey::HelpFixed) : String();
}

int FieldHelp::RowOf(const Control& control) const {
  const Control* frame = dynamic_cast<const Frame*>(&control) != nullptr ? &control : control.Container();
  const auto row_with = [&](DataColumn column, int index) {
    return page_.Def.FindRow(column, Ascii(std::to_string(index)));
  };
  if (control.Name() == page_.Text[0].Name()) {
    return row_with(kTextIndex, control.Index());
  }
  if (control.Name() == page_.Combo[0].Name()) {
    return row_with(kComboIndex, control.Index());
  }
  if (frame != nullptr && frame->Name() == page_.Frames[0].Name()) {
    return row_with(kFrameIndex, frame->Index());
  }
  return -1;
}

std::vector<const Control*> FieldHelp::ControlsIn(std::string_view names) const {
  const std::vector<std::string_view> each = NamesIn(names);
  std::vector<const Control*> controls(each.size());
  std::transform(each.begin(), each.end(), controls.begin(),
                 [this](std::string_view name) { return page_.FindControl(name); });
  return controls;
}

String FieldHelp::LabelBefore(const Control& control, std::string_view names) const {
  const std::vector<const Control*> controls = ControlsIn(names);
  const auto own = std::find(controls.begin(), controls.end(), &control);
  const bool first = own == controls.begin() || own == controls.end();
  const auto* const label = first ? nullptr : dynamic_cast<const Label*>(*std::prev(own));
  return label == nullptr || !label->Visible() ? String() : label->Caption();
}

String FieldHelp::ShownIn(std::string_view names) const {
  String all;
  for (const Control* control : ControlsIn(names)) {
    if (control != nullptr && control->Visible()) {
      all = Joined(all, control->ShownText());
    }
  }
  return all;
}

String FieldHelp::UnitBeside(const Control& control) const {
  const DesignRow* line = page_.RowOf(control);
  return line == nullptr ? String() : ShownIn(line->unit);
}

}  // namespace korva

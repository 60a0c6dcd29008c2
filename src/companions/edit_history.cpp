#include "companions/edit_history.h"

#include <algorithm>
#include <utility>

#include "companions/comparer.h"
#include "companions/part_of.h"
#include "core/numbers.h"

namespace korva {

EditHistory::EditHistory(ParameterPage& page) : page_(page) {
  page_.PutIntoStatus(cmdUndo);
  page_.PutIntoStatus(cmdRedo);
  for (Control* control : page_.Controls()) {
    control->FollowUser(*this);
  }
  for (PagePart* part : page_.Parts()) {
    if (auto* table = dynamic_cast<TablePart*>(part)) {
      tables_.push_back(table);
    }
  }
  cmdUndo.OnClick = [this] { Undo(); };
  cmdRedo.OnClick = [this] { Redo(); };
  ShowState();
}

void EditHistory::SetCaptions(Language language) {
  cmdUndo.SetCaption(CaptionText(TextKey::Undo, language));
  cmdRedo.SetCaption(CaptionText(TextKey::Redo, language));
}

void EditHistory::SetExchangesBarred(bool barred) {
  barred_ = barred;
  operated_ = true;
  for (Action& action : actions_) {
    action.is_edit = false;
  }
  ShowState();
}

void EditHistory::SettleTabs(TabMoment /*moment*/) { Forget(); }

void EditHistory::SetSaved() {
  for (std::size_t at = 0; at < steps_.size(); ++at) {
    steps_[at].changed_before = at != position_;
    steps_[at].changed_after = at + 1 != position_;
  }
}

void EditHistory::Forget() {
  steps_.clear();
  position_ = 0;
  changes_ = 0;
  typed_ = nullptr;
  for (Action& action : actions_) {
    action.is_edit = false;
  }
  ShowState();
}

EditHistory::Memory EditHistory::KeepParts() const {
  Memory memory;
  for (PagePart* part : page_.Parts()) {
    if (std::function<void()> kept = part->Keep()) {
      memory.push_back(std::move(kept));
    }
  }
  return memory;
}

void EditHistory::ActionBegins(const Control& control) {
  if (mirror_ == nullptr) {
    mirror_ = std::make_unique<PageMirror>(page_);
  }
  TakeForeignChanges();
  actions_.push_back({.control = &control, .before = KeepParts(), .changed_before = page_.DataChanged});
}

void EditHistory::TakeForeignChanges() {
  const PageChange change = mirror_->Take();
  const bool operated = std::exchange(operated_, false);
  // The device spells its choices otherwise: former texts would stand in no list.
  const bool lists_anew =
      operated && std::any_of(change.controls.begin(), change.controls.end(), [](const auto& one) {
        return one.second.before.entries != one.second.after.entries;
      });
  const bool other_table = std::any_of(change.cells.begin(), change.cells.end(), [](const auto& one) {
    return one.second.before.text != one.second.after.text;
  });
  if (lists_anew || other_table) {
    Forget();
  }
  if (!change.set.Empty()) {
    // What was saved is the set no longer, however many edits are taken back.
    for (Step& step : steps_) {
      step.changed_before = true;
      step.changed_after = true;
    }
  }
}

void EditHistory::ActionEnded(const Control& control) {
  Action action = std::move(actions_.back());
  actions_.pop_back();
  if (!action.is_edit) {
    TakeForeignChanges();
  } else if (PageChange change = mirror_->Take(); OpensTable(control) && !change.Empty()) {
    Forget();
  } else if (IsEdit(control, change)) {
    Record(std::move(action), std::move(change));
  }
  if (typed_ != &control) {
    typed_ = nullptr;
  }
  ShowState();
}

bool EditHistory::OpensTable(const Control& control) const {
  return std::any_of(tables_.begin(), tables_.end(),
                     [&](const TablePart* table) { return &table->cmd_csvFileOpen == &control; });
}

bool EditHistory::IsEdit(const Control& control, const PageChange& change) const {
  const bool of_table = std::any_of(change.cells.begin(), change.cells.end(), [](const auto& one) {
    return one.second.before.text != one.second.after.text;
  });
  // Beside the set: a field of none of its items, an option, a number that a choice shows in another form.
  const bool of_field =
      mirror_->PlaceOf(control) &&
      std::any_of(change.controls.begin(), change.controls.end(), [this](const auto& one) {
        const auto& [place, sides] = one;
        const bool is_field = dynamic_cast<const CaptionedControl*>(&mirror_->At(place)) == nullptr;
        return (is_field && sides.before.text != sides.after.text) || sides.before.on != sides.after.on;
      });
  return !change.set.Empty() || of_table || of_field;
}

bool EditHistory::GoesOnTyping(const Control& control) const {
  return typed_ == &control && position_ > 0 && position_ == steps_.size();
}

void EditHistory::Record(Action action, PageChange change) {
  mirror_->NoteLiveValues(change);
  if (GoesOnTyping(*action.control)) {
    Join(steps_.back(), change);
    return;
  }
  DropUndone();
  changes_ += change.Size();
  const bool types = dynamic_cast<const TextField*>(action.control) != nullptr &&
                     mirror_->PlaceOf(*action.control).has_value();
  typed_ = types ? action.control : nullptr;
  steps_.push_back({.acted = action.control,
                    .change = std::move(change),
                    .before = std::move(action.before),
                    .after = KeepParts(),
                    .changed_before = action.changed_before,
                    .changed_after = page_.DataChanged});
  position_ = steps_.size();
  DropOldest();
}

void EditHistory::Join(Step& last, const PageChange& change) {
  changes_ -= last.change.Size();
  last.change.Add(change);
  last.after = KeepParts();
  last.changed_after = page_.DataChanged;
  changes_ += last.change.Size();
  if (last.change.Empty()) {
    typed_ = nullptr;
    steps_.pop_back();
    position_ = steps_.size();
  }
}

void EditHistory::DropUndone() {
  while (steps_.size() > position_) {
    changes_ -= steps_.back().change.Size();
    steps_.pop_back();
  }
}

void EditHistory::DropOldest() {
  while (steps_.size() > 1 && (steps_.size() > kMostSteps || changes_ > kMostChanges)) {
    changes_ -= steps_.front().change.Size();
    steps_.pop_front();
    --position_;
  }
}

void EditHistory::Undo() {
  if (!CanGo()) {
    return;
  }
  if (LnrEditor* editor = UntakenEdit()) {
    editor->GiveUpText();
  } else if (position_ > 0) {
    --position_;
    Go(steps_[position_], false);
  }
  ShowState();
}

void EditHistory::Redo() {
  if (CanGo() && position_ < steps_.size()) {
    ++position_;
    Go(steps_[position_ - 1], true);
  }
  ShowState();
}

void EditHistory::Go(const Step& step, bool after) {
  for (TablePart* table : tables_) {
    if (table->Editor().IsOpen()) {
      table->Editor().Cancel();
    }
  }
  static_cast<void>(mirror_->Take());
  mirror_->Put(step.change, after);
  for (const std::function<void()>& recall : after ? step.after : step.before) {
    recall();
  }
  page_.DataChanged = after ? step.changed_after : step.changed_before;
  TellParts(step.change);
  static_cast<void>(mirror_->Take());
  typed_ = nullptr;
  ShowWhere(step);
}

void EditHistory::TellParts(const PageChange& change) const {
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (change.set.Has(
            {LeadingInteger(page_.DataCell(row, kGroup)), LeadingInteger(page_.DataCell(row, kItem))})) {
      for (PagePart* part : page_.Parts()) {
        part->FieldChanged(row);
      }
    }
  }
  if (auto* comparer = PartOf<Comparer>(page_)) {
    comparer->Unmark();
  }
  page_.Notes.Tell(Notice::NotPasted, {});
}

Control* EditHistory::PlaceOf(const Step& step) const {
  if (const std::optional<std::size_t> place = mirror_->PlaceOf(*step.acted)) {
    Control& acted = mirror_->At(*place);
    const auto* const option = dynamic_cast<const OptionButton*>(&acted);
    const int selected = option == nullptr ? -1 : option->Group().Selected();
    if (selected >= 0) {
      return &option->Group()[selected];
    }
    if (dynamic_cast<const Grid*>(&acted) == nullptr) {
      return &acted;
    }
  }
  for (const auto& [place, sides] : step.change.cells) {
    const auto& [number, row, column] = place;
    if (row > 0 && sides.before.text != sides.after.text) {
      mirror_->Table(number).SetCurrentCell(row, column);
      return &mirror_->Table(number);
    }
  }
  for (const auto& [place, sides] : step.change.controls) {
    if (dynamic_cast<const TextField*>(&mirror_->At(place)) != nullptr &&
        sides.before.text != sides.after.text) {
      return &mirror_->At(place);
    }
  }
  return nullptr;
}

void EditHistory::ShowWhere(const Step& step) const {
  if (Control* control = PlaceOf(step)) {
    page_.GoTo(*control);
  }
}

LnrEditor* EditHistory::UntakenEdit() const {
  const auto found = std::find_if(tables_.begin(), tables_.end(), [](TablePart* table) {
    return table->Editor().IsOpen() && table->Editor().txtLnrNewValue.Marked();
  });
  return found == tables_.end() ? nullptr : &(*found)->Editor();
}

void EditHistory::ShowState() {
  cmdUndo.SetEnabled(!barred_ && (position_ > 0 || UntakenEdit() != nullptr));
  cmdRedo.SetEnabled(!barred_ && position_ < steps_.size());
}

}  // namespace korva

#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "companions/page_mirror.h"

namespace korva {

/// Undo and redo of the user's edits of a page: of fields, choices with all that they changed, and cells of
/// tables, each until the next upload, file or model.
///
///     steps:  [done] [done] | [undone] [undone]
///                           position
///
/// An edit is what changed from the begin of a user's action to its end. It puts a step behind the done ones
/// and drops the undone ones. What is typed into one field is one step, until the user does something else;
/// a choice, a cell, or a block that is pasted is one. What an operation on the device or a check changes is
/// no edit: a step gives back what it changed itself and leaves the rest. Nothing is sent.
///
/// An action is told through the controls (UserActions). It may pump: then other actions begin and end inside
/// it, each of which takes its own part of the changes.
class EditHistory final : public PagePart, public UserActions {
 public:
  /// The page has all its controls. It keeps this.
  explicit EditHistory(ParameterPage& page);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void PageCleared() override { Forget(); }
  void SetCleared() override { Forget(); }
  void UploadBegins() override { Forget(); }
  /// Also the end of an upload, in which the user may have typed into the memo.
  void SettleTabs(TabMoment moment) override;
  void SetSaved() override;

  void ActionBegins(const Control& control) override;
  void ActionEnded(const Control& control) override;

  /// Takes the last edit back, or puts it again, and shows where. A text that stands in the editor of a cell
  /// and is not in the table yet is given up first, for the cell's own; that is no edit. Both do nothing
  /// while an operation runs.
  void Undo();
  void Redo();
  /// Ends the history.
  void Forget();

  Button cmdUndo{"cmdUndo"};
  Button cmdRedo{"cmdRedo"};

  static constexpr std::size_t kMostSteps = 100;
  /// Of all steps together: fields, cells, items of the set.
  static constexpr std::size_t kMostChanges = 20000;

 private:
  /// What puts the parts back in what the page does not show.
  using Memory = std::vector<std::function<void()>>;

  struct Step {
    const Control* acted = nullptr;
    PageChange change;
    Memory before;
    Memory after;
    bool changed_before = false;  ///< the page's DataChanged
    bool changed_after = false;
  };
  struct Action {
    const Control* control = nullptr;
    Memory before;
    bool changed_before = false;
    bool is_edit = true;  ///< until an operation runs in it, or it ends the history
  };

  [[nodiscard]] Memory KeepParts() const;
  /// Takes what has changed by something else than an edit.
  void TakeForeignChanges();
  /// True for the button that reads a table from a file.
  [[nodiscard]] bool OpensTable(const Control& control) const;
  /// True when something has changed that an edit of this control is about.
  [[nodiscard]] bool IsEdit(const Control& control, const PageChange& change) const;
  void Record(Action action, PageChange change);
  [[nodiscard]] bool GoesOnTyping(const Control& control) const;
  void Join(Step& last, const PageChange& change);
  void DropOldest();
  void DropUndone();
  void Go(const Step& step, bool after);
  void ShowWhere(const Step& step) const;
  /// Where a step can be seen; nullptr for nowhere.
  [[nodiscard]] Control* PlaceOf(const Step& step) const;
  /// Lets the parts judge the values anew.
  void TellParts(const PageChange& change) const;
  /// The editor with a text that is not in its table; nullptr for none.
  [[nodiscard]] LnrEditor* UntakenEdit() const;
  [[nodiscard]] bool CanGo() const { return !barred_ && actions_.size() <= 1 && !page_.OperationRuns(); }
  void ShowState();

  ParameterPage& page_;
  std::vector<TablePart*> tables_;
  std::unique_ptr<PageMirror> mirror_;  ///< from the first action on
  std::deque<Step> steps_;
  std::size_t position_ = 0;
  std::size_t changes_ = 0;         ///< of all steps
  std::vector<Action> actions_;     ///< that have begun, each inside the one before
  const Control* typed_ = nullptr;  ///< the field of the last step, while the user goes on with it
  bool barred_ = false;
  bool operated_ = false;  ///< an operation ran since the mirror looked
};

}  // namespace korva

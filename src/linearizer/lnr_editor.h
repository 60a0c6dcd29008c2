#pragma once

#include <functional>

#include "core/grid.h"
#include "core/page.h"
#include "linearizer/lnr_table.h"

namespace korva {

/// The cell editor of the table: shows one cell in fraLnrChange and puts what the user typed there back.
///
///     Closed --Select--> Open --Ok, Cancel--> Closed
///
/// A press on another cell while Open selects that one; a changed text of the former cell is asked about
/// first. No text is refused when it is typed: the check of the table marks what is wrong. An open editor
/// locks nothing. What was typed and not confirmed is no part of the table: its cell is marked.
class LnrEditor {
 public:
  /// Adds its controls to the page. `refused` tells, after its box, that no cell takes an edit. Both outlive
  /// the editor.
  LnrEditor(Page& page, LnrTable& table, std::function<bool()> refused);
  LnrEditor(const LnrEditor&) = delete;
  LnrEditor& operator=(const LnrEditor&) = delete;
  ~LnrEditor() = default;

  /// Takes the presses on the cells of a table's grid.
  void Listen(Grid& grid);
  /// Edits another table from now on: an open edit is dropped.
  void Use(LnrTable& table);
  /// The arrow keys take an edit and go on to the next cell. The field of the edit is gone with a scroll of
  /// the grid (HideForScroll) and with another tab.
  void EditByArrows() { by_arrows_ = true; }
  /// The field of an edit that arrow keys take is gone until the next cell is selected.
  void HideForScroll();
  /// Ends an edit with the cell's new text; the keyboard stays in the table, `rows` further down.
  void Change(int rows);

  /// A click on a cell of the grid, its head and point numbers included.
  void Select(int row, int column);
  /// Puts a block of texts into the table, from a cell on, as if each had been confirmed there; an open edit
  /// is dropped. What lies beyond the rows or columns that are shown is left out, which the status area
  /// tells.
  void Paste(int row, int column, const TextBlock& block);
  /// cmdLnrChangeOK: the cell takes the text as it stands. Head and point numbers stay as they are.
  void Ok();
  /// Leaves the keyboard in the table, `rows` below the cell selected last, or in its last row.
  void ReturnToTable(int rows);
  /// Selects the cell so many rows and columns beside the one selected last, or at the border of the table.
  void GoOn(int rows, int columns);
  /// Takes the field of the edit away until the next cell is selected. What was typed stays.
  void HideField() { ShowField(false); }
  /// cmdLnrChangeCancel
  void Cancel();
  /// Of an open edit: goes on with the cell's own text.
  void GiveUpText();
  /// The table was rebuilt: the editor closes, no cell is selected.
  void Reset();
  /// The table has other values and is shown from its top: the first cell is the current one, and an open
  /// editor goes on with it.
  void GoToTop();
  /// The check coloured the cells anew: the open cell keeps its own colours and the mark for later.
  void TakeMarks();
  /// The table is checked, sent or saved as it stands: tells in the status area of a text that is not in it,
  /// as long as that stands open.
  void TellOpenEdit();
  [[nodiscard]] bool IsOpen() const { return fraLnrChange.Visible(); }
  void SetCaptions(Language language);

  Frame fraLnrChange{"fraLnrChange"};
  Label lblLnrRow{"lblLnrRow"};
  Label lblLnrCol{"lblLnrCol"};
  Label lblLnrNewValue{"lblLnrNewValue"};
  TextField txtLnrRow{"txtLnrRow"};
  TextField txtLnrCol{"txtLnrCol"};
  TextField txtLnrNewValue{"txtLnrNewValue"};
  Button cmdLnrChangeOK{"cmdLnrChangeOK"};
  Button cmdLnrChangeCancel{"cmdLnrChangeCancel"};

  int LnrPrevRow = 0;  ///< the cell selected last; 0 when none
  int LnrPrevCol = 0;
  bool LnrPrevMarked = false;  ///< it was marked bad when it was selected
  bool LnrRestoreDone = true;  ///< its colours were restored already

 private:
  /// True when the text under edit is another one than the cell's. Head and point numbers hold no value.
  [[nodiscard]] bool HasChange() const;
  /// Marks the open cell and the text under edit while they differ.
  void MarkOpenEdit();
  void ShowField(bool shown);
  void Close();
  void RestoreColours();
  void CancelChange();
  bool Press(Key key);
  /// Takes an edit and goes on to the cell where the key leads.
  bool TakeByArrow(Key key);

  Page& page_;
  LnrTable* table_;
  std::function<bool()> refused_;
  bool by_arrows_ = false;
};

}  // namespace korva

#include "linearizer/lnr_editor.h"

#include <string>

#include "core/text_utilities.h"

namespace korva {

LnrEditor::LnrEditor(Page& page, LnrTable& table) : page_(page), table_(table) {
  for (TextField* field : {&page_.txtLnrRow, &page_.txtLnrCol}) {
    field->SetLocked(true);
    field->SetLook(Look::Grey);
  }
}

void LnrEditor::Select(int row, int column) {
  if (IsOpen() && page_.txtLnrNewValue.Text() != table_.Shown().At(LnrPrevRow, LnrPrevCol).text &&
      page_.Box().Ask(BoxKey::ChangeFormerCell)) {
    Ok();
  }
  RestoreColours();
  LnrPrevMarked = table_.LookOf(row, column) == Look::Bad;
  table_.SetLook(row, column, Look::Selected);
  LnrPrevRow = row;
  LnrPrevCol = column;
  LnrRestoreDone = false;
  page_.fraLnrChange.SetVisible(true);
  page_.txtLnrNewValue.SetText(table_.Shown().At(row, column).text);
  page_.txtLnrRow.SetText(Ascii(std::to_string(row)));
  page_.txtLnrCol.SetText(Ascii(std::to_string(column)));
  page_.txtLnrNewValue.SetFocus();
}

void LnrEditor::Ok() {
  table_.Store(LnrPrevRow, LnrPrevCol, page_.txtLnrNewValue.Text());
  LnrPrevMarked = false;
  Close();
  page_.DataChanged = true;
}

void LnrEditor::Cancel() {
  page_.txtLnrNewValue.SetText({});
  Close();
}

void LnrEditor::Close() {
  page_.fraLnrChange.SetVisible(false);
  RestoreColours();
  page_.txtLnrRow.SetText({});
  page_.txtLnrCol.SetText({});
}

void LnrEditor::RestoreColours() {
  if (!LnrRestoreDone) {
    table_.SetLook(LnrPrevRow, LnrPrevCol, LnrPrevMarked ? Look::Bad : Look::Normal);
    LnrRestoreDone = true;
  }
}

void LnrEditor::Reset() {
  LnrPrevRow = 0;
  LnrPrevCol = 0;
  LnrPrevMarked = false;
  LnrRestoreDone = true;
  Cancel();
}

void LnrEditor::GoToTop() {
  LnrPrevRow = 1;
  LnrPrevCol = 1;
  LnrPrevMarked = false;
  LnrRestoreDone = !IsOpen();
  if (IsOpen()) {
    table_.SetLook(1, 1, Look::Selected);
    page_.txtLnrNewValue.SetText(table_.Value(1, 1));
  }
  page_.txtLnrRow.SetText(u"1");
  page_.txtLnrCol.SetText(u"1");
  table_.ScrollToTop();
}

void LnrEditor::TakeMarks() {
  if (IsOpen()) {
    LnrPrevMarked = table_.LookOf(LnrPrevRow, LnrPrevCol) == Look::Bad;
    table_.SetLook(LnrPrevRow, LnrPrevCol, Look::Selected);
  }
}

}  // namespace korva

#include "linearizer/lnr_editor.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/text_utilities.h"

namespace korva {

LnrEditor::LnrEditor(Page& page, LnrTable& table, std::function<bool()> refused)
    : page_(page), table_(&table), refused_(std::move(refused)) {
  page_.RegisterAll<Control>({&fraLnrChange, &lblLnrRow, &lblLnrCol, &lblLnrNewValue, &txtLnrRow, &txtLnrCol,
                              &txtLnrNewValue, &cmdLnrChangeOK, &cmdLnrChangeCancel});
  fraLnrChange.SetVisible(false);
  for (TextField* field : {&txtLnrRow, &txtLnrCol}) {
    field->SetLocked(true);
    field->SetLook(Look::Grey);
  }
  for (TextField* field : {&txtLnrRow, &txtLnrCol, &txtLnrNewValue}) {
    field->SetNumeric(true);
  }
  txtLnrNewValue.OnChange = [this] { MarkOpenEdit(); };
  txtLnrNewValue.OnKey = [this](Key key) { return Press(key); };
  // One text is typed faster; several can't be meant for one cell.
  txtLnrNewValue.OnPaste = [this](const String& text) {
    const TextBlock block = BlockOf(text);
    const bool several = block.size() > 1 || (block.size() == 1 && block.front().size() > 1);
    if (several && LnrPrevRow > 0 && LnrPrevCol > 0 && !refused_()) {
      Paste(LnrPrevRow, LnrPrevCol, block);
    }
    return several;
  };
  cmdLnrChangeOK.OnClick = [this] { Change(0); };
  cmdLnrChangeCancel.OnClick = [this] { CancelChange(); };
}

void LnrEditor::Listen(Grid& grid) {
  grid.OnCellClick = [this](int row, int column) {
    if (!refused_()) {
      Select(row, column);
    }
  };
  grid.OnPaste = [this](int row, int column, const TextBlock& block) {
    if (!refused_()) {
      Paste(row, column, block);
    }
  };
  grid.OnScroll = [this] { HideForScroll(); };
}

void LnrEditor::Use(LnrTable& table) {
  if (table_ != &table) {
    Cancel();
    Reset();
    table_ = &table;
  }
}

void LnrEditor::HideForScroll() {
  if (by_arrows_) {
    HideField();
  }
}

void LnrEditor::Change(int rows) {
  if (!refused_()) {
    Ok();
    ReturnToTable(rows);
  }
}

void LnrEditor::CancelChange() {
  Cancel();
  ReturnToTable(0);
}

bool LnrEditor::Press(Key key) {
  if (key == Key::Escape) {
    CancelChange();
    return true;
  }
  if (by_arrows_) {
    return TakeByArrow(key);
  }
  if (key == Key::Enter) {
    Change(1);
  }
  return key == Key::Enter;
}

bool LnrEditor::TakeByArrow(Key key) {
  Change(0);
  if (key == Key::Enter || IsOpen()) {
    return true;
  }
  const int rows = key == Key::Down ? 1 : key == Key::Up ? -1 : 0;
  const int columns = key == Key::Right ? 1 : key == Key::Left ? -1 : 0;
  GoOn(rows, columns);
  return true;
}

void LnrEditor::SetCaptions(Language language) {
  fraLnrChange.SetCaption(CaptionText(TextKey::ChangeOfValue, language));
  lblLnrRow.SetCaption(CaptionText(TextKey::Row, language));
  lblLnrCol.SetCaption(CaptionText(TextKey::Column, language));
  lblLnrNewValue.SetCaption(CaptionText(TextKey::NewValue, language));
  cmdLnrChangeOK.SetCaption(CaptionText(TextKey::Modify, language));
  cmdLnrChangeCancel.SetCaption(CaptionText(TextKey::Cancel, language));
}

void LnrEditor::Select(int row, int column) {
  if (IsOpen() && txtLnrNewValue.Text() != table_->Shown().At(LnrPrevRow, LnrPrevCol).text &&
      page_.Box().Ask(BoxKey::ChangeFormerCell)) {
    Ok();
  }
  RestoreColours();
  table_->SetMarked(LnrPrevRow, LnrPrevCol, false);
  LnrPrevMarked = table_->LookOf(row, column) == Look::Bad;
  table_->SetLook(row, column, Look::Selected);
  LnrPrevRow = row;
  LnrPrevCol = column;
  LnrRestoreDone = false;
  fraLnrChange.SetVisible(true);
  ShowField(true);
  txtLnrNewValue.SetText(table_->Shown().At(row, column).text);
  MarkOpenEdit();
  txtLnrRow.SetText(Ascii(std::to_string(row)));
  txtLnrCol.SetText(Ascii(std::to_string(column)));
  txtLnrNewValue.SetFocus();
}

void LnrEditor::Paste(int row, int column, const TextBlock& block) {
  Cancel();
  const Grid& grid = table_->Shown();
  const int last_row = std::min(table_->Points(), grid.Rows() - 1);
  int left_out = 0;
  for (int line = 0; line < static_cast<int>(block.size()); ++line) {
    const std::vector<String>& texts = block[static_cast<std::size_t>(line)];
    for (int place = 0; place < static_cast<int>(texts.size()); ++place) {
      if (row + line > last_row || column + place >= grid.Columns()) {
        ++left_out;
        continue;
      }
      table_->Store(row + line, column + place, HalfWidthNumber(texts[static_cast<std::size_t>(place)]));
      table_->SetLook(row + line, column + place, Look::Normal);
    }
  }
  page_.DataChanged = true;
  const String number = Ascii(std::to_string(left_out));
  page_.Notes.Tell(Notice::NotPasted,
                   left_out == 0 ? String() : Filled(page_.Words(TextKey::NotPasted), {number}));
  table_->GoTo(row, column);
}

void LnrEditor::Ok() {
  table_->Store(LnrPrevRow, LnrPrevCol, txtLnrNewValue.Text());
  LnrPrevMarked = false;
  Close();
  page_.DataChanged = true;
}

void LnrEditor::ReturnToTable(int rows) { table_->GoTo(LnrPrevRow + rows, LnrPrevCol); }

void LnrEditor::GoOn(int rows, int columns) {
  const int row = std::clamp(LnrPrevRow + rows, 1, table_->Points());
  table_->BringIntoView(row);
  Select(row, std::clamp(LnrPrevCol + columns, 1, table_->Columns() - 1));
}

void LnrEditor::Cancel() {
  Close();
  txtLnrNewValue.SetText({});
}

void LnrEditor::GiveUpText() {
  txtLnrNewValue.SetText(table_->Shown().At(LnrPrevRow, LnrPrevCol).text);
  txtLnrNewValue.SetFocus();
}

bool LnrEditor::HasChange() const {
  return IsOpen() && LnrPrevRow > 0 && LnrPrevCol > 0 &&
         txtLnrNewValue.Text() != table_->Shown().At(LnrPrevRow, LnrPrevCol).text;
}

void LnrEditor::MarkOpenEdit() {
  const bool change = HasChange();
  txtLnrNewValue.SetMarked(change);
  table_->SetMarked(LnrPrevRow, LnrPrevCol, change);
  if (!change) {
    page_.Notes.Tell(Notice::OpenEdit, {});
  }
}

void LnrEditor::TellOpenEdit() {
  if (HasChange()) {
    page_.Notes.Tell(Notice::OpenEdit, page_.Words(TextKey::EditNotTaken) + page_.Words(TextKey::Row) + u" " +
                                           txtLnrRow.Text() + u" " + page_.Words(TextKey::Column) + u" " +
                                           txtLnrCol.Text() + u"「" + txtLnrNewValue.Text() + u"」");
  }
}

void LnrEditor::ShowField(bool shown) {
  lblLnrNewValue.SetVisible(shown);
  txtLnrNewValue.SetVisible(shown);
}

void LnrEditor::Close() {
  fraLnrChange.SetVisible(false);
  MarkOpenEdit();
  RestoreColours();
  txtLnrRow.SetText({});
  txtLnrCol.SetText({});
}

void LnrEditor::RestoreColours() {
  if (!LnrRestoreDone) {
    table_->SetLook(LnrPrevRow, LnrPrevCol, LnrPrevMarked ? Look::Bad : Look::Normal);
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
    table_->SetLook(1, 1, Look::Selected);
    txtLnrNewValue.SetText(table_->Value(1, 1));
  }
  MarkOpenEdit();
  txtLnrRow.SetText(u"1");
  txtLnrCol.SetText(u"1");
  table_->ScrollToTop();
}

void LnrEditor::TakeMarks() {
  if (IsOpen()) {
    LnrPrevMarked = table_->LookOf(LnrPrevRow, LnrPrevCol) == Look::Bad;
    table_->SetLook(LnrPrevRow, LnrPrevCol, Look::Selected);
  }
  MarkOpenEdit();
}

}  // namespace korva

#include "linearizer/table_mover.h"

namespace korva {

TableMover::TableMover(ParameterPage& page) : page_(page) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&cmdReadOutTable, &cmdWriteInTable, &Table_ProgressBar});
}

void TableMover::SetCaptions(Language language) {
  cmdReadOutTable.SetCaption(CaptionText(TextKey::ReadOut, language));
  cmdWriteInTable.SetCaption(CaptionText(TextKey::WriteIn, language));
  Table_ProgressBar.SetCaption(CaptionText(TextKey::TableBar, language));
}

void TableMover::SetExchangesBarred(bool barred) {
  cmdReadOutTable.SetEnabled(!barred);
  cmdWriteInTable.SetEnabled(!barred);
}

void TableMover::Exchange(const Run& run) {
  if (page_.OperationRuns()) {
    return;
  }
  page_.CommFailed = false;  // there is no test of the link here
  if (run.holds_close) {
    page_.BeginDownload();
  } else {
    page_.BeginOperation();
  }
  page_.LockFrame();
  page_.TellBegan(run.report == BoxKey::TableRead ? Transfer::TableRead : Transfer::TableWrite);
  const bool done = run.move();
  page_.TellEnded(done);
  if (done) {
    Table_ProgressBar.SetValue(100);
    page_.Box().Show(run.report);
  }
  if (done && run.holds_close) {
    page_.CheckPendingQuit();
  } else if (!done && run.changes_mode) {
    page_.EndDownload();
  } else {
    page_.EndOperation();
  }
  page_.UnlockFrame();
  if (Control* fault = std::exchange(fault_, nullptr)) {
    page_.GoTo(*fault);
  }
}

}  // namespace korva

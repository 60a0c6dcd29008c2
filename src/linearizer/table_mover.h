#pragma once

#include <functional>
#include <utility>

#include "files/parameter_page.h"

namespace korva {

/// The buttons by which a table travels, and the frame in which it does.
///
///     Idle --cmdReadOutTable, cmdWriteInTable--> Exchanging --done, refused or failed--> Idle
///
/// In Exchanging the frame is locked and CommBusy is set. However it ends, the bars go to 0 and the frame is
/// free.
class TableMover : public PagePart {
 public:
  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void ResetBars() override { Table_ProgressBar.SetValue(0); }

  Button cmdReadOutTable{"cmdReadOutTable"};
  Button cmdWriteInTable{"cmdWriteInTable"};
  ProgressBar Table_ProgressBar{"Table_ProgressBar"};

 protected:
  /// What one button does.
  struct Run {
    /// Does all of it; false after its box.
    std::function<bool()> move;
    /// The device's mode changes: a failure puts it in monitor mode.
    bool changes_mode = false;
    /// A close request is held until the device is in monitor mode again, where it is put at the end.
    bool holds_close = false;
    BoxKey report;
  };

  /// Adds itself and its controls to the page, which outlives this.
  explicit TableMover(ParameterPage& page);

  /// Does nothing while an operation runs.
  void Exchange(const Run& run);
  /// Where the keyboard goes when the frame is free: what a check found bad.
  void NoteFault(Control* fault) { fault_ = fault; }

  [[nodiscard]] ParameterPage& ItsPage() const { return page_; }

 private:
  ParameterPage& page_;
  Control* fault_ = nullptr;
};

}  // namespace korva

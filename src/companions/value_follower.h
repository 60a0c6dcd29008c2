#pragma once

#include "companions/watch_panel.h"
#include "files/parameter_page.h"
#include "monitor/live_source.h"

namespace korva {

/// Takes the live values of a page to the window that shows them in large, and opens that.
class ValueFollower final : public PagePart, public LiveObserver {
 public:
  /// Follows the loops of the page's parts. All outlive this, but for the page, which keeps it.
  ValueFollower(ParameterPage& page, Watch& watch, WatchPanel& panel);

  void SetCaptions(Language language) override;
  void PageCleared() override { watch_.Clear(); }
  void PageBuilt() override { watch_.Clear(); }

  void LoopBegan() override { panel_.LoopBegan(page_.txtDirName.Text(), page_.ProposedName(u".csv")); }
  void ValueRead(const LiveReading& reading) override;
  void TurnEnded() override { panel_.TurnEnded(); }
  void LoopEnded() override { panel_.LoopEnded(); }

  Button cmdWatch{"cmdWatch"};

 private:
  ParameterPage& page_;
  Watch& watch_;
  WatchPanel& panel_;
};

}  // namespace korva

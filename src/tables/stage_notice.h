#pragma once

#include "core/page.h"

namespace korva {

/// What is going on in the longest of operations, in the status area: the stage in words and, where a stage
/// is long, the blocks done of all and the time left.
///
/// The time left is the time that the blocks took so far, spread over those to come.
class StageNotice {
 public:
  /// The page outlives this.
  explicit StageNotice(Page& page) : page_(page) {}

  /// A stage begins. Its text names `subject` where it has a place for it.
  void Begin(TextKey stage, const String& subject = {});
  /// The same for a stage of `blocks`, of which none is done.
  void BeginBlocks(TextKey stage, int blocks, const String& subject = {});
  /// One more of the blocks is done.
  void BlockDone();
  /// Nothing goes on any more.
  void End();

 private:
  void TellBlocks();
  [[nodiscard]] String TimeLeft() const;

  Page& page_;
  String stage_;
  Clock begun_{0};
  int done_ = 0;
  int blocks_ = 0;
};

}  // namespace korva

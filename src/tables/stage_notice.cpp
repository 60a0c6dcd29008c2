#include "tables/stage_notice.h"

#include <string>

#include "core/program.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

String Whole(std::int64_t number) { return Ascii(std::to_string(number)); }

}  // namespace

void StageNotice::Begin(TextKey stage, const String& subject) {
  stage_ = Filled(page_.Words(stage), {subject});
  page_.Notes.Tell(Notice::Stage, stage_);
}

void StageNotice::BeginBlocks(TextKey stage, int blocks, const String& subject) {
  Begin(stage, subject);
  begun_ = page_.ItsProgram().Loop().Now();
  done_ = 0;
  blocks_ = blocks;
  TellBlocks();
}

void StageNotice::BlockDone() {
  ++done_;
  TellBlocks();
}

void StageNotice::End() { page_.Notes.Tell(Notice::Stage, {}); }

void StageNotice::TellBlocks() {
  const String blocks = Filled(page_.Words(TextKey::BlocksDone), {stage_, Whole(done_), Whole(blocks_)});
  page_.Notes.Tell(Notice::Stage, blocks + TimeLeft());
}

String StageNotice::TimeLeft() const {
  if (done_ == 0) {
    return {};
  }
  const Clock left = (page_.ItsProgram().Loop().Now() - begun_) / done_ * (blocks_ - done_);
  const std::int64_t seconds = std::chrono::ceil<std::chrono::seconds>(left).count();
  constexpr std::int64_t minute = 60;
  return Filled(page_.Words(TextKey::TimeLeft), {Whole(seconds / minute), Whole(seconds % minute)});
}

}  // namespace korva

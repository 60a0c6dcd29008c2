#include "companions/value_follower.h"

namespace korva {

ValueFollower::ValueFollower(ParameterPage& page, Watch& watch, WatchPanel& panel)
    : page_(page), watch_(watch), panel_(panel) {
  for (PagePart* part : page_.Parts()) {
    if (auto* source = dynamic_cast<LiveSource*>(part)) {
      source->Watcher = this;
    }
  }
  page_.PutIntoStatus(cmdWatch);
  cmdWatch.OnClick = [this] { panel_.Open(); };
}

void ValueFollower::SetCaptions(Language language) {
  cmdWatch.SetCaption(CaptionText(TextKey::Watch, language));
  panel_.SetLanguage(language);
}

void ValueFollower::ValueRead(const LiveReading& reading) {
  panel_.ValueRead({.row = reading.row,
                    .item = page_.WireOf(reading.row).item,
                    .caption = reading.caption,
                    .text = reading.text,
                    .unit = reading.unit,
                    .answered = reading.answered});
}

}  // namespace korva

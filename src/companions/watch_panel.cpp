#include "companions/watch_panel.h"

#include <string>

#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr Milliseconds kSecond{1000};

String WithWord(TextKey word, const std::optional<WatchedValue::Number>& number, Language language) {
  return number ? CaptionText(word, language) + u" " + number->text : String();
}

}  // namespace

WatchPanel::WatchPanel(Watch& watch, const Platform& platform)
    : SideWindow("pnlWatch"),
      watch_(watch),
      loop_(platform.loop),
      recording_(platform.loop, platform.code_page),
      age_timer_("WatchTimer", platform.loop, kSecond) {
  cmdWatchAnew.OnClick = [this] { watch_.BeginAnew(); };
  cmdRecord.OnClick = [this] { RecordOrStop(); };
  age_timer_.OnTick = [this] { Changed(); };
  watch_.Observe([this] { Settle(); });
  Observe([this] {
    const bool ages = Visible() && !Values().empty();
    if (!ages) {
      age_timer_.Stop();
    } else if (!age_timer_.Running()) {
      age_timer_.Start();
    }
  });
  SetLanguage(Language::Japanese);
}

void WatchPanel::SetLanguage(Language language) {
  cmdWatchAnew.SetCaption(CaptionText(TextKey::WatchAnew, language));
  SideWindow::SetLanguage(language);
  Settle();
}

void WatchPanel::LoopBegan(const String& folder, const String& file_name) {
  folder_ = folder;
  file_name_ = file_name;
  recording_.ForgetProblem();
  watch_.Begin();
}

void WatchPanel::ValueRead(const WatchReading& reading) {
  recording_.Take(reading);
  watch_.Take(reading, loop_.Now());
}

void WatchPanel::TurnEnded() {
  const bool ran = recording_.Runs();
  recording_.EndTurn(watch_.Values(), ItsLanguage());
  if (ran && !recording_.Runs()) {
    ShowBroken();
  }
}

void WatchPanel::LoopEnded() {
  question_.reset();
  const bool ran = recording_.Runs();
  recording_.End();
  watch_.End(loop_.Now());
  if (ran && !Problem().empty()) {
    ShowBroken();
  }
}

String WatchPanel::Heading() const {
  if (recording_.Runs()) {
    return Filled(Words(TextKey::RecordRuns), {recording_.Path()});
  }
  if (!Problem().empty()) {
    return Filled(Words(TextKey::RecordFailed), {Problem()});
  }
  return Values().empty() ? Words(TextKey::WatchNothing) : String();
}

WatchPanel::Tile WatchPanel::TileOf(const WatchedValue& value) const {
  const auto age = watch_.AgeOf(value, loop_.Now());
  return {.caption = value.item + u"  " + value.caption,
          .text = value.text,
          .unit = value.unit,
          .least = WithWord(TextKey::WatchMinimum, value.least, ItsLanguage()),
          .most = WithWord(TextKey::WatchMaximum, value.most, ItsLanguage()),
          .age = age ? Filled(Words(age->text), {Ascii(std::to_string(age->seconds))}) : String(),
          .old = age.has_value()};
}

void WatchPanel::RecordOrStop() {
  if (recording_.Runs()) {
    recording_.End();
  } else if (place_ != nullptr && watch_.Running() && question_ == nullptr) {
    Ask();
  }
  Settle();
}

void WatchPanel::Ask() {
  question_ = place_->Ask({.save = true, .start_folder = folder_, .filter = CsvFilter(), .name = file_name_},
                          [this](const std::optional<String>& path) {
                            question_.reset();
                            if (path) {
                              BeginRecord(*path);
                            }
                            Settle();
                          });
}

void WatchPanel::BeginRecord(const String& path) {
  if (!recording_.Begin(*place_, path)) {
    ShowBroken();
  }
}

void WatchPanel::ShowBroken() {
  Settle();
  Open();
}

void WatchPanel::Settle() {
  const bool runs = recording_.Runs();
  cmdRecord.SetCaption(Words(runs ? TextKey::RecordStop : TextKey::RecordStart));
  cmdRecord.SetEnabled(runs || (place_ != nullptr && watch_.Running() && question_ == nullptr));
  cmdWatchAnew.SetEnabled(!Values().empty());
  Changed();
}

}  // namespace korva

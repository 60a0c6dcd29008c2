#include "cli/print_watch.h"

#include <string>

#include "core/text_utilities.h"

namespace korva::cli {

namespace {

std::string NumberOf(const std::optional<WatchedValue::Number>& number) {
  return Quoted(number ? number->text : String());
}

std::string AgeText(const std::optional<Watch::Age>& age) {
  if (!age) {
    return {};
  }
  return (age->text == TextKey::WatchSilent ? " silent " : " old ") + std::to_string(age->seconds);
}

}  // namespace

void PrintWatch(const Watch& watch, Clock now, Transcript& transcript) {
  if (!watch.Running() && watch.Values().empty()) {
    transcript.Tell("watch none");
    return;
  }
  transcript.Tell(watch.Running() ? "watch running" : "watch ended");
  for (const WatchedValue& value : watch.Values()) {
    transcript.Tell("watch " + ToUtf8(value.item) + " " + Quoted(value.caption) + " " + Quoted(value.text) +
                    " " + Quoted(value.unit) + " min " + NumberOf(value.least) + " max " +
                    NumberOf(value.most) + AgeText(watch.AgeOf(value, now)));
  }
}

}  // namespace korva::cli

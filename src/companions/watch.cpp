#include "companions/watch.h"

#include <algorithm>

#include "core/numbers.h"

namespace korva {

namespace {

using ToldNumber = WatchedValue::Number;
using ReadOutcome = WatchedValue::Outcome;

ReadOutcome OutcomeOf(const WatchReading& reading) {
  if (!reading.text.empty()) {
    return ReadOutcome::Told;
  }
  return reading.answered ? ReadOutcome::Untold : ReadOutcome::Silent;
}

std::optional<ToldNumber> NumberIn(const String& text) {
  return IsNumeric(text) ? std::optional(ToldNumber{.value = LeadingNumber(text), .text = text})
                         : std::nullopt;
}

void ForgetNumbers(WatchedValue& value) {
  value.least.reset();
  value.most.reset();
  value.trend.clear();
}

void AddToTrend(WatchedValue& value, const std::optional<ToldNumber>& number, Clock now) {
  const bool gap_goes_on = !number && (value.trend.empty() || !value.trend.back().value);
  if (!gap_goes_on) {
    value.trend.push_back({.time = now, .value = number ? std::optional(number->value) : std::nullopt});
  }
  while (!value.trend.empty() &&
         (value.trend.size() > Watch::kMostPoints || value.trend.front().time < now - Watch::kTrend)) {
    value.trend.pop_front();
  }
}

void AddNumber(WatchedValue& value, const ToldNumber& number) {
  if (!value.least || number.value < value.least->value) {
    value.least = number;
  }
  if (!value.most || number.value > value.most->value) {
    value.most = number;
  }
}

}  // namespace

void Watch::Begin() {
  values_.clear();
  running_ = true;
  Changed();
}

void Watch::End(Clock now) {
  running_ = false;
  ended_ = now;
  Changed();
}

void Watch::Clear() {
  if (!running_ && !values_.empty()) {
    values_.clear();
    Changed();
  }
}

void Watch::BeginAnew() {
  for (WatchedValue& value : values_) {
    ForgetNumbers(value);
    value.change = ++changes_;
  }
  Changed();
}

WatchedValue& Watch::ValueOf(const WatchReading& reading, Clock now) {
  const auto found = std::find_if(values_.begin(), values_.end(),
                                  [&](const WatchedValue& value) { return value.row == reading.row; });
  if (found != values_.end()) {
    return *found;
  }
  WatchedValue& value = values_.emplace_back();
  value.row = reading.row;
  value.item = reading.item;
  value.caption = reading.caption;
  value.first_read = now;
  return value;
}

void Watch::Take(const WatchReading& reading, Clock now) {
  WatchedValue& value = ValueOf(reading, now);
  value.outcome = OutcomeOf(reading);
  value.last_read = now;
  if (value.outcome == ReadOutcome::Told) {
    if (value.told && value.unit != reading.unit) {
      ForgetNumbers(value);  // numbers of two units can't be compared
    }
    value.text = reading.text;
    value.unit = reading.unit;
    value.told = now;
  }
  const std::optional<ToldNumber> number = NumberIn(reading.text);
  if (number) {
    AddNumber(value, *number);
  }
  AddToTrend(value, number, now);
  value.change = ++changes_;
  Changed();
}

std::optional<Watch::Age> Watch::AgeOf(const WatchedValue& value, Clock now) const {
  const auto seconds = [](Clock time) {
    return static_cast<int>(std::chrono::floor<std::chrono::seconds>(time).count());
  };
  const Clock until = running_ ? now : ended_;
  if (value.outcome == ReadOutcome::Silent && (running_ || !value.told)) {
    return Age{.text = TextKey::WatchSilent,
               .seconds = seconds(until - value.told.value_or(value.first_read))};
  }
  const bool present = running_ && value.outcome == ReadOutcome::Told && now - value.last_read < kOld;
  if (present || !value.told) {
    return std::nullopt;
  }
  return Age{.text = TextKey::WatchAge, .seconds = seconds(now - *value.told)};
}

void Watch::Changed() const {
  for (const auto& action : observers_) {
    action();
  }
}

}  // namespace korva

#include "sim/live_values.h"

namespace korva::sim {

std::optional<double> LiveValues::Held(std::string_view item) const {
  const auto held = held_.find(item);
  return held == held_.end() ? std::nullopt : std::optional(held->second);
}

double LiveValues::Value(std::string_view item, double zero, double span) const {
  if (const auto held = Held(item)) {
    return *held;
  }
  // A triangle between 40 % and 60 % in steps of 0.5 %.
  constexpr unsigned period = 80;
  const unsigned phase = (reads_ + (period / 4)) % period;
  const unsigned rise = phase < period / 2 ? phase : period - phase;
  const double percent = forced_.value_or(40.0 + (0.5 * rise));
  return zero + ((span - zero) * percent / 100.0);
}

bool LiveValues::Force(double percent) {
  if (percent < kLowestOutput || percent > kHighestOutput) {
    return false;
  }
  forced_ = percent;
  return true;
}

}  // namespace korva::sim

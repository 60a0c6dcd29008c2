#include "sim/transmitter.h"

#include <algorithm>
namespace korva::sim {

namespace {

constexpr double kOutOfRange = 9999;    // degrees that no sensor reaches
constexpr double kSignalDigits = 1000;  // microvolts of a millivolt, milliohms of an ohm

}  // namespace

double Interpolated(std::span<const Point> points, double x) {
  const auto next = std::ranges::find_if(points, [&](const Point& point) { return point.x >= x; });
  if (next == points.begin()) {
    return next->y;
  }
  if (next == points.end()) {
    return points.back().y;
  }
  const Point& before = *(next - 1);
  return before.y + ((next->y - before.y) * (x - before.x) / (next->x - before.x));
}

double Transmitter::Value(const Item& item) const {
  if (const auto held = live_.Held(item.item)) {
    return *held;
  }
  if (item.item == "03") {
    return Output();
  }
  if (item.item == "06") {
    return Signal();
  }
  return item.item == "07" && setup_.HasColdJunction() ? InTemperatureUnit(kTerminals) : Input();
}

/// In millivolts or ohms, or in the unit of the input.
double Transmitter::Signal() const {
  if (const auto held = live_.Held("06")) {
    return *held;
  }
  const auto range = setup_.SensorRange();
  return range ? live_.Value("06", range->x, range->y) / kSignalDigits
               : live_.Value("06", Number("14", 0), Number("15", 100));
}

double Transmitter::Input() const {
  if (const auto held = live_.Held("04")) {
    return *held;
  }
  if (!setup_.HasSensor()) {
    return Signal();
  }
  const auto curve = setup_.StoredCurve();
  return InTemperatureUnit(curve.empty() ? kOutOfRange : Interpolated(curve, Signal() * kSignalDigits));
}

double Transmitter::Output() const {
  if (const auto forced = live_.Forced()) {
    return *forced;
  }
  const double zero = Number("14", 0);
  const double width = Number("15", 100) - zero;
  const double percent = width == 0 ? kHighestReading : (Input() - zero) / width * 100;
  return Linearized(std::clamp(percent, kLowestReading, kHighestReading));
}

double Transmitter::Linearized(double percent) const {
  if (ChoiceText("23") != "ON") {
    return percent;
  }
  const auto stored = setup_.StoredLinearizer();
  const auto points = stored.empty() ? table_.Points() : stored;
  return points.empty() ? percent : Interpolated(points, percent);
}

double Transmitter::InTemperatureUnit(double degrees) const {
  const auto unit = ChoiceText("21");
  if (unit == "deg F") {
    return (degrees * 9 / 5) + 32;
  }
  return unit == "K" ? degrees + 273.15 : degrees;
}

std::string Transmitter::UnitOf(const Item& item) const {
  if (item.unit == "$in") {
    return ChoiceText("21");
  }
  return item.follows.empty() ? item.unit : setup_.InputUnit();
}

double Transmitter::Number(std::string_view item, double otherwise) const {
  const Item* const found = parameters_.Find("01", item);
  return found == nullptr ? otherwise : parameters_.Quantity(*found).value_or(otherwise);
}

std::string Transmitter::ChoiceText(std::string_view item) const {
  const Item* const found = parameters_.Find("01", item);
  return found == nullptr ? std::string{} : parameters_.Text(*found);
}

}  // namespace korva::sim

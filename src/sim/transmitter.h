#pragma once

#include <optional>
#include <span>
#include <string>

#include "sim/live_values.h"
#include "sim/parameters.h"
#include "sim/point_table.h"
#include "sim/setup.h"

namespace korva::sim {

/// The y of a line through points of rising x: straight between two points, of equal x the first one's,
/// beyond the ends the end's. \param points  Not empty.
double Interpolated(std::span<const Point> points, double x);

/// What a device that keeps its setup in its memory measures and gives out, worked out as it does: the signal
/// of its sensor, wandering or held, becomes a temperature by the curve that its memory holds now, and that
/// an output by zero, span and linearizer. All parts outlive it.
class Transmitter {
 public:
  Transmitter(const Setup& setup, const Parameters& parameters, const PointTable& table,
              const LiveValues& live)
      : setup_(setup), parameters_(parameters), table_(table), live_(live) {}

  /// Present number of a live item: 03 output in %, 04 input, 06 signal of the sensor, 07 cold junction of a
  /// thermocouple or averaged input. Without a valid curve the sensor is out of range.
  double Value(const Item& item) const;

  /// The unit that stands behind the number of an item; empty where it has none.
  std::string UnitOf(const Item& item) const;

 private:
  double Signal() const;
  double Input() const;
  double Output() const;
  double Linearized(double percent) const;
  double InTemperatureUnit(double degrees) const;
  double Number(std::string_view item, double otherwise) const;
  std::string ChoiceText(std::string_view item) const;

  const Setup& setup_;
  const Parameters& parameters_;
  const PointTable& table_;
  const LiveValues& live_;
};

}  // namespace korva::sim

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sim/compensation.h"
#include "sim/live_values.h"
#include "sim/parameters.h"

namespace korva::sim {

/// The two numbers of an item that holds a pair, "0.000 100.000".
struct NumberPair {
  double first = 0;
  double second = 0;
};
/// \return none for any other text.
std::optional<NumberPair> ParsePair(std::string_view text);
/// Both with three decimals, a blank between them.
std::string FormatPair(const NumberPair& pair);

/// What a device with two outputs measures and gives out: its input wanders within its range or is held; each
/// output follows it by a range, limits and a trim of its own. All parts outlive it.
class TwoOutputs {
 public:
  TwoOutputs(const Definition& definition, const Parameters& parameters, const LiveValues& live,
             const Compensation& compensation)
      : definition_(definition), parameters_(parameters), live_(live), compensation_(compensation) {}

  /// Present number of a live item: 04 input, 05 and 03 first output in %, 06 signal of the sensor, 07 cold
  /// junction of a thermocouple or averaged input, 08 second output in %. Temperatures are in the unit of
  /// item 21; those in deg F stand 25.6 too high, as they do on the real devices.
  double Value(const Item& item) const;

  /// The unit that stands behind the number of a live item.
  std::string UnitOf(const Item& item) const;

  /// The unit of the numbers of an item that holds two: the input's, which of a temperature is deg C, or that
  /// of an output's type; a cold junction's have none.
  std::string UnitOfPair(const Item& item) const;

  /// What compensation and calibration have to go by.
  Compensation::Circuit Circuit() const;

 private:
  /// The items of an output.
  struct Output {
    std::string_view range;
    std::string_view limits;
    std::string_view zero;
    std::string_view span;
  };
  static const Output kFirst;
  static const Output kSecond;

  double Percent(const Output& output) const;
  double Input() const;
  double RawInput() const;
  double Signal() const;
  double InTemperatureUnit(double degrees) const;
  NumberPair Pair(std::string_view item) const;
  double Number(std::string_view item) const;
  std::string ChoiceText(std::string_view item) const;

  const Definition& definition_;
  const Parameters& parameters_;
  const LiveValues& live_;
  const Compensation& compensation_;
};

}  // namespace korva::sim

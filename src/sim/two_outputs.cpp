#include "sim/two_outputs.h"

#include <algorithm>

#include "sim/number.h"

namespace korva::sim {

namespace {

constexpr double kFahrenheitShift = 25.6;
constexpr int kPairDecimals = 3;
constexpr std::size_t kTypeUnitColumn = 5;  // of $I10

/// A sensor whose curve is as good as straight.
struct StraightSensor {
  std::string_view unit;
  double at_zero;
  double a_degree;
};
constexpr StraightSensor kThermocouple{.unit = "mV", .at_zero = 0, .a_degree = 0.04};
constexpr StraightSensor kResistance{.unit = "Ohm", .at_zero = 100, .a_degree = 0.385};

}  // namespace

constexpr TwoOutputs::Output TwoOutputs::kFirst{.range = "12", .limits = "13", .zero = "19", .span = "20"};
constexpr TwoOutputs::Output TwoOutputs::kSecond{.range = "42", .limits = "43", .zero = "44", .span = "45"};

std::optional<NumberPair> ParsePair(std::string_view text) {
  const auto blank = text.find(' ');
  const auto first = ParseNumber(text.substr(0, blank));
  const auto second = blank == std::string_view::npos ? std::nullopt : ParseNumber(text.substr(blank + 1));
  return first && second ? std::optional(NumberPair{.first = *first, .second = *second}) : std::nullopt;
}

std::string FormatPair(const NumberPair& pair) {
  return FormatNumber(pair.first, kPairDecimals) + " " + FormatNumber(pair.second, kPairDecimals);
}

double TwoOutputs::Value(const Item& item) const {
  if (const auto held = live_.Held(item.item)) {
    return *held;
  }
  if (item.item == "03" || item.item == "05") {
    return Percent(kFirst);
  }
  if (item.item == "08") {
    return Percent(kSecond);
  }
  if (item.item == "06") {
    return Signal();
  }
  const bool cold_junction = item.item == "07" && parameters_.Find("01", "34") != nullptr;
  return cold_junction ? InTemperatureUnit(kTerminals) : InTemperatureUnit(Input());
}

double TwoOutputs::Percent(const Output& output) const {
  const NumberPair input = Pair("14");
  const NumberPair input_limits = Pair("15");
  const double measured =
      std::clamp(Input(), input_limits.first, std::max(input_limits.first, input_limits.second));
  const double width = input.second - input.first;
  const double percent = width == 0 ? kHighestReading : (measured - input.first) / width * 100;
  const double wanted = live_.Forced().value_or(std::clamp(percent, kLowestReading, kHighestReading));

  const NumberPair range = Pair(output.range);
  const NumberPair limits = Pair(output.limits);
  const double full = range.second - range.first;
  const double level =
      std::clamp(range.first + (full * wanted / 100), limits.first, std::max(limits.first, limits.second));
  const double given = full == 0 ? 0 : (level - range.first) / full * 100;
  return (given * (100 + Number(output.span)) / 100) + Number(output.zero);
}

double TwoOutputs::RawInput() const {
  const NumberPair range = Pair("14");
  return live_.Held("04").value_or(live_.Value("", range.first, range.second));
}

double TwoOutputs::Input() const { return compensation_.Position(RawInput()); }

double TwoOutputs::Signal() const {
  const Item* const signal = parameters_.Find("01", "06");
  const auto unit = signal == nullptr ? std::string{} : signal->unit;
  for (const StraightSensor& sensor : {kThermocouple, kResistance}) {
    if (unit == sensor.unit) {
      return sensor.at_zero + (RawInput() * sensor.a_degree) + compensation_.LeadLeft();
    }
  }
  return RawInput();
}

double TwoOutputs::InTemperatureUnit(double degrees) const {
  const auto unit = ChoiceText("21");
  if (unit == "deg F") {
    return (degrees * 9 / 5) + 32 + kFahrenheitShift;
  }
  return unit == "K" ? degrees + 273.2 : degrees;
}

std::string TwoOutputs::UnitOf(const Item& item) const {
  if (item.unit == "$in") {
    return ChoiceText("21");
  }
  if (item.follows.empty()) {
    return item.unit;
  }
  const auto& types = definition_.Rows(item.follows);
  const auto type = ChoiceText("10");
  const auto found =
      std::ranges::find_if(types, [&](const Definition::Row& row) { return Field(row, 1) == type; });
  return found == types.end() ? std::string{} : Field(*found, kTypeUnitColumn);
}

std::string TwoOutputs::UnitOfPair(const Item& item) const {
  if (item.item == "14" || item.item == "15") {
    return item.unit == "$in" ? "deg C" : UnitOf(item);
  }
  if (item.item == "34") {
    return {};
  }
  const auto type = ChoiceText(item.item.starts_with('4') ? "41" : "11");  // "4-20 mA"
  return type.substr(std::min(type.rfind(' '), type.size() - 1) + 1);
}

Compensation::Circuit TwoOutputs::Circuit() const { return {.position = RawInput()}; }

NumberPair TwoOutputs::Pair(std::string_view item) const {
  const Item* const found = parameters_.Find("01", item);
  return found == nullptr ? NumberPair{} : ParsePair(found->held).value_or(NumberPair{});
}

double TwoOutputs::Number(std::string_view item) const {
  const Item* const found = parameters_.Find("01", item);
  return found == nullptr ? 0 : ParseNumber(found->held).value_or(0);
}

std::string TwoOutputs::ChoiceText(std::string_view item) const {
  const Item* const found = parameters_.Find("01", item);
  return found == nullptr ? std::string{} : parameters_.Text(*found);
}

}  // namespace korva::sim

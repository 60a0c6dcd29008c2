#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace korva::sim {

/// The correction of a sensor's circuit: the resistance of the leads of a resistance thermometer, or the two
/// end positions of a potentiometer. A measurement takes its time; until it is over the device goes on with
/// the former values, and reports them.
class Compensation {
 public:
  enum class Kind { None, LeadResistance, Positions };

  /// What is measured at present.
  struct Circuit {
    double position = 0;  ///< of the potentiometer, in %
  };

  /// How long a measurement takes.
  static constexpr std::chrono::milliseconds kTime{3000};
  /// Resistance of the leads, in ohms.
  static constexpr double kLead = 0.85;

  explicit Compensation(Kind kind) : kind_(kind) {}

  /// Puts the result of a measurement that is over to use.
  void Settle(std::chrono::nanoseconds now);

  /// Answers a command: "D" both corrections; "Z" measures the leads, or takes the position as 0 %; "S" takes
  /// it as 100 %; "R" takes both corrections back. \return none for what it doesn't take.
  std::optional<std::string> Answer(std::string_view command, const Circuit& circuit,
                                    std::chrono::nanoseconds now);

  /// A potentiometer's position as corrected; any other input as it is.
  double Position(double raw) const;
  /// What is left of the leads' resistance in a signal, in ohms.
  double LeadLeft() const { return kind_ == Kind::LeadResistance ? kLead - done_.zero : 0; }
  /// Both corrections that are in use, "0.850 0.000".
  std::string Text() const;

 private:
  struct Values {
    double zero = 0;  ///< in ohms or %
    double span = 0;  ///< in %
  };

  [[nodiscard]] Values Measured(char command, const Circuit& circuit) const;

  Kind kind_;
  Values done_;
  Values coming_;
  std::chrono::nanoseconds ready_{0};
};

}  // namespace korva::sim

#include "sim/compensation.h"

#include "sim/number.h"

namespace korva::sim {

void Compensation::Settle(std::chrono::nanoseconds now) {
  if (now >= ready_) {
    done_ = coming_;
  }
}

std::optional<std::string> Compensation::Answer(std::string_view command, const Circuit& circuit,
                                                std::chrono::nanoseconds now) {
  if (command == "D") {
    return Text();
  }
  const bool known = command == "Z" || command == "R" || (command == "S" && kind_ == Kind::Positions);
  if (kind_ == Kind::None || !known) {
    return std::nullopt;
  }
  coming_ = Measured(command.front(), circuit);
  ready_ = now + kTime;
  return "OK";
}

Compensation::Values Compensation::Measured(char command, const Circuit& circuit) const {
  if (command == 'R') {
    return {};
  }
  if (kind_ == Kind::LeadResistance) {
    return {.zero = kLead};
  }
  if (command == 'Z') {
    return {.zero = -circuit.position, .span = done_.span};
  }
  const double from_zero = circuit.position + done_.zero;
  return {.zero = done_.zero, .span = from_zero == 0 ? 0 : (100 - from_zero) / from_zero * 100};
}

double Compensation::Position(double raw) const {
  return kind_ == Kind::Positions ? (raw + done_.zero) * (100 + done_.span) / 100 : raw;
}

std::string Compensation::Text() const {
  constexpr int decimals = 3;
  return FormatNumber(done_.zero, decimals) + " " + FormatNumber(done_.span, decimals);
}

}  // namespace korva::sim

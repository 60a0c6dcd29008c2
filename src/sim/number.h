#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva::sim {

/// Text without the blanks around it.
std::string_view TrimBlanks(std::string_view text);

/// The number that a text is: optional sign, digits, at most one point, nothing else. A point may end it
/// ("12."). \return nothing when it is no such number.
std::optional<double> ParseNumber(std::string_view text);

/// A number with a fixed count of decimals, halves away from zero, never "-0.00".
std::string FormatNumber(double value, int decimals);

}  // namespace korva::sim

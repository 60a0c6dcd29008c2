#pragma once

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace korva::curves {

/// A piece of a curve, valid from `low` to `high` degrees Celsius.
struct Piece {
  Piece(double from, double to) : low(from), high(to) {}
  virtual ~Piece() = default;
  [[nodiscard]] virtual double Value(double t) const = 0;
  /// Of the value, per degree.
  [[nodiscard]] virtual double Slope(double t) const = 0;

  double low;
  double high;
};

/// What a sensor gives at each temperature: in millivolts with the reference junction at 0 degC, or in ohms.
///
/// Its pieces follow each other without a gap. Beyond the first and the last one the curve goes on straight,
/// with the slope that it has there: a polynomial may turn round outside its range, and the device must find
/// one temperature only.
struct Curve {
  int base = 0;         ///< first whole degree of the table
  int top = 0;          ///< last one, above `base`
  double factor = 1.0;  ///< what the pieces' values are multiplied by: the resistance at 0 degC
  std::vector<std::unique_ptr<Piece>> pieces;

  /// In millivolts or ohms; any temperature.
  [[nodiscard]] double At(double t) const;
};

/// Reads the source of a curve:
///
///     # comment
///     unit mV                     or ohm; says what the numbers are
///     range LOW HIGH              whole degrees of the table, both included
///     times FACTOR                the pieces' values are multiplied by it; left out: 1
///     polynomial LOW HIGH         or: polynomial LOW HIGH about T0, in powers of (t - T0)
///       C0                        coefficients, rising
///     bell A B T0                 behind a polynomial: A exp(B (t - T0)^2) is added to it
///     nodes LOW STEP              a table of values; between them a cubic with the slope of their neighbours
///       V0 V1 ...
///
/// Throws std::runtime_error, which names the line, for anything else, for pieces that leave a gap or do not
/// join, and for a curve that has none.
Curve ReadCurve(std::istream& source);

/// The table that a device stores: one whole number a degree, in microvolts or milliohms, halves rounded away
/// from zero.
std::vector<std::int32_t> TableOf(const Curve& curve);

/// The table's file: 32-bit integers, low byte first.
std::string FileOf(const std::vector<std::int32_t>& table);

}  // namespace korva::curves

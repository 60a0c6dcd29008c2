#pragma once

#include <optional>
#include <vector>

#include "curves/curve.h"

namespace korva::curves {

/// A sum of powers of (t - about), with a bell-shaped addition or without.
struct Polynomial : Piece {
  struct Bell {
    double height = 0.0;
    double exponent = 0.0;  ///< of the squared distance from `centre`, below 0
    double centre = 0.0;    ///< degC
  };
  Polynomial(double from, double to, double origin) : Piece(from, to), about(origin) {}
  [[nodiscard]] double Value(double t) const override;
  [[nodiscard]] double Slope(double t) const override;

  double about;
  std::vector<double> coefficients;  ///< rising
  std::optional<Bell> bell;
};

/// A table of values at equal steps. The curve passes through all; its slope at one is that of the line
/// through its neighbours, at the first and the last that of the line to the next.
struct Nodes : Piece {
  Nodes(double from, double each) : Piece(from, from), step(each) {}
  [[nodiscard]] double Value(double t) const override;
  [[nodiscard]] double Slope(double t) const override;
  void Add(double value);

  double step;  ///< degrees, above 0
  std::vector<double> values;

 private:
  struct Place {
    std::size_t node = 0;  ///< the one before the temperature; never the last
    double part = 0.0;     ///< of the step behind it
  };
  [[nodiscard]] Place PlaceOf(double t) const;
  [[nodiscard]] double SlopeAt(std::size_t node) const;
};

}  // namespace korva::curves

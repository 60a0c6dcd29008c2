#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <vector>

namespace korva {

/// A range of values between two ticks.
struct Axis {
  double low = 0;
  double high = 1;
  double step = 1;

  [[nodiscard]] double Share(double value) const { return (value - low) / (high - low); }
  [[nodiscard]] std::vector<double> Ticks() const;
};

/// The axis that holds `low` to `high`, both drawable, with about `ticks` round steps.
Axis RoundAxis(double low, double high, int ticks);
QString TickText(double value);

/// The text colour over the background, with a strength from 0 to 1.
QColor Mixed(const QPalette& palette, double strength);

}  // namespace korva

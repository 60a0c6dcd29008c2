#include "curves/pieces.h"

#include <algorithm>
#include <cmath>

namespace korva::curves {

double Polynomial::Value(double t) const {
  double sum = 0.0;
  for (std::size_t power = coefficients.size(); power-- > 0;) {
    sum = sum * (t - about) + coefficients[power];
  }
  if (bell) {
    sum += bell->height * std::exp(bell->exponent * std::pow(t - bell->centre, 2));
  }
  return sum;
}

double Polynomial::Slope(double t) const {
  double sum = 0.0;
  for (std::size_t power = coefficients.size() - 1; power > 0; --power) {
    sum = sum * (t - about) + static_cast<double>(power) * coefficients[power];
  }
  if (bell) {
    const double away = t - bell->centre;
    sum += 2 * bell->exponent * away * bell->height * std::exp(bell->exponent * away * away);
  }
  return sum;
}

void Nodes::Add(double value) {
  values.push_back(value);
  high = low + step * static_cast<double>(values.size() - 1);
}

Nodes::Place Nodes::PlaceOf(double t) const {
  const double steps = std::floor((t - low) / step);
  const std::size_t node = std::min(static_cast<std::size_t>(std::max(steps, 0.0)), values.size() - 2);
  return {.node = node, .part = (t - low) / step - static_cast<double>(node)};
}

double Nodes::SlopeAt(std::size_t node) const {
  const std::size_t before = node == 0 ? 0 : node - 1;
  const std::size_t after = std::min(node + 1, values.size() - 1);
  return (values[after] - values[before]) / (step * static_cast<double>(after - before));
}

double Nodes::Value(double t) const {
  const auto [node, u] = PlaceOf(t);
  const double rest = 1 - u;
  return values[node] * (1 + 2 * u) * rest * rest + SlopeAt(node) * step * u * rest * rest +
         values[node + 1] * u * u * (3 - 2 * u) - SlopeAt(node + 1) * step * u * u * rest;
}

double Nodes::Slope(double t) const {
  const auto [node, u] = PlaceOf(t);
  const double rise = (values[node + 1] - values[node]) / step;
  return rise * 6 * u * (1 - u) + SlopeAt(node) * (1 - u) * (1 - 3 * u) + SlopeAt(node + 1) * u * (3 * u - 2);
}

}  // namespace korva::curves

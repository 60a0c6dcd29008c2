#include "curves/curve.h"

#include <algorithm>
#include <cmath>

namespace korva::curves {

double Curve::At(double t) const {
  const double inside = std::clamp(t, pieces.front()->low, pieces.back()->high);
  const auto piece =
      std::find_if(pieces.begin(), pieces.end(), [inside](const auto& one) { return inside <= one->high; });
  return factor * ((*piece)->Value(inside) + (*piece)->Slope(inside) * (t - inside));
}

std::vector<std::int32_t> TableOf(const Curve& curve) {
  constexpr double kMicro = 1000.0;  // microvolts in a millivolt, milliohms in an ohm
  std::vector<std::int32_t> table;
  for (int t = curve.base; t <= curve.top; ++t) {
    table.push_back(static_cast<std::int32_t>(std::lround(curve.At(t) * kMicro)));
  }
  return table;
}

std::string FileOf(const std::vector<std::int32_t>& table) {
  std::string bytes;
  for (const std::int32_t value : table) {
    for (unsigned shift = 0; shift < 32; shift += 8) {
      bytes += static_cast<char>(static_cast<std::uint32_t>(value) >> shift & 0xFFU);
    }
  }
  return bytes;
}

}  // namespace korva::curves

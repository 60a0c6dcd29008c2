#pragma once

namespace korva::sim {

/// A point of a line.
struct Point {
  double x;
  double y;
};

}  // namespace korva::sim

#pragma once

#include <stdexcept>

namespace korva::sim {

/// A catalogue, definition file or option that a simulated device can't be built from. The text names the
/// file or word concerned.
class SetupError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace korva::sim

#pragma once

namespace korva::test {

/// Ends the run of a fuzzer, which then keeps the input, unless this holds.
inline void Demand(bool holds) {
  if (!holds) {
    __builtin_trap();
  }
}

}  // namespace korva::test

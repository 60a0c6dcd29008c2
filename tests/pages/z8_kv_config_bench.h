#pragma once

#include "pages/z8_kv_config/z8_kv_config.h"
#include "z2_kv_config_bench.h"

namespace korva::test {

/// The page of family Nano with a device of the model behind it. The model is chosen.
class Z8Bench : public Z2Bench {
 public:
  using Z2Bench::Z2Bench;

  z8KvConfig& Z8() { return dynamic_cast<z8KvConfig&>(Page()); }
  /// Presses a button `after` from now, as far as the screen lets it through.
  void PressAt(Milliseconds after, Button& button) {
    loop.After(after, [this, &button] {
      if (Page().WhyRefused(button).empty()) {
        button.Click();
      }
    });
  }
};

}  // namespace korva::test

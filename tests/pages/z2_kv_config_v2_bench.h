#pragma once

#include "pages/z2_kv_config_v2/z2_kv_config_v2.h"
#include "z2_kv_config_bench.h"

namespace korva::test {

/// The page of family LiteSecond with a device of its model behind it. The model is chosen.
struct Z2V2Bench : Z2Bench {
  Z2V2Bench() : Z2Bench(u"Z2WQ") {}

  z2KvConfig_V2& V2() { return dynamic_cast<z2KvConfig_V2&>(Page()); }
  std::vector<std::string> BoxesOfV2Upload() { return BoxesOfUpload({Answer::Yes, Answer::Ok}); }
  void ReadV2() {
    BoxesOfV2Upload();
    Page().DataChanged = false;
    line.accesses.clear();
  }
  /// Presses a button `after` from now, as far as the screen lets it through.
  void PressAt(Clock after, Button& button) {
    loop.After(std::chrono::ceil<Milliseconds>(after), [this, &button] {
      if (Page().WhyRefused(button).empty()) {
        button.Click();
      }
    });
  }
};

}  // namespace korva::test

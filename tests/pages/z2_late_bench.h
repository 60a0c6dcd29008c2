#pragma once

#include "pages/z2_kv_config_v5/z2_kv_config_v5.h"
#include "z2_kv_config_bench.h"

namespace korva::test {

/// The page of a pulse transmitter, Z2WPR or Z2WPL, with its device behind it. The model is chosen.
struct LateBench : Z2Bench {
  explicit LateBench(const String& model) : Z2Bench(model) {}

  Z2LatePage& Late() { return dynamic_cast<Z2LatePage&>(Page()); }
  /// Uploads, and forgets its boxes and accesses.
  void ReadLate() {
    BoxesOfUpload({Answer::Yes, Answer::Ok});
    Page().DataChanged = false;
    line.accesses.clear();
  }
  /// Opens the table's tab and reads the device's table.
  void ReadTable() {
    Press(Late().linearizer.Opt_Lnr, 1);
    Click(Late().table_buttons.cmdReadOutTable);
    TakeBoxes();
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
  /// Runs the threshold's loop until STOP is pressed.
  void RunThreshold(Clock length) {
    PressAt(length, Late().threshold.cmdThresholdStart);
    Click(Late().threshold.cmdThresholdStart);
  }
};

}  // namespace korva::test

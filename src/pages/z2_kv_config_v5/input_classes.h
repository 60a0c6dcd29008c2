#pragma once

#include "monitor/threshold.h"

namespace korva {

/// What the class of the chosen input means for the rest of the page of family LiteFifth. A line receiver
/// (class 4) has neither a sensor to supply nor a threshold: both are closed, empty on the page, and go to
/// the device as their first text and as 0. Any other class opens them, with what stands in the set.
class InputClasses final : public PagePart {
 public:
  /// Adds itself to the page. Both outlive this.
  InputClasses(ParameterPage& page, Threshold& threshold);

  void PageBuilt() override { check_input_type(); }  ///< a model, a file, a new set, or an upload
  void ChoiceMade(const Choice& choice) override;
  void TabEntered(int tab) override;

  /// Closes what a line receiver has not. False, with nothing changed, when the input is another one.
  bool RS422_upload_check();
  /// The same, and opens it where the input has it.
  void check_input_type();

 private:
  [[nodiscard]] bool IsLineReceiver() const;
  void Open();

  ParameterPage& page_;
  Threshold& threshold_;
};

}  // namespace korva

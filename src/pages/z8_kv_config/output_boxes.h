#pragma once

#include "files/parameter_page.h"

namespace korva {

/// What the tab I/O check has for the second of two outputs: a box that shows what it is forced to, beside
/// that of the first, and the headings of both.
class OutputBoxes final : public PagePart {
 public:
  static constexpr int kSecondBox = 22;   ///< of Text
  static constexpr int kSecondLabel = 6;  ///< of lbl_Item

  /// Adds itself and its controls to the page, which outlives this.
  explicit OutputBoxes(ParameterPage& page);

  void SetCaptions(Language language) override;
  void PageBuilt() override;  ///< shows the box, which no row of the definition does

  Label IO_lblShowOut1{"IO_lblShowOut1"};
  Label IO_lblShowOut2{"IO_lblShowOut2"};
  Frame fraZeroSpan{"fraZeroSpan"};  ///< around the trims
  Label IO_lblOut1{"IO_lblOut1"};
  Label IO_lblOut2{"IO_lblOut2"};

 private:
  ParameterPage& page_;
};

}  // namespace korva

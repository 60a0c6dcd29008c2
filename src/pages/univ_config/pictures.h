#pragma once

#include "files/parameter_page.h"

namespace korva {

/// The pictures of the device of family QXI: how its terminals are wired and its DIP switches set for the
/// input and the output that are chosen. They are read anew with each click on their tab and stand still in
/// between, as a sheet of paper would that lies beside the device.
class UnivPictures final : public PagePart {
 public:
  /// Adds itself and its controls to the page, which outlives this.
  explicit UnivPictures(ParameterPage& page);

  void TabClicked(int tab) override;

  Picture ImgInput{"ImgInput"};
  Picture ImgOutput{"ImgOutput"};

 private:
  void ShowInput();
  void ShowOutput();
  void Load(Picture& picture, StringView file) const;

  ParameterPage& page_;
};

/// File of the picture of an input. `type` is the number of the input type, `reach` the larger of the amounts
/// of its range's two ends, in the type's unit (mV, mA). Empty: the type has no picture.
[[nodiscard]] StringView InputPicture(int type, double reach);
/// File of the picture of an output of this number; empty: it has none.
[[nodiscard]] StringView OutputPicture(int number);

}  // namespace korva

#pragma once

#include <array>
#include <span>

#include "files/parameter_page.h"

namespace korva {

/// A model whose device measures and corrects its own sensor circuit, and what it corrects.
struct CompensationModel {
  StringView def_file;
  StringView first_unit;
  StringView second_unit = {};  ///< empty: the model has the first value alone
  bool positions = false;       ///< the end positions of a potentiometer; else the resistance of the leads
};

/// The correction of a sensor's circuit, item 27 of group "01": a button lets the device measure, which takes
/// it three seconds, and then shows the two values that it corrects by. The program works out nothing itself.
///
/// Each button locks the frame of the page as long as it acts, so that all buttons are disabled for the whole
/// time. No mode is changed. A failed exchange shows itself in empty fields alone.
class SensorCompensation final : public PagePart {
 public:
  /// Adds itself and its controls to the page. All outlive this.
  SensorCompensation(ParameterPage& page, std::span<const CompensationModel> models);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void PageCleared() override;  ///< shows what the chosen model has

  void ReadOut();  ///< cmdReadOutComp

  Label lblCompX{"lblCompX"};
  TextField txtCompX{"txtCompX"};
  Label lbl_unitX{"lbl_unitX"};
  Label lblCompY{"lblCompY"};
  TextField txtCompY{"txtCompY"};
  Label lbl_unitY{"lbl_unitY"};
  Label lblComp{"lblComp"};
  Button cmdLineSet{"cmdLineSet"};
  Button cmdLineReset{"cmdLineReset"};
  Button cmd0Per{"cmd0Per"};
  Button cmd100Per{"cmd100Per"};
  Button cmdCalReset{"cmdCalReset"};
  Button cmdReadOutComp{"cmdReadOutComp"};

 private:
  /// Lets the device carry out the command of a key, and shows what it then reports.
  void Measure(StringView key);
  void Report();
  /// The answer to a key; empty when there was none.
  [[nodiscard]] String Send(StringView key) const;
  [[nodiscard]] std::array<Button*, 6> Buttons();

  ParameterPage& page_;
  std::span<const CompensationModel> models_;
};

}  // namespace korva

#pragma once

#include "pages/z2_univ_config/input_class.h"
#include "transfer/download.h"
#include "transfer/field_checks.h"
#include "transfer/kind_form.h"
#include "transfer/upload.h"

namespace korva {

// What the page of family LiteUniv does its own way in upload, check and download. The page outlives all of
// it.

/// What the class of the input has not got is not written.
class Z2UnivConfigForm final : public KindForm {
 public:
  using KindForm::KindForm;
  [[nodiscard]] bool Applies(int row) const override { return Page().DataCell(row, kOnPage) != u"N"; }
};

/// The user tells that device and model belong together. The class of the input applies as soon as the input
/// has been read, so that only its items follow.
class Z2UnivConfigUpload final : public TransmitterUpload {
 public:
  Z2UnivConfigUpload(ParameterPage& page, InputClass& input_class)
      : TransmitterUpload(page), input_class_(input_class) {}
  void AfterItemRead(int row) override;

 private:
  InputClass& input_class_;
};

class Z2UnivConfigCheck final : public CheckSteps {
 public:
  explicit Z2UnivConfigCheck(ParameterPage& page) : fields_(page) {}
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  FieldChecks fields_;
};

/// The device's input may be one of any class.
class Z2UnivConfigDownload final : public KindDownload {
 public:
  using KindDownload::KindDownload;
  bool Collate() override;
};

}  // namespace korva

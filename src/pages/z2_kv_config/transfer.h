#pragma once

#include "tables/eeprom_stage.h"
#include "transfer/download.h"
#include "transfer/field_checks.h"
#include "transfer/kind_form.h"
#include "transfer/upload.h"

namespace korva {

// What the page of family Lite does its own way in upload, check and download. The page outlives all of it.

/// The device tells its model.
class Z2KvConfigUpload final : public TransmitterUpload {
 public:
  using TransmitterUpload::TransmitterUpload;
  bool ConfirmModel() override;
};

class Z2KvConfigCheck final : public CheckSteps {
 public:
  explicit Z2KvConfigCheck(ParameterPage& page) : fields_(page) {}
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  FieldChecks fields_;
};

/// What has no item goes into the device's memory behind the items: the stage is a part of the page.
class Z2KvConfigDownload final : public KindDownload {
 public:
  Z2KvConfigDownload(ParameterPage& page, EepromStage& stage) : KindDownload(page), stage_(stage) {}
  bool ConfirmModel() override;
  /// The input type and the output type.
  bool Collate() override;
  /// Misses a curve's file before anything has changed the device, and reads what the stage compares with.
  bool BeginWriting() override;

 private:
  EepromStage& stage_;
};

}  // namespace korva

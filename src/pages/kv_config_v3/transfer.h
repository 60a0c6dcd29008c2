#pragma once

#include "pages/kv_config_v3/alarms.h"
#include "transfer/download.h"
#include "transfer/field_checks.h"
#include "transfer/upload.h"

namespace korva {

// What the page of family Third does its own way in upload, check and download. The page and its alarms
// outlive all of it.

class KvConfigV3Form final : public RowForm {
 public:
  KvConfigV3Form(const ParameterPage& page, const KvConfigV3Alarms& alarms)
      : RowForm(page), alarms_(alarms) {}
  [[nodiscard]] bool Applies(int row) const override { return alarms_.Applies(row); }
  /// An alarm value has its direction behind it.
  [[nodiscard]] String DataOf(int row, const String& cell) const override;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;

 private:
  const KvConfigV3Alarms& alarms_;
};

class KvConfigV3Upload final : public UploadSteps {
 public:
  using UploadSteps::UploadSteps;
  /// Cuts the units that are not part of their values.
  void AfterItemRead(int row) override;
};

class KvConfigV3Check final : public CheckSteps {
 public:
  KvConfigV3Check(ParameterPage& page, KvConfigV3Alarms& alarms)
      : page_(page), alarms_(alarms), fields_(page) {}
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  ParameterPage& page_;
  KvConfigV3Alarms& alarms_;
  FieldChecks fields_;
};

class KvConfigV3Download final : public DownloadSteps {
 public:
  using DownloadSteps::DownloadSteps;
  /// A switch or a direction in item 10 is written like any other choice. Only a list of input types may have
  /// types that are fixed in the device.
  bool Collate() override;
};

}  // namespace korva

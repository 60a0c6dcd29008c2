#pragma once

#include "transfer/download.h"
#include "transfer/field_checks.h"
#include "transfer/upload.h"

namespace korva {

// What the page of family QXI does its own way in upload, check and download. The page outlives all of it.

/// Input and output types stand in the set as their texts, options as their codes. What the chosen input and
/// output have no use for is not written.
class UnivConfigForm final : public RowForm {
 public:
  using RowForm::RowForm;
  [[nodiscard]] bool Applies(int row) const override;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
};

class UnivConfigUpload final : public UploadSteps {
 public:
  using UploadSteps::UploadSteps;
  [[nodiscard]] float ProgressAt(int row, int rows) const override;
};

/// Only what the device has a use for is judged; any other field is good.
class UnivConfigCheck final : public CheckSteps {
 public:
  UnivConfigCheck(ParameterPage& page, const RowForm& form) : page_(page), form_(form), fields_(page) {}
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  /// True when the item is to be judged: it is of use, and its field can be typed into.
  [[nodiscard]] bool Judges(int item) const;
  [[nodiscard]] bool JudgesInputRange() const;
  [[nodiscard]] bool JudgesOutputRange() const;
  bool CheckNumbers();
  bool CheckInputRange();
  bool CheckOutputRange();

  ParameterPage& page_;
  const RowForm& form_;
  FieldChecks fields_;
};

/// A download of this family tells which item failed and, of a refused one, what the device answered.
class UnivConfigDownload final : public DownloadSteps {
 public:
  using DownloadSteps::DownloadSteps;
  String WriteChecked(const WriteEntry& entry) override;
  [[nodiscard]] String Proof(const WriteEntry& entry, const String& echo) const override;
  /// An option is proved by its code as well as by its text.
  [[nodiscard]] bool CompareReply(const WriteEntry& entry, const String& reply) const override;
  void ShowWriteFailure(const WriteEntry& entry, const String& reply) override;
  [[nodiscard]] int LastPosition() const override { return 36; }

 private:
  /// True when the device refused what was written last.
  [[nodiscard]] bool WasRefused() const;
};

}  // namespace korva

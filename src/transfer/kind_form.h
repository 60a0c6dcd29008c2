#pragma once

#include "transfer/download.h"
#include "transfer/row_form.h"
#include "transfer/upload.h"

namespace korva {

// How rows travel in the families whose definitions tell the kind of each item: none is a choice, "TG:" the
// tag, "FINZER" and "FINSPN" are fine values, and any other word is a value that goes out as its text.

class KindForm : public RowForm {
 public:
  using RowForm::RowForm;
  [[nodiscard]] bool IsChoice(int row) const override { return Page().DataCell(row, kItemKind).empty(); }
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
};

/// An upload drops the unit behind a value; a text without a number stays as it is.
class KindUpload : public UploadSteps {
 public:
  using UploadSteps::UploadSteps;
  /// Of the groups that tell what the device is there is no parameter, and no title to know an item by.
  [[nodiscard]] String ReadItem(int row) const override;
  void AfterItemRead(int row) override;

 protected:
  /// True for the row of a value: neither a choice nor the tag.
  [[nodiscard]] bool IsValue(int row) const;
};

/// The upload of transmitters: an item that doesn't answer, or that the device refuses, ends it. The values
/// of ranges are shown with two decimals, whatever the device gives.
class TransmitterUpload : public KindUpload {
 public:
  using KindUpload::KindUpload;
  RowRead Judge(const String& answer) override;
  void AfterItemRead(int row) override;
};

/// A choice and the tag come back as they stand in the set, fine values within the device's rounding, and any
/// other value is proved by any reply.
class KindDownload : public DownloadSteps {
 public:
  using DownloadSteps::DownloadSteps;
  [[nodiscard]] bool CompareReply(const WriteEntry& entry, const String& reply) const override;
  [[nodiscard]] bool ComparesReply(const WriteEntry& entry, const String& reply) const override;
};

}  // namespace korva

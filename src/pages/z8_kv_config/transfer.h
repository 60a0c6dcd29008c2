#pragma once

#include "pages/z8_kv_config/item_pairs.h"
#include "transfer/field_checks.h"
#include "transfer/kind_form.h"

namespace korva {

// What the page of family Nano does its own way in upload, check and download. The page outlives all of it.

/// Two numbers travel as one item.
class Z8KvConfigForm final : public KindForm {
 public:
  Z8KvConfigForm(const ParameterPage& page, const ItemPairs& pairs) : KindForm(page), pairs_(pairs) {}
  [[nodiscard]] String DataOf(int row, const String& cell) const override;
  [[nodiscard]] int CarrierOf(int row) const override { return pairs_.CarrierOf(row); }

 private:
  const ItemPairs& pairs_;
};

/// The device tells its model.
class Z8KvConfigUpload final : public TransmitterUpload {
 public:
  Z8KvConfigUpload(ParameterPage& page, ItemPairs& pairs) : TransmitterUpload(page), pairs_(pairs) {}
  bool ConfirmModel() override;
  void AfterItemRead(int row) override;

 private:
  ItemPairs& pairs_;
};

/// The two ends of a range, limited by the row of a choice.
struct RangeEnds {
  StringView low_key;  ///< of the rows of $Data
  StringView high_key;
  StringView list;
  int choice = 0;  ///< item of group "01"
};

class Z8KvConfigCheck final : public CheckSteps {
 public:
  explicit Z8KvConfigCheck(ParameterPage& page) : page_(page), fields_(page) {}
  bool CheckValues() override;
  [[nodiscard]] std::optional<FieldRange> RangeOf(int row) const override;

 private:
  bool CheckRange(const RangeEnds& range);
  bool CheckEnds(const RangeEnds& range, const FieldRange& limits);
  /// Those of both ends; nothing without a choice, and for a pair that is of no use.
  [[nodiscard]] std::optional<FieldRange> LimitsOf(const RangeEnds& range) const;

  ParameterPage& page_;
  FieldChecks fields_;
};

class Z8KvConfigDownload final : public KindDownload {
 public:
  using KindDownload::KindDownload;
  bool ConfirmModel() override;
  /// The input type and the type of the first output.
  bool Collate() override;
};

}  // namespace korva

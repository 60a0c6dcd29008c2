#pragma once

#include "transfer/kind_form.h"

namespace korva {

// What the page of family LiteSecond does its own way in upload and download. The page outlives all of it.

/// The text of the threshold's range that a device tells by its text or by the index of its row in the list;
/// any other answer as it is.
String RangeText(const ParameterPage& page, const String& answer);

class Z2KvConfigV2Upload final : public KindUpload {
 public:
  using KindUpload::KindUpload;
  void AfterItemRead(int row) override;
};

class Z2KvConfigV2Download final : public KindDownload {
 public:
  using KindDownload::KindDownload;
  bool Collate() override { return true; }  // nothing is fixed in these devices
  /// Times that the device keeps in steps of 5 msec.
  void RoundValues() override;
  [[nodiscard]] bool CompareReply(const WriteEntry& entry, const String& reply) const override;
};

}  // namespace korva

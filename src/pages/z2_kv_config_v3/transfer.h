#pragma once

#include "transfer/number_check.h"
#include "transfer/quantity_transfer.h"
#include "transfer/upload.h"

namespace korva {

// What the page of family LiteThird does its own way in upload and download. The page outlives all of it.

/// Waits for the items that the device doesn't have ready at once.
class Z2KvConfigV3Upload final : public UploadSteps {
 public:
  using UploadSteps::UploadSteps;
  [[nodiscard]] String ReadItem(int row) const override;
};

/// Brings voltages on the device's grid. A tag is proved by the device's word that it was set too.
class Z2KvConfigV3Download final : public QuantityDownload {
 public:
  using QuantityDownload::QuantityDownload;
  void RoundValues() override;
  [[nodiscard]] String ReadBefore(const WriteEntry& entry) const override;
  /// Reads what the device doesn't have ready when it has taken it.
  String WriteData(const WriteEntry& entry) override;
  [[nodiscard]] bool CompareReply(const WriteEntry& entry, const String& reply) const override;
  [[nodiscard]] bool ComparesReply(const WriteEntry& entry, const String& reply) const override;
};

}  // namespace korva

#pragma once

#include "transfer/number_check.h"
#include "transfer/quantity_transfer.h"
#include "transfer/upload.h"

namespace korva {

/// What the page of family Second does its own way in a download: it sets the device back to its maker's
/// values first, and gives it time after each write.
class KvConfigV2Download final : public QuantityDownload {
 public:
  using QuantityDownload::QuantityDownload;
  void RoundValues() override;
  bool BeginWriting() override { return ResetAllParams(); }
  void AfterWrite() override;
  void ShowWriteFailure(const WriteEntry& entry, const String& reply) override;

 private:
  /// Enters programming mode and sets every parameter to the maker's value, so that what the definition does
  /// not write is known too. False, after its box, when the device doesn't take the mode; a device that is
  /// not set back has its box, and the download goes on.
  bool ResetAllParams();
};

}  // namespace korva

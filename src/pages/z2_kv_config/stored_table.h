#pragma once

#include "linearizer/lnr_store.h"
#include "tables/curve_writer.h"

namespace korva {

/// The linearizers that models of family Lite keep in their memory. The device is in monitor mode behind both
/// transfers.
class StoredTable final : public LnrStore {
 public:
  /// Both outlive this.
  StoredTable(Page& page, CurveWriter& writer) : page_(page), writer_(writer) {}

  [[nodiscard]] bool Serves() const override { return FindLnrImage(page_.DefFile) != nullptr; }
  [[nodiscard]] LnrReading Read(ProgressBar& bar) override;
  bool Write(std::span<const PointTexts> points, ProgressBar& bar) override;

 private:
  Page& page_;
  CurveWriter& writer_;
};

}  // namespace korva

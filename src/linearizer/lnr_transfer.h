#pragma once

#include "files/parameter_page.h"
#include "linearizer/lnr_store.h"
#include "linearizer/lnr_table.h"

namespace korva {

/// The table's way to and from the device, one item for each value: 32 items for 16 points, 200 for 100
/// points, which is why the user is asked about those. LnrProgressBar shows how far it is, for 100 points
/// once for each half of the table. On models with a store of their own (LnrStore) that is read and written
/// in place of the items.
class LnrTransfer {
 public:
  /// `bar` is LnrProgressBar; `store` is nullptr on pages whose models all have items. All outlive this.
  LnrTransfer(ParameterPage& page, LnrTable& table, ProgressBar& bar, LnrStore* store = nullptr)
      : page_(page), table_(table), bar_(bar), store_(store) {}

  /// Reads the whole table into the set. A value that the device doesn't give is empty. The status area tells
  /// of a store without a table, and of one that could not be read. False when the user doesn't want the 100
  /// points: nothing was read then.
  bool Upload();
  /// Puts the device in programming mode and writes the whole table, each value read before and proved
  /// after it. False, after its box, when the mode was not taken or a value was not: what was written up to
  /// then is in the device. True also when the user doesn't want the 100 points.
  bool DownloadLnr();

 private:
  struct Block;

  [[nodiscard]] std::vector<Block> BlocksOfTable() const;
  [[nodiscard]] bool HasStore() const { return store_ != nullptr && store_->Serves(); }
  void UploadFromStore();
  bool DownloadToStore();
  [[nodiscard]] std::vector<PointTexts> PointsOfTable() const;
  void UploadBlock(const Block& block);
  bool DownloadBlock(const Block& block);
  [[nodiscard]] bool IsLong() const { return table_.Points() == kLnrLongPoints; }

  ParameterPage& page_;
  LnrTable& table_;
  ProgressBar& bar_;
  LnrStore* store_;
};

}  // namespace korva

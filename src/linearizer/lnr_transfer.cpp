#include "linearizer/lnr_transfer.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/program.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_check.h"
#include "linearizer/lnr_item.h"

namespace korva {

/// Items of one group, without a gap.
struct LnrTransfer::Block {
  int group = 0;
  int first = 0;
  int last = 0;

  /// Share of the block that is done when `item` is.
  [[nodiscard]] float Share(int item) const {
    return static_cast<float>(item - first + 1) / static_cast<float>(last - first + 1);
  }
};

std::vector<LnrTransfer::Block> LnrTransfer::BlocksOfTable() const {
  const auto block = [this](int first_point, int last_point) {
    const PointPlace first = PointItem(table_.Points(), first_point, 1).value();
    const PointPlace last = PointItem(table_.Points(), last_point, 2).value();
    return Block{.group = first.group, .first = first.item, .last = last.item};
  };
  if (IsLong()) {
    return {block(1, kLnrLongPoints / 2), block(kLnrLongPoints / 2 + 1, kLnrLongPoints)};
  }
  return {block(1, kLnrShortPoints)};
}

bool LnrTransfer::Upload() {
  if (IsLong() && !page_.Box().Ask(BoxKey::UploadLinearizer)) {
    return false;
  }
  if (HasStore()) {
    UploadFromStore();
    return true;
  }
  for (const Block& block : BlocksOfTable()) {
    UploadBlock(block);
  }
  return true;
}

void LnrTransfer::UploadFromStore() {
  const LnrReading reading = store_->Read(bar_);
  table_.Clear();
  int row = 0;
  for (const PointTexts& point : reading.points) {
    ++row;
    table_.Store(row, 1, point.x);
    table_.Store(row, 2, point.y);
  }
  const String none = reading.points.empty() ? page_.Words(TextKey::NoTable) : String();
  page_.Notes.Tell(Notice::NoTable, reading.complete ? none : page_.Words(TextKey::TableNotRead));
}

std::vector<PointTexts> LnrTransfer::PointsOfTable() const {
  std::vector<PointTexts> points;
  for (int row = 1; row <= table_.FilledPoints(); ++row) {
    points.push_back(
        {.x = ValueFromLnrCell(table_.Value(row, 1)), .y = ValueFromLnrCell(table_.Value(row, 2))});
  }
  return points;
}

bool LnrTransfer::DownloadToStore() {
  if (!store_->BeginWriting()) {
    return false;
  }
  const bool written = store_->Write(PointsOfTable(), bar_);
  if (!written) {
    page_.Box().Show(BoxKey::LinearizerDownloadFailed);
  }
  return written;
}

void LnrTransfer::UploadBlock(const Block& block) {
  for (int item = block.first; item <= block.last; ++item) {
    const WireItem wire = WireOfPoint({.group = block.group, .item = item});
    const String reply = page_.Items().ReadRetry(kItemRepeats, wire);
    page_.TellRead({.what = TextKey::Linearizer, .item = wire}, reply);
    page_.GroupItem.Set(block.group, item, LnrValueOf(reply));
    bar_.SetValue(block.Share(item) * 100);
  }
}

bool LnrTransfer::DownloadLnr() {
  if (IsLong()) {
    bar_.SetValue(5);
    if (!page_.Box().Ask(BoxKey::DownloadLinearizer)) {
      return true;
    }
  }
  if (HasStore()) {
    return DownloadToStore();
  }
  if (!page_.EnterProgrammingMode()) {
    return false;
  }
  const std::vector<Block> blocks = BlocksOfTable();
  const bool written =
      std::all_of(blocks.begin(), blocks.end(), [this](const Block& block) { return DownloadBlock(block); });
  if (!written) {
    page_.Box().Show(BoxKey::LinearizerDownloadFailed);
  }
  return written;
}

bool LnrTransfer::DownloadBlock(const Block& block) {
  for (int item = block.first; item <= block.last; ++item) {
    if (!WriteLnrValue(page_, {.group = block.group, .item = item})) {
      page_.Box().Show(IsLong() ? BoxKey::LinearizerDataMismatch : BoxKey::Linearizer16DataMismatch);
      return false;
    }
    bar_.SetValue(block.Share(item) * 90 + 10);
  }
  return true;
}

}  // namespace korva

#include "linearizer/lnr_transfer.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_check.h"

namespace korva {

namespace {

constexpr std::size_t kHead = 6;  ///< "X(05):", before each value
constexpr double kDeviceRounding = 0.01;
constexpr StringView kLongGroup = u"02";
constexpr StringView kStoredMask = u"##0.00";  ///< of what a store holds

/// The value behind the head; empty for a reply without one.
String ValueOf(const String& reply) {
  return reply.size() <= kHead || reply == kNeedless ? String() : Trimmed(reply.substr(kHead));
}

}  // namespace

/// Items of one group, without a gap.
struct LnrTransfer::Block {
  int group = 0;
  int first = 0;
  int last = 0;

  [[nodiscard]] WireItem Wire(int item) const {
    return {.group = FormatMask(group, u"00"), .item = FormatMask(item, u"00")};
  }
  /// Share of the block that is done when `item` is.
  [[nodiscard]] float Share(int item) const {
    return static_cast<float>(item - first + 1) / static_cast<float>(last - first + 1);
  }
};

bool LnrReplyMatches(const String& sent, const String& reply) {
  const String value = ValueOf(reply);
  if (!IsNumeric(sent) || NumericLength(value) == 0) {
    return false;
  }
  const double number = LeadingNumber(sent);
  const double reported = LeadingNumber(value);
  return AtLeast(reported, number - kDeviceRounding) && AtLeast(number + kDeviceRounding, reported);
}

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
  const std::optional<std::vector<LnrPoint>> points = store_->Read(bar_);
  page_.EnterMonitorMode();
  table_.Clear();
  if (!points) {
    page_.Notes.Tell(Notice::NoTable, page_.Words(TextKey::TableNotRead));
    return;
  }
  int row = 0;
  for (const LnrPoint& point : *points) {
    ++row;
    table_.Store(row, 1, FormatMask(point.x, kStoredMask));
    table_.Store(row, 2, FormatMask(point.y, kStoredMask));
  }
  page_.Notes.Tell(Notice::NoTable, points->empty() ? page_.Words(TextKey::NoTable) : String());
}

std::vector<LnrPoint> LnrTransfer::PointsOfTable() const {
  const auto number = [this](int row, int column) {
    return LeadingNumber(ValueFromLnrCell(table_.Value(row, column)));
  };
  std::vector<LnrPoint> points;
  for (int row = 1; row <= table_.Points() && !Trimmed(table_.Value(row, 1)).empty(); ++row) {
    points.push_back({.x = number(row, 1), .y = number(row, 2)});
  }
  return points;
}

bool LnrTransfer::DownloadToStore() {
  const bool written = store_->Write(PointsOfTable(), bar_);
  page_.EnterMonitorMode();
  if (!written) {
    page_.Box().Show(BoxKey::LinearizerDownloadFailed);
  }
  return written;
}

void LnrTransfer::UploadBlock(const Block& block) {
  for (int item = block.first; item <= block.last; ++item) {
    const String reply = page_.Items().ReadRetry(kItemRepeats, block.Wire(item));
    page_.GroupItem.Set(block.group, item, ValueOf(reply));
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
    if (!WriteItem(block, item)) {
      page_.Box().Show(IsLong() ? BoxKey::LinearizerDataMismatch : BoxKey::Linearizer16DataMismatch);
      return false;
    }
    bar_.SetValue(block.Share(item) * 90 + 10);
  }
  return true;
}

bool LnrTransfer::WriteItem(const Block& block, int item) {
  const WireItem wire = block.Wire(item);
  // What was checked is what is sent: not the unit that a user typed behind a number.
  const String cell = ValueFromLnrCell(page_.GroupItem.At(block.group, item));
  const String data = cell.empty() ? String(u"0") : cell;
  String reply = WriteLnrItem(wire, data);
  if (reply.empty()) {
    reply = page_.Items().ReadRetry(kItemRepeats, wire);
  }
  return LnrReplyMatches(data, reply);
}

String LnrTransfer::WriteLnrItem(const WireItem& item, const String& data) {
  // A device that can't be read in the long table's first group has no such table and is sent nothing.
  if (page_.Items().ReadRetry(kItemRepeats, item).empty() && item.group == kLongGroup) {
    return {};
  }
  return page_.Items().WriteRetry(kItemRepeats, item, data);
}

}  // namespace korva

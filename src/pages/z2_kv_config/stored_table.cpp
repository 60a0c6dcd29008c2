#include "pages/z2_kv_config/stored_table.h"

#include <algorithm>

#include "core/numbers.h"

namespace korva {

namespace {

constexpr StringView kShownMask = u"##0.00";

}  // namespace

LnrReading StoredTable::Read(ProgressBar& bar) {
  const std::optional<std::vector<LnrPoint>> points = writer_.UploadLnrTable(page_.DefFile, bar);
  page_.EnterMonitorMode();
  LnrReading reading{.points = {}, .complete = points.has_value()};
  for (const LnrPoint& point : points.value_or(std::vector<LnrPoint>())) {
    reading.points.push_back({.x = FormatMask(point.x, kShownMask), .y = FormatMask(point.y, kShownMask)});
  }
  return reading;
}

bool StoredTable::Write(std::span<const PointTexts> points, ProgressBar& bar) {
  std::vector<LnrPoint> numbers;
  std::transform(points.begin(), points.end(), std::back_inserter(numbers), [](const PointTexts& point) {
    return LnrPoint{.x = LeadingNumber(point.x), .y = LeadingNumber(point.y)};
  });
  const bool written = writer_.DownloadLnrTable(page_.DefFile, numbers, bar) == 0;
  page_.EnterMonitorMode();
  return written;
}

}  // namespace korva

#include "pages/z2_kv_config/stored_table.h"

namespace korva {

std::optional<std::vector<LnrPoint>> StoredTable::Read(ProgressBar& bar) {
  return writer_.UploadLnrTable(page_.DefFile, bar);
}

bool StoredTable::Write(std::span<const LnrPoint> points, ProgressBar& bar) {
  return writer_.DownloadLnrTable(page_.DefFile, points, bar) == 0;
}

}  // namespace korva

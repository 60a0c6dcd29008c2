#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "linearizer/lnr_store.h"
#include "link/device_page.h"
#include "link/eeprom.h"
#include "tables/curve_file.h"
#include "tables/stage_notice.h"

namespace korva {

/// How a model's memory holds its linearizer.
struct LnrImage {
  StringView models;  ///< beginning of their names: "Z2WF"
  double scale;       ///< of the stored numbers to percent
};
/// The image for a model's name or definition file; nullptr for a model that keeps its linearizer as items.
const LnrImage* FindLnrImage(StringView model);

/// The values as they lie in the memory, in hexadecimal digits: three bytes each, low byte first, what they
/// have beyond cut off.
std::string ImageOf(std::span<const std::int32_t> values);

/// Writes tables into a device's memory: sensor curves, and linearizers, which lie there in the same form.
/// The table fills the memory up to its end, its descriptor stands at 512 to 534.
///
/// The table's type is 99 from the first write until the last: a device whose table broke off tells so, and
/// the next download writes it anew. The device is in the mode of memory access from the first exchange on,
/// and the caller leaves it, whatever comes of the writing.
class CurveWriter {
 public:
  /// All outlive this. The page's own bar shows how far a curve is.
  CurveWriter(DevicePage& page, Eeprom& eeprom, StageNotice& notice)
      : page_(page), eeprom_(eeprom), notice_(notice) {}

  /// Writes the curve of the number `type` (FindCurveFile). `name` is what the user knows the input type by.
  /// 0; -1 when nothing was written, which is so for a number that has no curve and for a file that can't be
  /// read; the number of points when the writing broke off.
  int DownloadTcTable(int type, const String& name);
  int DownloadRtdTable(int type, const String& name);
  /// Writes a linearizer. `model` is one of FindLnrImage. -1 also for points that are not 2 to 100, whose X
  /// don't rise as they are stored, or of which the memory can't hold one.
  int DownloadLnrTable(StringView model, std::span<const LnrPoint> points, ProgressBar& bar);
  /// The points of the linearizer in the device: none when it holds another table or no legal one, nothing
  /// when it could not be read.
  std::optional<std::vector<LnrPoint>> UploadLnrTable(StringView model, ProgressBar& bar);

 private:
  struct Table;
  struct Manner;

  int DownloadCurve(SensorKind kind, int type, const Manner& manner);
  int Write(const Table& table, const Manner& manner);
  bool WriteValues(const Table& table, const Manner& manner);
  bool WriteDescriptor(const Table& table, const Manner& manner);
  bool WriteField(int address, int size, std::int32_t value);
  /// Where the linearizer begins; the memory's end when there is none, nothing when that could not be read.
  std::optional<int> ReadLnrStart();
  std::optional<std::vector<LnrPoint>> ReadPoints(int start, double scale, ProgressBar& bar);
  std::optional<std::int32_t> ReadField(int address, int size);

  DevicePage& page_;
  Eeprom& eeprom_;
  StageNotice& notice_;
};

}  // namespace korva

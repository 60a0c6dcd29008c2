#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/file_store.h"

namespace korva {

/// What senses a temperature; each kind has curves of its own.
enum class SensorKind { Thermocouple, Resistance };

/// Points that the device's memory has room for above the table's descriptor.
inline constexpr int kMostCurvePoints = 2544;

/// One of the curves that come with the program: a file of 32-bit integers, low byte first, one a degree, in
/// the device's own unit. What else is to be known of it stands here.
struct CurveFile {
  static constexpr int kPitch = 1;  ///< degrees from value to value

  StringView name;
  int base;    ///< degrees of the first value
  int points;  ///< values that belong to the curve
  [[nodiscard]] int Top() const { return base + (points - 1) * kPitch; }
};

/// The curves of a kind; the place of one is the number under which devices know it.
std::span<const CurveFile> CurveFiles(SensorKind kind);
/// The curve of this number; nullptr when the kind has none.
const CurveFile* FindCurveFile(SensorKind kind, int type);

/// Where the file lies below the program's folder.
String CurvePath(const String& app_path, const CurveFile& file, char16_t separator);

/// The curve's values, as many as it has points. Where the file ends too early they are 0; what it has beyond
/// them does not count. Nothing when it can't be read, or has more than a mebibyte and so is no curve; `reason`
/// then tells why.
std::optional<std::vector<std::int32_t>> ReadTableFile(const FileStore& files, const String& app_path,
                                                       const CurveFile& file, SystemReason& reason);

}  // namespace korva

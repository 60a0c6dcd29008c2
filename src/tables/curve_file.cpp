#include "tables/curve_file.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace korva {

namespace {

constexpr std::size_t kValueBytes = 4;
constexpr std::size_t kMostFileBytes = 1U << 20U;

constexpr std::array<CurveFile, 13> kThermocouples = {{
    {.name = u"TC_TypePR_00.tct", .base = -50, .points = 1911},
    {.name = u"TC_TypeK_01.tct", .base = -273, .points = 1744},
    {.name = u"TC_TypeE_02.tct", .base = -273, .points = 1294},
    {.name = u"TC_TypeJ_03.tct", .base = -260, .points = 1561},
    {.name = u"TC_TypeT_04.tct", .base = -272, .points = 773},
    {.name = u"TC_TypeB_05.tct", .base = 23, .points = 1898},
    {.name = u"TC_TypeR_06.tct", .base = -100, .points = 1961},
    {.name = u"TC_TypeS_07.tct", .base = -100, .points = 1961},
    {.name = u"TC_TypeC_08.tct", .base = -50, .points = 2466},
    {.name = u"TC_TypeN_09.tct", .base = -273, .points = 1674},
    {.name = u"TC_TypeU_10.tct", .base = -250, .points = 851},
    {.name = u"TC_TypeL_11.tct", .base = -250, .points = 1251},
    {.name = u"TC_TypeP_12.tct", .base = -50, .points = 1546},
}};
constexpr std::array<CurveFile, 8> kResistances = {{
    {.name = u"RTD00_JPt100_89.tct", .base = -235, .points = 796},
    {.name = u"RTD01_Pt100_89.tct", .base = -240, .points = 1141},
    {.name = u"RTD02_Pt100_97.tct", .base = -240, .points = 1141},
    {.name = u"RTD03_Pt50_81.tct", .base = -235, .points = 936},
    {.name = u"RTD04_Ni508.tct", .base = -100, .points = 431},
    {.name = u"RTD05_Pt1000.tct", .base = -240, .points = 1141},
    {.name = u"RTD06_Ni100.tct", .base = -100, .points = 351},
    {.name = u"RTD07_Cu10.tct", .base = -210, .points = 521},
}};

template <typename Files>
constexpr bool FitTheMemory(const Files& files) {
  return std::all_of(files.begin(), files.end(), [](const CurveFile& file) {
    return file.points >= 1 && file.points <= kMostCurvePoints;
  });
}
static_assert(FitTheMemory(kThermocouples) && FitTheMemory(kResistances));

std::int32_t ValueAt(std::string_view bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t byte = kValueBytes; byte-- > 0;) {
    value = value << 8U | static_cast<unsigned char>(bytes[at + byte]);
  }
  return static_cast<std::int32_t>(value);
}

}  // namespace

std::span<const CurveFile> CurveFiles(SensorKind kind) {
  return kind == SensorKind::Thermocouple ? std::span<const CurveFile>(kThermocouples) : kResistances;
}

const CurveFile* FindCurveFile(SensorKind kind, int type) {
  const std::span<const CurveFile> files = CurveFiles(kind);
  const bool known = type >= 0 && type < static_cast<int>(files.size());
  return known ? &files[static_cast<std::size_t>(type)] : nullptr;
}

String CurvePath(const String& app_path, const CurveFile& file, char16_t separator) {
  String path = app_path;
  if (path.empty() || path.back() != separator) {
    path += separator;
  }
  path.append(u"system").append(1, separator).append(u"z2Kv").append(1, separator);
  return path.append(file.name);
}

std::optional<std::vector<std::int32_t>> ReadTableFile(const FileStore& files, const String& app_path,
                                                       const CurveFile& file, SystemReason& reason) {
  const String path = CurvePath(app_path, file, files.Separator());
  const std::optional<std::string> bytes = files.Read(path, kMostFileBytes, reason);
  if (!bytes) {
    return std::nullopt;
  }
  std::vector<std::int32_t> values(static_cast<std::size_t>(file.points));
  const std::size_t held = std::min(values.size(), bytes->size() / kValueBytes);
  for (std::size_t point = 0; point < held; ++point) {
    values[point] = ValueAt(*bytes, point * kValueBytes);
  }
  return values;
}

}  // namespace korva

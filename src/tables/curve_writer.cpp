#include "tables/curve_writer.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/program.h"
#include "tables/memory_map.h"

namespace korva {

namespace {

constexpr int kBlock = 8;  // bytes; such a block at its own multiple never lies in two pages
constexpr int kValueSize = 3;
constexpr std::size_t kBlockDigits = 2 * std::size_t{kBlock};
constexpr int kNotBegun = -1;

constexpr int kBeingWritten = 99;
constexpr int kLinearizer = 101;

constexpr int kLeastLnrPoints = 2;
constexpr int kMostLnrPoints = 100;
constexpr double kEndScale = 256;                                   // of a linearizer's first and last X
constexpr std::int32_t kLargest = (1 << (8 * kValueSize - 1)) - 1;  // that a value can be

constexpr std::array kImages = {
    LnrImage{.models = u"Z2WF", .scale = 32768},
    LnrImage{.models = u"Z2WM", .scale = 65536},
    LnrImage{.models = u"Z8WF", .scale = 65536},
    LnrImage{.models = u"Z8WM", .scale = 65536},
};

std::int32_t Rounded(double value) {
  return static_cast<std::int32_t>(RoundHalfEven(std::clamp<double>(value, INT32_MIN, INT32_MAX)));
}

/// X and Y of each point in turn, as they are stored.
std::vector<std::int32_t> Stored(std::span<const LnrPoint> points, double scale) {
  std::vector<std::int32_t> values;
  for (const LnrPoint& point : points) {
    values.push_back(Rounded(point.x * scale));
    values.push_back(Rounded(point.y * scale));
  }
  return values;
}

bool Fits(std::int32_t value) { return value >= -kLargest && value <= kLargest; }

std::int32_t DifferenceOf(const std::vector<std::int32_t>& values) {
  return static_cast<std::int32_t>(std::int64_t{values.back()} - values.front());
}

/// True when the memory can hold the values and the first of each pair rises.
bool IsCurve(const std::vector<std::int32_t>& values) {
  const std::size_t points = values.size() / 2;
  if (points < kLeastLnrPoints || points > kMostLnrPoints) {
    return false;
  }
  for (std::size_t x = 2; x < values.size(); x += 2) {
    if (values[x] <= values[x - 2]) {
      return false;
    }
  }
  return std::all_of(values.begin(), values.end(), Fits);
}

/// Points of a linearizer that begins here and goes on to the memory's end; 0 when none can.
int PointsFrom(int start) {
  const double points = RoundHalfEven((Eeprom::kSize - start) / (2.0 * kValueSize));
  return points >= kLeastLnrPoints && points <= kMostLnrPoints ? static_cast<int>(points) : 0;
}

float Share(std::size_t block, std::size_t blocks) {
  return blocks == 1 ? 100.0F : static_cast<float>(block) / static_cast<float>(blocks - 1) * 100.0F;
}

}  // namespace

/// What goes into the memory.
struct CurveWriter::Table {
  int type = 0;
  int base = 0;
  int top = 0;
  int pitch = CurveFile::kPitch;
  std::int32_t difference = 0;  ///< of the last value to the first
  int points = 0;
  std::vector<std::int32_t> values;

  [[nodiscard]] int Start() const { return Eeprom::kSize - kValueSize * static_cast<int>(values.size()); }
};

/// What sets the writers apart.
struct CurveWriter::Manner {
  ProgressBar& bar;
  bool ends_at_rest = false;        ///< the bar goes back to 0
  bool head_behind_fields = false;  ///< the descriptor's first byte is written behind its fields
  TextKey stage = TextKey::StageCurve;
  String subject = {};
};

const LnrImage* FindLnrImage(StringView model) {
  const auto* const found = std::find_if(
      kImages.begin(), kImages.end(), [&](const LnrImage& image) { return model.starts_with(image.models); });
  return found == kImages.end() ? nullptr : found;
}

std::string ImageOf(std::span<const std::int32_t> values) {
  std::string image;
  image.reserve(values.size() * 2 * kValueSize);
  for (const std::int32_t value : values) {
    image += SwapBytePairs(ToHexField(value, kValueSize));
  }
  return image;
}

int CurveWriter::DownloadTcTable(int type, const String& name) {
  return DownloadCurve(
      SensorKind::Thermocouple, type,
      {.bar = page_.TransferBar, .ends_at_rest = true, .head_behind_fields = true, .subject = name});
}

int CurveWriter::DownloadRtdTable(int type, const String& name) {
  return DownloadCurve(SensorKind::Resistance, type, {.bar = page_.TransferBar, .subject = name});
}

int CurveWriter::DownloadCurve(SensorKind kind, int type, const Manner& manner) {
  const CurveFile* const file = FindCurveFile(kind, type);
  if (file == nullptr) {
    return kNotBegun;
  }
  SystemReason reason;
  std::optional<std::vector<std::int32_t>> values =
      ReadTableFile(page_.ItsProgram().Surroundings().files, page_.AppPath, *file, reason);
  if (!values) {
    return kNotBegun;
  }
  return Write({.type = type,
                .base = file->base,
                .top = file->Top(),
                .difference = DifferenceOf(*values),
                .points = file->points,
                .values = *std::move(values)},
               manner);
}

int CurveWriter::DownloadLnrTable(StringView model, std::span<const LnrPoint> points, ProgressBar& bar) {
  const LnrImage* const image = FindLnrImage(model);
  if (image == nullptr) {
    return kNotBegun;
  }
  std::vector<std::int32_t> values = Stored(points, image->scale);
  if (!IsCurve(values)) {
    return kNotBegun;
  }
  const int result = Write({.type = kLinearizer,
                            .base = Rounded(points.front().x * kEndScale),
                            .top = Rounded(points.back().x * kEndScale),
                            .difference = Rounded((points.back().x - points.front().x) * image->scale),
                            .points = static_cast<int>(points.size()),
                            .values = std::move(values)},
                           {.bar = bar, .stage = TextKey::StageLinearizer});
  notice_.End();
  return result;
}

int CurveWriter::Write(const Table& table, const Manner& manner) {
  notice_.Begin(manner.stage, manner.subject);
  if (eeprom_.SelectEeprom(memory::AccessItem()).empty() ||
      !WriteField(memory::kTableType, 1, kBeingWritten)) {
    return kNotBegun;
  }
  if (!WriteValues(table, manner) || !WriteDescriptor(table, manner)) {
    return table.points;
  }
  if (manner.ends_at_rest) {
    manner.bar.SetValue(0);
  }
  return 0;
}

bool CurveWriter::WriteField(int address, int size, std::int32_t value) {
  return eeprom_.EepWriteValue(address, size, value) == 0;
}

bool CurveWriter::WriteValues(const Table& table, const Manner& manner) {
  const std::string image = ImageOf(table.values);
  const std::size_t head = image.size() % kBlockDigits;
  const std::size_t blocks = image.size() / kBlockDigits;
  if (head > 0 && eeprom_.EepWriteChunk(table.Start(), image.substr(0, head)) != 0) {
    return false;
  }
  manner.bar.SetValue(0);
  notice_.BeginBlocks(manner.stage, static_cast<int>(blocks), manner.subject);
  for (std::size_t block = 0; block < blocks; ++block) {
    const std::size_t at = head + block * kBlockDigits;
    const int address = table.Start() + static_cast<int>(at / 2);
    if (eeprom_.EepWriteChunk(address, image.substr(at, kBlockDigits)) != 0) {
      return false;
    }
    manner.bar.SetValue(Share(block, blocks));
    notice_.BlockDone();
  }
  return true;
}

// The ends stand there three times; devices read one or the other.
bool CurveWriter::WriteDescriptor(const Table& table, const Manner& manner) {
  struct Field {
    int address;
    int size;
    std::int32_t value;
  };
  const std::array<Field, 10> fields = {{
      {.address = 514, .size = 2, .value = table.base},
      {.address = 516, .size = 2, .value = table.top},
      {.address = 518, .size = 2, .value = table.pitch},
      {.address = memory::kTableStart, .size = 2, .value = table.Start()},
      {.address = 522, .size = 2, .value = table.base},
      {.address = 524, .size = 2, .value = table.top},
      {.address = 526, .size = 2, .value = table.top - table.base},
      {.address = 528, .size = 3, .value = table.difference},
      {.address = 531, .size = 2, .value = table.base},
      {.address = 533, .size = 2, .value = table.top},
  }};
  const auto write_head = [this] { return WriteField(memory::kTableHead, 1, 0); };
  return (manner.head_behind_fields || write_head()) &&
         std::all_of(
             fields.begin(), fields.end(),
             [this](const Field& field) { return WriteField(field.address, field.size, field.value); }) &&
         (!manner.head_behind_fields || write_head()) && WriteField(memory::kTableType, 1, table.type);
}

std::optional<std::vector<LnrPoint>> CurveWriter::UploadLnrTable(StringView model, ProgressBar& bar) {
  const LnrImage* const image = FindLnrImage(model);
  if (image == nullptr) {
    return std::vector<LnrPoint>();
  }
  notice_.Begin(TextKey::StageReadLinearizer);
  const std::optional<int> start = ReadLnrStart();
  std::optional<std::vector<LnrPoint>> points = start ? ReadPoints(*start, image->scale, bar) : std::nullopt;
  notice_.End();
  return points;
}

std::optional<int> CurveWriter::ReadLnrStart() {
  const String answer = eeprom_.SelectEeprom(memory::AccessItem());
  if (answer.empty()) {
    page_.TellRead({.what = TextKey::DeviceMemory, .item = memory::AccessItem()}, answer);
    return std::nullopt;
  }
  const std::optional<std::int32_t> type = ReadField(memory::kTableType, 1);
  if (!type || *type != kLinearizer) {
    return type ? std::optional(Eeprom::kSize) : std::nullopt;
  }
  return ReadField(memory::kTableStart, 2);
}

std::optional<std::vector<LnrPoint>> CurveWriter::ReadPoints(int start, double scale, ProgressBar& bar) {
  std::vector<LnrPoint> points;
  const int count = PointsFrom(start);
  notice_.BeginBlocks(TextKey::StageReadLinearizer, count);
  for (int address = start; static_cast<int>(points.size()) < count; address += 2 * kValueSize) {
    const std::optional<std::int32_t> x = ReadField(address, kValueSize);
    const std::optional<std::int32_t> y = x ? ReadField(address + kValueSize, kValueSize) : std::nullopt;
    if (!y) {
      return std::nullopt;
    }
    points.push_back({.x = *x / scale, .y = *y / scale});
    bar.SetValue(static_cast<float>(points.size()) / static_cast<float>(count) * 100.0F);
    notice_.BlockDone();
  }
  return points;
}

std::optional<std::int32_t> CurveWriter::ReadField(int address, int size) {
  const Eeprom::Value value = eeprom_.EepReadValue(address, size);
  return eeprom_.Failed() ? std::nullopt : std::optional(std::get<std::int32_t>(value));
}

}  // namespace korva

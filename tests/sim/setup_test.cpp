// What the memory of a transmitter holds as its maker delivers it.
#include "sim/setup.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <span>
#include <vector>

#include "transmitter_device.h"

namespace korva::sim {
namespace {

constexpr std::array kModels = {"Z2WT", "Z2WT2", "Z2WR", "Z2WR2", "Z8WT", "Z8WR",  "Z2WV", "Z2WV2",
                                "Z2WF", "Z2WF2", "Z8WF", "Z8WV",  "Z2WM", "Z2WM2", "Z8WM"};

std::int32_t Stored(Device& device, std::size_t address, std::size_t size) {
  return device.GetMemory().Number(address, size);
}

// --- types and texts

TEST(SetupTest, TellsTheTypesOfEachModel) {
  for (const std::string model : kModels) {
    auto device = TransmitterOf(model);
    EXPECT_TRUE(device.Value("00", "01").starts_with(model + "-")) << device.Value("00", "01");
    EXPECT_EQ(device.GetMemory().Text(80, 16), device.Value("01", "10")) << model;
    EXPECT_EQ(device.GetMemory().Text(96, 16), device.Value("01", "11")) << model;
    EXPECT_EQ(Stored(device, 78, 1), 0) << model;
    EXPECT_EQ(Stored(device, model.starts_with("Z8") ? 158 : 79, 1), 0) << model;
    EXPECT_EQ(device.GetMemory().Bytes(model.starts_with("Z8") ? 79 : 158, 1), "\xFF") << model;
    EXPECT_TRUE(Stored(device, 72, 1) >= 1 && Stored(device, 72, 1) <= 31) << model;
    EXPECT_TRUE(Stored(device, 73, 1) >= 1 && Stored(device, 73, 1) <= 12) << model;
    EXPECT_TRUE(Stored(device, 74, 2) > 2000 && Stored(device, 74, 2) < 2100) << model;
  }
}

TEST(SetupTest, PadsItsTextsWithBlanks) {
  auto device = TransmitterWith("Z2WT", 1);
  EXPECT_EQ(device.GetMemory().Bytes(48, 16), "Z2WT-KA-S       ");
  EXPECT_EQ(device.GetMemory().Bytes(80, 16), "TC K (CA)       ");
  EXPECT_EQ(device.GetMemory().Bytes(96, 16), "4-20 mA         ");
}

TEST(SetupTest, BringsTheLimitsOfATypeToZeroAndSpan) {
  auto device = TransmitterWith("Z2WT", 1);
  EXPECT_EQ(device.Value("01", "14"), "-270 deg C");
  EXPECT_EQ(device.Value("01", "15"), "1370 deg C");
  device.Set("01", "11", "1-5 V");
  EXPECT_EQ(device.Value("01", "12"), "1");
  EXPECT_EQ(device.Value("01", "13"), "5");
}

// --- calibration

struct BankRow {
  std::size_t width;
  std::size_t active;
  std::array<std::size_t, 3> sources;
};
struct Difference {
  std::size_t width;
  std::size_t first;
  std::size_t second;
  std::size_t result;
};

constexpr std::array kInputBank = {BankRow{2, 193, {237, 253, 269}}, BankRow{2, 195, {239, 255, 271}},
                                   BankRow{3, 197, {241, 257, 273}}, BankRow{3, 200, {244, 260, 276}},
                                   BankRow{3, 206, {247, 263, 279}}, BankRow{3, 209, {250, 266, 282}}};
constexpr std::array kInputDifferences = {Difference{3, 197, 200, 203}, Difference{3, 206, 209, 212}};

constexpr std::array kLayoutA = {BankRow{2, 349, {373, 389, 405}}, BankRow{2, 351, {375, 391, 407}},
                                 BankRow{3, 355, {377, 393, 409}}, BankRow{3, 358, {380, 396, 412}},
                                 BankRow{3, 364, {383, 399, 415}}, BankRow{3, 367, {386, 402, 418}}};
constexpr std::array kDifferencesA = {Difference{2, 349, 351, 353}, Difference{3, 355, 358, 361},
                                      Difference{3, 364, 367, 370}};

constexpr std::array kLayoutB = {BankRow{2, 416, {440, 456, 472}}, BankRow{2, 418, {442, 458, 474}},
                                 BankRow{3, 422, {444, 460, 476}}, BankRow{3, 425, {447, 463, 479}},
                                 BankRow{3, 431, {450, 466, 482}}, BankRow{3, 434, {453, 469, 485}}};
constexpr std::array kDifferencesB = {Difference{2, 416, 418, 420}, Difference{3, 422, 425, 428},
                                      Difference{3, 431, 434, 437}};

/// The active values are those of the type's bank, and no other type's; the differences are theirs.
void ExpectBank(Device& device, std::span<const BankRow> rows, std::span<const Difference> differences,
                std::size_t type) {
  auto& memory = device.GetMemory();
  for (const auto& row : rows) {
    for (std::size_t other = 0; other < row.sources.size(); ++other) {
      EXPECT_EQ(memory.Bytes(row.active, row.width) == memory.Bytes(row.sources.at(other), row.width),
                other == type)
          << row.active << ", type " << type << " against " << other;
    }
  }
  for (const auto& [width, first, second, result] : differences) {
    Memory expected;
    expected.PutNumber(0, width, memory.Number(first, width) - memory.Number(second, width));
    EXPECT_EQ(memory.Bytes(result, width), expected.Bytes(0, width)) << result;
  }
}

TEST(SetupTest, HasTheCalibrationOfItsConverterInForce) {
  struct Case {
    const char* type;
    std::size_t converter;
  };
  auto device = TransmitterOf("Z2WV");
  for (const auto& [type, converter] : {Case{"-10 - 10 V", 2}, Case{"-1 - 1 V", 1}, Case{"-50 - 50 mV", 0}}) {
    ASSERT_TRUE(device.Set("01", "10", type));
    EXPECT_EQ(Stored(device, 77, 1), static_cast<std::int32_t>(converter));
    ExpectBank(device, kInputBank, kInputDifferences, converter);
  }
}

TEST(SetupTest, HasTheCalibrationOfItsOutputInForce) {
  for (const std::string model : kModels) {
    auto device = TransmitterOf(model);
    const bool layout_b = model[3] == 'R' || model[3] == 'M';
    for (std::size_t output = 0; output < 3; ++output) {
      SCOPED_TRACE(model + " " + std::to_string(output));
      ASSERT_TRUE(device.Set("01", "11", std::to_string(output)));
      const std::size_t type = model.starts_with("Z8") ? 2 : output;
      ExpectBank(device, layout_b ? std::span<const BankRow>(kLayoutB) : kLayoutA,
                 layout_b ? kDifferencesB : kDifferencesA, type);
    }
  }
}

// --- the table

std::vector<std::int32_t> FileOf(const std::string& name) {
  std::ifstream file(kInstalled / "system" / "z2Kv" / (name + ".tct"), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  Memory reader;
  std::vector<std::int32_t> values;
  for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
    reader.Put(0, std::string_view(bytes).substr(at, 4));
    values.push_back(reader.Number(0, 4));
  }
  return values;
}

struct SensorCase {
  const char* model;
  int index;
  const char* file;
  std::int32_t base;
  std::int32_t top;
};

class SensorTest : public testing::TestWithParam<SensorCase> {};

TEST_P(SensorTest, HasItsCurveAtTheMemorysEndAndItsDescriptor) {
  const auto& sensor = GetParam();
  auto device = TransmitterWith(sensor.model, sensor.index);
  auto& memory = device.GetMemory();
  const auto values = FileOf(sensor.file);
  const auto points = static_cast<std::size_t>(sensor.top - sensor.base) + 1;
  ASSERT_EQ(values.size(), points);
  const std::size_t start = 8192 - (3 * points);
  Memory expected;
  for (std::size_t i = 0; i < points; ++i) {
    expected.PutNumber(start + (3 * i), 3, values[i]);
  }
  EXPECT_EQ(memory.Bytes(start, 3 * points), expected.Bytes(start, 3 * points));
  expected.PutNumber(512, 1, 0);
  expected.PutNumber(513, 1, sensor.index);
  for (const std::size_t base : {514U, 522U, 531U}) {
    expected.PutNumber(base, 2, sensor.base);
    expected.PutNumber(base + 2, 2, sensor.top);
  }
  expected.PutNumber(518, 2, 1);
  expected.PutNumber(520, 2, static_cast<std::int32_t>(start));
  expected.PutNumber(526, 2, sensor.top - sensor.base);
  expected.PutNumber(528, 3, values.back() - values.front());
  EXPECT_EQ(memory.Bytes(512, 23), expected.Bytes(512, 23));
}

constexpr std::array kSensors = {
    SensorCase{"Z2WT", 0, "TC_TypePR_00", -50, 1860},   SensorCase{"Z2WT", 1, "TC_TypeK_01", -273, 1470},
    SensorCase{"Z2WT", 2, "TC_TypeE_02", -273, 1020},   SensorCase{"Z2WT", 3, "TC_TypeJ_03", -260, 1300},
    SensorCase{"Z2WT2", 4, "TC_TypeT_04", -272, 500},   SensorCase{"Z2WT2", 5, "TC_TypeB_05", 23, 1920},
    SensorCase{"Z2WT2", 6, "TC_TypeR_06", -100, 1860},  SensorCase{"Z2WT2", 7, "TC_TypeS_07", -100, 1860},
    SensorCase{"Z8WT", 8, "TC_TypeC_08", -50, 2415},    SensorCase{"Z8WT", 9, "TC_TypeN_09", -273, 1400},
    SensorCase{"Z8WT", 10, "TC_TypeU_10", -250, 600},   SensorCase{"Z8WT", 11, "TC_TypeL_11", -250, 1000},
    SensorCase{"Z8WT", 12, "TC_TypeP_12", -50, 1495},   SensorCase{"Z2WR", 0, "RTD00_JPt100_89", -235, 560},
    SensorCase{"Z2WR", 1, "RTD01_Pt100_89", -240, 900}, SensorCase{"Z2WR", 2, "RTD02_Pt100_97", -240, 900},
    SensorCase{"Z2WR2", 3, "RTD03_Pt50_81", -235, 700}, SensorCase{"Z2WR2", 4, "RTD04_Ni508", -100, 330},
    SensorCase{"Z8WR", 5, "RTD05_Pt1000", -240, 900},   SensorCase{"Z8WR", 6, "RTD06_Ni100", -100, 250},
    SensorCase{"Z8WR", 7, "RTD07_Cu10", -210, 310},
};

INSTANTIATE_TEST_SUITE_P(Each, SensorTest, testing::ValuesIn(kSensors),
                         [](const auto& sensor) { return std::string(sensor.param.file); });

TEST(SetupTest, DescribesTheCurveOfTypeKByteForByte) {
  auto device = TransmitterWith("Z2WT", 1);
  constexpr std::array<unsigned char, 23> descriptor = {0x00, 0x01, 0xEF, 0xFE, 0xBE, 0x05, 0x01, 0x00,
                                                        0x90, 0x0B, 0xEF, 0xFE, 0xBE, 0x05, 0xCF, 0x06,
                                                        0x9B, 0xFC, 0x00, 0xEF, 0xFE, 0xBE, 0x05};
  EXPECT_EQ(device.GetMemory().Bytes(512, 23), std::string(descriptor.begin(), descriptor.end()));
}

TEST(SetupTest, HasNoValidTableWithoutTheFileOfItsCurve) {
  const Model row{.name = "Z2WT", .definition_file = "Z2WT.def", .family_word = "Lite"};
  Device device(row, Definition::Read(kInstalled, row));
  EXPECT_EQ(Stored(device, 513, 1), 99);
}

TEST(SetupTest, HasAStraightLinearizerOfElevenPoints) {
  struct Case {
    const char* model;
    std::int32_t scale;
  };
  for (const auto& [model, scale] : {Case{"Z2WF", 32768}, Case{"Z2WF2", 32768}, Case{"Z8WF", 65536},
                                     Case{"Z2WM", 65536}, Case{"Z2WM2", 65536}, Case{"Z8WM", 65536}}) {
    auto device = TransmitterOf(model);
    EXPECT_EQ(Stored(device, 513, 1), 101) << model;
    EXPECT_EQ(Stored(device, 514, 2), 0) << model;
    EXPECT_EQ(Stored(device, 516, 2), 25600) << model;
    EXPECT_EQ(Stored(device, 518, 2), 1) << model;
    EXPECT_EQ(Stored(device, 520, 2), 8126) << model;
    EXPECT_EQ(Stored(device, 528, 3), 100 * scale) << model;
    for (std::size_t i = 0; i < 11; ++i) {
      const auto percent = static_cast<std::int32_t>(10 * i);
      EXPECT_EQ(Stored(device, 8126 + (6 * i), 3), percent * scale) << model << " X " << i;
      EXPECT_EQ(Stored(device, 8129 + (6 * i), 3), percent * scale) << model << " Y " << i;
    }
  }
}

TEST(SetupTest, HasNoTableWithoutSensorAndLinearizer) {
  for (const char* const model : {"Z2WV", "Z2WV2", "Z8WV"}) {
    auto device = TransmitterOf(model);
    EXPECT_EQ(device.GetMemory().Bytes(512, 23), std::string(23, '\xFF')) << model;
  }
}

}  // namespace
}  // namespace korva::sim

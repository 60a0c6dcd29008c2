// The curves that the build makes, against the tables of their standards and against the functions worked out
// by other means.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace korva {
namespace {

std::vector<std::int32_t> ReadTable(const std::string& name) {
  std::ifstream file(KORVA_HOME "/system/z2Kv/" + name + ".tct", std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(bytes.size() % 4, 0U);
  std::vector<std::int32_t> table;
  for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
    std::uint32_t value = 0;
    for (std::size_t byte = 4; byte-- > 0;) {
      value = value << 8U | static_cast<unsigned char>(bytes[at + byte]);
    }
    table.push_back(static_cast<std::int32_t>(value));
  }
  return table;
}

/// A file, and what stands in it: whole degrees, and microvolts or milliohms.
struct CurveFile {
  std::string name;
  int base;
  int top;
  std::int32_t first;
  std::int32_t last;
  int flat;       ///< neighbours that rounding made equal
  double spread;  ///< by which a printed value may differ from the function: millivolts or ohms
};

const std::vector<CurveFile>& CurveFiles() {
  static const std::vector<CurveFile> files = {
      {.name = "TC_TypePR_00",
       .base = -50,
       .top = 1860,
       .first = -226,
       .last = 22271,
       .flat = 0,
       .spread = 0.0004},
      {.name = "TC_TypeK_01",
       .base = -273,
       .top = 1470,
       .first = -6460,
       .last = 58207,
       .flat = 1,
       .spread = 0.0004},
      {.name = "TC_TypeE_02",
       .base = -273,
       .top = 1020,
       .first = -9840,
       .last = 77876,
       .flat = 0,
       .spread = 0.0004},
      {.name = "TC_TypeJ_03",
       .base = -260,
       .top = 1300,
       .first = -9050,
       .last = 75277,
       .flat = 0,
       .spread = 0.0005},
      {.name = "TC_TypeT_04",
       .base = -272,
       .top = 500,
       .first = -6260,
       .last = 27052,
       .flat = 0,
       .spread = 0.0005},
      {.name = "TC_TypeB_05",
       .base = 23,
       .top = 1920,
       .first = -3,
       .last = 14962,
       .flat = 41,
       .spread = 0.0005},
      {.name = "TC_TypeR_06",
       .base = -100,
       .top = 1860,
       .first = -411,
       .last = 22229,
       .flat = 0,
       .spread = 0.0005},
      {.name = "TC_TypeS_07",
       .base = -100,
       .top = 1860,
       .first = -433,
       .last = 19641,
       .flat = 0,
       .spread = 0.0005},
      {.name = "TC_TypeC_08",
       .base = -50,
       .top = 2415,
       .first = -670,
       .last = 37986,
       .flat = 0,
       .spread = 0.0004},
      {.name = "TC_TypeN_09",
       .base = -273,
       .top = 1400,
       .first = -4346,
       .last = 51114,
       .flat = 4,
       .spread = 0.0005},
      {.name = "TC_TypeU_10",
       .base = -250,
       .top = 600,
       .first = -6650,
       .last = 34310,
       .flat = 0,
       .spread = 0.0000},
      {.name = "TC_TypeL_11",
       .base = -250,
       .top = 1000,
       .first = -9600,
       .last = 60240,
       .flat = 0,
       .spread = 0.0000},
      {.name = "TC_TypeP_12",
       .base = -50,
       .top = 1495,
       .first = -1491,
       .last = 58299,
       .flat = 0,
       .spread = 0.0003},
      {.name = "RTD00_JPt100_89",
       .base = -235,
       .top = 560,
       .first = 2032,
       .last = 304120,
       .flat = 0,
       .spread = 0.0059},
      {.name = "RTD01_Pt100_89",
       .base = -240,
       .top = 900,
       .first = 1181,
       .last = 404871,
       .flat = 0,
       .spread = 0.0042},
      {.name = "RTD02_Pt100_97",
       .base = -240,
       .top = 900,
       .first = 1227,
       .last = 405114,
       .flat = 0,
       .spread = 0.0005},
      {.name = "RTD03_Pt50_81",
       .base = -235,
       .top = 700,
       .first = 1016,
       .last = 174733,
       .flat = 0,
       .spread = 0.0013},
      {.name = "RTD04_Ni508",
       .base = -100,
       .top = 330,
       .first = 227077,
       .last = 2056249,
       .flat = 0,
       .spread = 0.0247},
      {.name = "RTD05_Pt1000",
       .base = -240,
       .top = 900,
       .first = 12267,
       .last = 4051139,
       .flat = 0,
       .spread = 0.0050},
      {.name = "RTD06_Ni100",
       .base = -100,
       .top = 250,
       .first = 50869,
       .last = 289156,
       .flat = 0,
       .spread = 0.0050},
      {.name = "RTD07_Cu10",
       .base = -210,
       .top = 310,
       .first = 643,
       .last = 21063,
       .flat = 0,
       .spread = 0.0005},
  };
  return files;
}

struct CurveFileTest : testing::TestWithParam<CurveFile> {};
INSTANTIATE_TEST_SUITE_P(File, CurveFileTest, testing::ValuesIn(CurveFiles()),
                         [](const auto& one) { return one.param.name; });

TEST_P(CurveFileTest, HasOneNumberForEachDegreeFromItsBaseToItsTop) {
  const std::vector<std::int32_t> table = ReadTable(GetParam().name);
  ASSERT_EQ(table.size(), static_cast<std::size_t>(GetParam().top - GetParam().base + 1));
  EXPECT_EQ(table.front(), GetParam().first);
  EXPECT_EQ(table.back(), GetParam().last);
}

TEST_P(CurveFileTest, NeverFallsAndIsFlatOnlyWhereTheSensorGivesLessThanAMicrovoltADegree) {
  const std::vector<std::int32_t> table = ReadTable(GetParam().name);
  int flat = 0;
  for (std::size_t at = 1; at < table.size(); ++at) {
    EXPECT_GE(table[at], table[at - 1]) << GetParam().base + static_cast<int>(at);
    flat += table[at] == table[at - 1] ? 1 : 0;
  }
  EXPECT_EQ(flat, GetParam().flat);
}

TEST_P(CurveFileTest, FitsThreeBytesAValueAndTheDevicesMemoryAboveItsDescriptor) {
  const std::vector<std::int32_t> table = ReadTable(GetParam().name);
  EXPECT_LE(table.size(), 2544U);
  EXPECT_LT(table.back(), 1 << 23);
  EXPECT_GE(table.front(), -(1 << 23));
}

/// A temperature in degC with the standard's printed value and the function's, in millivolts or ohms.
struct Checkpoint {
  int temperature;
  double printed;
  double function;
  bool printed_elsewhere =
      false;  ///< the printed value is of another scale, or lies outside the published range
};

struct Checkpoints {
  std::string name;
  std::vector<Checkpoint> points;
};

const std::vector<Checkpoints>& AllCheckpoints() {
  static const std::vector<Checkpoints> checkpoints =
      {
          {.name = "TC_TypePR_00",
           .points =
               {
                   {.temperature = 100, .printed = 0.647, .function = 0.6472},
                   {.temperature = 500, .printed = 4.471, .function = 4.4706},
                   {.temperature = 1000, .printed = 10.503, .function = 10.5032},
                   {.temperature = 1500, .printed = 17.445, .function = 17.4447},
                   {.temperature = 1600, .printed = 18.842, .function = 18.8424},
                   {.temperature = 1700, .printed = 20.215, .function = 20.2151},
               }},
          {.name = "TC_TypeK_01",
           .points =
               {
                   {.temperature = -270, .printed = -6.458, .function = -6.4577},
                   {.temperature = -200, .printed = -5.891, .function = -5.8914},
                   {.temperature = -100, .printed = -3.554, .function = -3.5536},
                   {.temperature = 100, .printed = 4.096, .function = 4.0962},
                   {.temperature = 500, .printed = 20.644, .function = 20.6443},
                   {.temperature = 1000, .printed = 41.276, .function = 41.2756},
                   {.temperature = 1300, .printed = 52.410, .function = 52.4103},
                   {.temperature = 1372, .printed = 54.886, .function = 54.8864},
               }},
          {.name = "TC_TypeE_02",
           .points =
               {
                   {.temperature = -270, .printed = -9.835, .function = -9.8350},
                   {.temperature = -200, .printed = -8.825, .function = -8.8246},
                   {.temperature = -100, .printed = -5.237, .function = -5.2372},
                   {.temperature = 100, .printed = 6.319, .function = 6.3189},
                   {.temperature = 500, .printed = 37.005, .function = 37.0054},
                   {.temperature = 800, .printed = 61.017, .function = 61.0174},
                   {.temperature = 1000, .printed = 76.373, .function = 76.3728},
               }},
          {.name = "TC_TypeJ_03",
           .points =
               {
                   {.temperature = -210, .printed = -8.095, .function = -8.0954},
                   {.temperature = -100, .printed = -4.633, .function = -4.6325},
                   {.temperature = 100, .printed = 5.269, .function = 5.2689},
                   {.temperature = 500, .printed = 27.393, .function = 27.3926},
                   {.temperature = 760, .printed = 42.919, .function = 42.9186},
                   {.temperature = 1000, .printed = 57.953, .function = 57.9534},
                   {.temperature = 1200, .printed = 69.553, .function = 69.5532},
               }},
          {.name = "TC_TypeT_04",
           .points =
               {
                   {.temperature = -270, .printed = -6.258, .function = -6.2575},
                   {.temperature = -200, .printed = -5.603, .function = -5.6030},
                   {.temperature = -100, .printed = -3.379, .function = -3.3786},
                   {.temperature = 100, .printed = 4.279, .function = 4.2785},
                   {.temperature = 200, .printed = 9.288, .function = 9.2881},
                   {.temperature = 300, .printed = 14.862, .function = 14.8619},
                   {.temperature = 400, .printed = 20.872, .function = 20.8720},
               }},
          {.name = "TC_TypeB_05",
           .points =
               {
                   {.temperature = 50, .printed = 0.002, .function = 0.0023},
                   {.temperature = 100, .printed = 0.033, .function = 0.0332},
                   {.temperature = 400, .printed = 0.787, .function = 0.7865},
                   {.temperature = 800, .printed = 3.154, .function = 3.1536},
                   {.temperature = 1000, .printed = 4.834, .function = 4.8343},
                   {.temperature = 1500, .printed = 10.099, .function = 10.0991},
                   {.temperature = 1800, .printed = 13.591, .function = 13.5913},
                   {.temperature = 1820, .printed = 13.820, .function = 13.8203},
               }},
          {.name = "TC_TypeR_06",
           .points =
               {
                   {.temperature = -50, .printed = -0.226, .function = -0.2265},
                   {.temperature = 100, .printed = 0.647, .function = 0.6474},
                   {.temperature = 500, .printed = 4.471, .function = 4.4713},
                   {.temperature = 1000, .printed = 10.506, .function = 10.5060},
                   {.temperature = 1300, .printed = 14.629, .function = 14.6287},
                   {.temperature = 1500, .printed = 17.451, .function = 17.4507},
                   {.temperature = 1700, .printed = 20.222, .function = 20.2217},
                   {.temperature = 1768, .printed = 21.101, .function = 21.1015},
               }},
          {.name = "TC_TypeS_07",
           .points =
               {
                   {.temperature = -50, .printed = -0.236, .function = -0.2356},
                   {.temperature = 100, .printed = 0.646, .function = 0.6459},
                   {.temperature = 500, .printed = 4.233, .function = 4.2333},
                   {.temperature = 1000, .printed = 9.587, .function = 9.5871},
                   {.temperature = 1300, .printed = 13.159, .function = 13.1591},
                   {.temperature = 1500, .printed = 15.582, .function = 15.5817},
                   {.temperature = 1700, .printed = 17.947, .function = 17.9473},
                   {.temperature = 1768, .printed = 18.693, .function = 18.6925},
               }},
          {.name = "TC_TypeC_08",
           .points =
               {
                   {.temperature = 100, .printed = 1.4516, .function = 1.4515},
                   {.temperature = 300, .printed = 4.8645, .function = 4.8647},
                   {.temperature = 500, .printed = 8.6570, .function = 8.6569},
                   {.temperature = 1200, .printed = 21.8249, .function = 21.8250},
                   {.temperature = 1500, .printed = 26.7294, .function = 26.7290},
                   {.temperature = 2000, .printed = 33.6693, .function = 33.6691},
                   {.temperature = 2300, .printed = 36.9312, .function = 36.9310},
                   {.temperature = 1000, .printed = 18.257, .function = 18.2602, .printed_elsewhere = true},
                   {.temperature = 2315, .printed = 37.070, .function = 37.0698},
               }},
          {.name = "TC_TypeN_09",
           .points =
               {
                   {.temperature = -270, .printed = -4.345, .function = -4.3451},
                   {.temperature = -200, .printed = -3.990, .function = -3.9904},
                   {.temperature = -100, .printed = -2.407, .function = -2.4068},
                   {.temperature = 100, .printed = 2.774, .function = 2.7741},
                   {.temperature = 500, .printed = 16.748, .function = 16.7479},
                   {.temperature = 1000, .printed = 36.256, .function = 36.2555},
                   {.temperature = 1300, .printed = 47.513, .function = 47.5128},
               }},
          {.name = "TC_TypeU_10",
           .points =
               {
                   {.temperature = -200, .printed = -5.70, .function = -5.7000},
                   {.temperature = -100, .printed = -3.40, .function = -3.4000},
                   {.temperature = 100, .printed = 4.25, .function = 4.2500},
                   {.temperature = 200, .printed = 9.20, .function = 9.2000},
                   {.temperature = 300, .printed = 14.90, .function = 14.9000},
                   {.temperature = 400, .printed = 21.00, .function = 21.0000},
                   {.temperature = 500, .printed = 27.41, .function = 27.4100},
                   {.temperature = 600, .printed = 34.31, .function = 34.3100},
               }},
          {.name = "TC_TypeL_11",
           .points =
               {
                   {.temperature = -200, .printed = -8.15, .function = -8.1500},
                   {.temperature = -100, .printed = -4.75, .function = -4.7500},
                   {.temperature = 100, .printed = 5.37, .function = 5.3700},
                   {.temperature = 200, .printed = 10.95, .function = 10.9500},
                   {.temperature = 300, .printed = 16.56, .function = 16.5600},
                   {.temperature = 400, .printed = 22.16, .function = 22.1600},
                   {.temperature = 600, .printed = 33.67, .function = 33.6700},
                   {.temperature = 900, .printed = 53.14, .function = 53.1400},
               }},
          {.name = "TC_TypeP_12",
           .points =
               {
                   {.temperature = 0, .printed = 0.000, .function = 0.0000},
                   {.temperature = 1395, .printed = 55.257, .function = 55.2567},
               }},
          {.name = "RTD00_JPt100_89",
           .points =
               {
                   {.temperature = 10, .printed = 103.97, .function = 103.9706},
                   {.temperature = 100, .printed = 139.16, .function = 139.1600},
                   {.temperature = 110, .printed = 143.01, .function = 143.0100},
                   {.temperature = 200, .printed = 177.13, .function = 177.1286},
                   {.temperature = 210, .printed = 180.86, .function = 180.8609},
                   {.temperature = 300, .printed = 213.93, .function = 213.9274},
                   {.temperature = 310, .printed = 217.54, .function = 217.5432},
                   {.temperature = 400, .printed = 249.56, .function = 249.5607},
                   {.temperature = 410, .printed = 253.06, .function = 253.0597},
                   {.temperature = 500, .printed = 284.02, .function = 284.0187},
                   {.temperature = 510, .printed = 287.40, .function = 287.3991},
                   {.temperature = 600, .printed = 317.28, .function = 317.2791},
                   {.temperature = -110, .printed = 55.44, .function = 55.4384},
                   {.temperature = -50, .printed = 79.96, .function = 79.9618},
                   {.temperature = -100, .printed = 59.57, .function = 59.5688},
                   {.temperature = -150, .printed = 38.68, .function = 38.6834},
                   {.temperature = -180, .printed = 25.80, .function = 25.8059},
                   {.temperature = -200, .printed = 17.14, .function = 17.1377},
               }},
          {.name = "RTD01_Pt100_89",
           .points =
               {
                   {.temperature = -200, .printed = 18.49, .function = 18.4932},
                   {.temperature = -100, .printed = 60.25, .function = 60.2541},
                   {.temperature = 100, .printed = 138.50, .function = 138.5000},
                   {.temperature = 200, .printed = 175.84, .function = 175.8396},
                   {.temperature = 300, .printed = 212.02, .function = 212.0188},
                   {.temperature = 400, .printed = 247.04, .function = 247.0377},
                   {.temperature = 500, .printed = 280.90, .function = 280.8961},
                   {.temperature = 600, .printed = 313.59, .function = 313.5942},
               }},
          {.name = "RTD02_Pt100_97",
           .points =
               {
                   {.temperature = -200, .printed = 18.520, .function = 18.5201},
                   {.temperature = -150, .printed = 39.723, .function = 39.7232},
                   {.temperature = -100, .printed = 60.256, .function = 60.2558},
                   {.temperature = -50, .printed = 80.306, .function = 80.3063},
                   {.temperature = 100, .printed = 138.506, .function = 138.5055},
                   {.temperature = 200, .printed = 175.856, .function = 175.8560},
                   {.temperature = 500, .printed = 280.978, .function = 280.9775},
                   {.temperature = 850, .printed = 390.481, .function = 390.4811},
               }},
          {.name = "RTD03_Pt50_81",
           .points =
               {
                   {.temperature = -200, .printed = 8.57, .function = 8.5688},
                   {.temperature = -100, .printed = 29.785, .function = 29.7844},
                   {.temperature = 100, .printed = 69.58, .function = 69.5800},
                   {.temperature = 200, .printed = 88.565, .function = 88.5643},
                   {.temperature = 300, .printed = 106.965, .function = 106.9637},
                   {.temperature = 500, .printed = 142.01, .function = 142.0093},
                   {.temperature = 600, .printed = 158.64, .function = 158.6396},
               }},
          {.name = "RTD04_Ni508",
           .points =
               {
                   {.temperature = 0, .printed = 508.4, .function = 508.4000},
                   {.temperature = 300, .printed = 1861.76, .function = 1860.3973, .printed_elsewhere = true},
                   {.temperature = -50, .printed = 365.07, .function = 365.0513},
                   {.temperature = 50, .printed = 668.29, .function = 668.3147},
                   {.temperature = 100, .printed = 850.04, .function = 850.0432},
                   {.temperature = 150, .printed = 1054.72, .function = 1054.7182},
                   {.temperature = 200, .printed = 1285.66, .function = 1285.6360},
                   {.temperature = 250, .printed = 1552.87, .function = 1552.8698},
               }},
          {.name = "RTD05_Pt1000",
           .points =
               {
                   {.temperature = -200, .printed = 185.200, .function = 185.2008},
                   {.temperature = -150, .printed = 397.230, .function = 397.2318},
                   {.temperature = -100, .printed = 602.560, .function = 602.5584},
                   {.temperature = -80, .printed = 683.250, .function = 683.2545},
                   {.temperature = 100, .printed = 1385.06, .function = 1385.0550},
                   {.temperature = 400, .printed = 2470.92, .function = 2470.9200},
                   {.temperature = 850, .printed = 3904.81, .function = 3904.8112},
               }},
          {.name = "RTD06_Ni100",
           .points =
               {
                   {.temperature = -60, .printed = 69.52, .function = 69.5203},
                   {.temperature = -50, .printed = 74.26, .function = 74.2550},
                   {.temperature = -30, .printed = 84.15, .function = 84.1458},
                   {.temperature = -10, .printed = 94.58, .function = 94.5815},
                   {.temperature = 10, .printed = 105.55, .function = 105.5515},
                   {.temperature = 20, .printed = 111.24, .function = 111.2364},
                   {.temperature = 100, .printed = 161.78, .function = 161.7785},
                   {.temperature = 250, .printed = 289.16, .function = 289.1562},
               }},
          {.name = "RTD07_Cu10",
           .points =
               {
                   {.temperature = -200, .printed = 1.058, .function = 1.0582},
                   {.temperature = -150, .printed = 3.113, .function = 3.1128},
                   {.temperature = -100, .printed = 5.128, .function = 5.1281},
                   {.temperature = -50, .printed = 7.104, .function = 7.1040},
                   {.temperature = 0, .printed = 9.035, .function = 9.0350},
                   {.temperature = 50, .printed = 10.966, .function = 10.9660},
                   {.temperature = 100, .printed = 12.897, .function = 12.8970},
                   {.temperature = 150, .printed = 14.828, .function = 14.8280},
                   {.temperature = 200, .printed = 16.776, .function = 16.7765},
                   {.temperature = 250, .printed = 18.725, .function = 18.7250},
               }},
      };
  return checkpoints;
}

TEST_P(CurveFileTest, HoldsEveryCheckpointOfItsStandard) {
  constexpr double kRounding = 0.000501;  // half a microvolt or milliohm
  const CurveFile& file = GetParam();
  const std::vector<std::int32_t> table = ReadTable(file.name);
  int held = 0;
  for (const Checkpoints& checkpoints : AllCheckpoints()) {
    if (checkpoints.name != file.name) {
      continue;
    }
    for (const Checkpoint& point : checkpoints.points) {
      if (point.temperature > file.top) {
        continue;  // the device's table of JPt100 ends at 560 degC
      }
      ++held;
      const double stored = table.at(static_cast<std::size_t>(point.temperature - file.base)) / 1000.0;
      EXPECT_NEAR(stored, point.function, kRounding + 0.00005) << point.temperature;
      if (!point.printed_elsewhere) {
        EXPECT_NEAR(stored, point.printed, file.spread + kRounding + 0.00005) << point.temperature;
      }
    }
  }
  EXPECT_GE(held, 2);
}

TEST(CurveFilesTest, AllCheckpointsBelongToAFile) {
  std::size_t all = 0;
  for (const Checkpoints& checkpoints : AllCheckpoints()) {
    all += checkpoints.points.size();
  }
  EXPECT_EQ(all, 167U);
  EXPECT_EQ(CurveFiles().size(), 21U);
}

/// Beyond the standard's range the curve goes on straight: values there, worked out with the slope at its
/// end.
struct Beyond {
  std::string name;
  int temperature;
  double value;
};

TEST(CurveFilesTest, GoOnStraightBeyondTheRangeOfTheirStandards) {
  const std::vector<Beyond> values = {
      {.name = "TC_TypeK_01", .temperature = -273, .value = -6.4599},
      {.name = "TC_TypeK_01", .temperature = 1470, .value = 58.2071},
      {.name = "TC_TypeE_02", .temperature = -273, .value = -9.8396},
      {.name = "TC_TypeT_04", .temperature = -272, .value = -6.2595},
      {.name = "TC_TypeT_04", .temperature = 500, .value = 27.0525},
      {.name = "TC_TypeJ_03", .temperature = -260, .value = -9.0502},
      {.name = "TC_TypeJ_03", .temperature = 1300, .value = 75.2772},
      {.name = "TC_TypeN_09", .temperature = -273, .value = -4.3461},
      {.name = "TC_TypeN_09", .temperature = 1400, .value = 51.1138},
      {.name = "TC_TypeR_06", .temperature = -100, .value = -0.4114},
      {.name = "TC_TypeR_06", .temperature = 1860, .value = 22.2290},
      {.name = "TC_TypeS_07", .temperature = -100, .value = -0.4332},
      {.name = "TC_TypeS_07", .temperature = 1860, .value = 19.6411},
      {.name = "TC_TypeB_05", .temperature = 1920, .value = 14.9622},
      {.name = "TC_TypeC_08", .temperature = -50, .value = -0.6703},
      {.name = "TC_TypeC_08", .temperature = 2415, .value = 37.9861},
      {.name = "TC_TypeP_12", .temperature = -50, .value = -1.4910},
      {.name = "TC_TypeP_12", .temperature = 1495, .value = 58.2987},
      {.name = "TC_TypePR_00", .temperature = 1860, .value = 22.2714},
  };
  for (const Beyond& one : values) {
    for (const CurveFile& file : CurveFiles()) {
      if (file.name == one.name) {
        const std::vector<std::int32_t> table = ReadTable(one.name);
        const double stored = table.at(static_cast<std::size_t>(one.temperature - file.base)) / 1000.0;
        EXPECT_NEAR(stored, one.value, 0.000551) << one.name << " " << one.temperature;
      }
    }
  }
}

}  // namespace
}  // namespace korva

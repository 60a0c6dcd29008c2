// The stage of a download that rewrites a transmitter's memory, with simulated transmitters.

#include "tables/eeprom_stage.h"

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "tables_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// Two digits for each byte, as they are sent.
std::string Hex(const std::string& text) { return ToHexField(text, static_cast<int>(text.size())); }

/// The commands that write a padded text and read it once more.
std::string TextWrite(const std::string& place, const std::string& second_place, std::string text) {
  text.resize(16, ' ');
  const std::string first = "DS" + place + "-8";
  const std::string second = "DS" + second_place + "-8";
  return first + " D" + Hex(text.substr(0, 8)) + " D " + second + " D" + Hex(text.substr(8)) + " D " + first +
         " D " + second + " D ";
}

TEST(EepromStageTest, WritesInItsOrder) {
  TablesBench bench("Z2WV");
  bench.host.loop.SetToday(std::chrono::year(2026) / 11 / 22);
  bench.ChooseInput("-1 - 1 V");
  bench.ChooseOutput("1-5 V");
  ASSERT_TRUE(bench.RunStage());

  const std::string before = "G99 I10 DS004D-1 D G01 I10 D G01 I11 D ";
  const std::string date =
      "G99 I10 DS0030-8 D DS0038-8 D DS004A-2 DEA07 D DS004A-2 D DS0049-1 D0B D DS0049-1 D DS0048-1 D16 D "
      "DS0048-1 D ";
  const std::string input =
      "DS004E-1 D01 D DS004E-1 D " + TextWrite("0050", "0058", "-1 - 1 V") + "DS004D-1 D01 D DS004D-1 D ";
  const std::string output = "DS004F-1 D01 D DS004F-1 D " + TextWrite("0060", "0068", "1-5 V");
  const std::string model = "DS0030-8 D DS0038-8 D " + TextWrite("0030", "0038", "Z2WV-OB-S");
  const std::string adc = "G99 I10 DS004D-1 D DS00FD-2 D DS00C1-2 D";
  EXPECT_TRUE(bench.Sent().starts_with(before + date + input + output + model + adc)) << bench.Sent();
  EXPECT_TRUE(bench.Sent().ends_with(" G01 I01 D0")) << "monitor mode";
  EXPECT_EQ(bench.progress, (std::vector<float>{20, 40, 60, 80, 100}));
  EXPECT_EQ(bench.Boxes(), Texts());
  EXPECT_EQ(bench.device.Mode(), '0');
}

// --- what stands in the memory

struct MemoryRow {
  std::string model;
  std::string input;
  std::string output;
  int input_code;
  int output_code;
  int adc;
  std::size_t output_place;
  std::string model_text;
};

struct EveryModelTest : testing::TestWithParam<MemoryRow> {};

TEST_P(EveryModelTest, TellsItsTypesAndTheDate) {
  const MemoryRow& row = GetParam();
  TablesBench bench(row.model);
  bench.host.loop.SetToday(std::chrono::year(2031) / 12 / 31);
  bench.ChooseInput(row.input);
  bench.ChooseOutput(row.output);
  ASSERT_TRUE(bench.RunStage());

  const sim::Memory& memory = bench.Memory();
  EXPECT_EQ(memory.Number(72, 1), 31);
  EXPECT_EQ(memory.Number(73, 1), 12);
  EXPECT_EQ(memory.Number(74, 2), 2031);
  EXPECT_EQ(memory.Number(77, 1), row.adc);
  EXPECT_EQ(memory.Number(78, 1), row.input_code);
  EXPECT_EQ(memory.Number(row.output_place, 1), row.output_code);
  std::string padded = row.input;
  padded.resize(16, ' ');
  EXPECT_EQ(memory.Bytes(80, 16), padded);
  padded = row.output;
  padded.resize(16, ' ');
  EXPECT_EQ(memory.Bytes(96, 16), padded);
  padded = row.model_text;
  padded.resize(16, ' ');
  EXPECT_EQ(memory.Bytes(48, 16), padded);
  EXPECT_EQ(bench.Boxes(), Texts());
}

INSTANTIATE_TEST_SUITE_P(
    Models, EveryModelTest,
    testing::Values(MemoryRow{"Z2WT", "TC N", "1-5 V", 9, 1, 0, 79, "Z2WT-NB-S"},
                    MemoryRow{"Z2WT2", "TC P (PLATINEL)", "-10-10 V", 12, 2, 0, 79, "Z2WT2-PE-S"},
                    MemoryRow{"Z8WT", "TC B (RH)", "0-5 V", 5, 1, 0, 158, "Z8WT-BF-S"},
                    MemoryRow{"Z2WR", "Cu10 (25 deg C)", "0-10 V", 7, 2, 0, 79, "Z2WR-0C-S"},
                    MemoryRow{"Z2WR2", "Pt100 (JIS'97)", "-2.5-2.5 V", 2, 1, 0, 79, "Z2WR2-5D-S"},
                    MemoryRow{"Z8WR", "Ni100", "1-5 V", 6, 2, 0, 158, "Z8WR-9B-S"},
                    MemoryRow{"Z2WV", "-500 - 500 mV", "0-10 V", 2, 2, 1, 79, "Z2WV-NC-S"},
                    MemoryRow{"Z2WV2", "-10 - 10 mV", "4-20 mA", 3, 0, 0, 79, "Z2WV2-LA-S"},
                    MemoryRow{"Z8WV", "-1 - 1 V", "0-5 V", 1, 1, 1, 158, "Z8WV-OF-S"},
                    MemoryRow{"Z2WF", "0 - 20 mA", "1-5 V", 2, 1, 1, 79, "Z2WF-UB-S"},
                    MemoryRow{"Z2WF2", "-10 - 10 mV", "-10-10 V", 4, 2, 0, 79, "Z2WF2-LE-S"},
                    MemoryRow{"Z8WF", "0 - 10 V", "1-5 V", 1, 2, 2, 158, "Z8WF-RB-S"},
                    MemoryRow{"Z2WM", "POT 0.5 - 2 k", "1-5 V", 1, 1, 0, 79, "Z2WM-YB-S"},
                    MemoryRow{"Z2WM2", "POT 10 - 50 k", "-10-10 V", 3, 2, 0, 79, "Z2WM2-VE-S"},
                    MemoryRow{"Z8WM", "POT 0.1 - 0.5 k", "0-5 V", 0, 1, 0, 158, "Z8WM-XF-S"}));

}  // namespace
}  // namespace korva::test

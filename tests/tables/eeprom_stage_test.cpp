// The stage of a download that rewrites a transmitter's memory, with simulated transmitters.

#include "tables/eeprom_stage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "core/text_utilities.h"
#include "tables_bench.h"

namespace korva::test {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

sim::Reply Answer(const std::string& text) {
  sim::Reply reply;
  reply.text = text;
  return reply;
}

sim::Reply Silence() {
  sim::Reply reply;
  reply.silent = true;
  return reply;
}

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
                    MemoryRow{"Z2WM", "POT 0.5-2 kOhm", "1-5 V", 1, 1, 0, 79, "Z2WM-YB-S"},
                    MemoryRow{"Z2WM2", "POT 10-50 kOhm", "-10-10 V", 3, 2, 0, 79, "Z2WM2-VE-S"},
                    MemoryRow{"Z8WM", "POT 0.1-0.5 kOhm", "0-5 V", 0, 1, 0, 158, "Z8WM-XF-S"}));

TEST(TypesOfTheBuildTest, HaveTextsAndTagsThatFitTheirPlaces) {
  for (const char* model : {"Z2WT", "Z2WT2", "Z8WT", "Z2WR", "Z2WR2", "Z8WR", "Z2WV", "Z2WV2", "Z8WV", "Z2WF",
                            "Z2WF2", "Z8WF", "Z2WM", "Z2WM2", "Z8WM"}) {
    const TablesBench bench(model);
    std::size_t longest_tag = 0;
    for (const char16_t* key : {u"$I10", u"$I11"}) {
      const ChoiceList list = bench.page->Def.ListOf(key);
      std::size_t tag = 0;
      for (int row = 0; row < list.Rows(); ++row) {
        EXPECT_LE(bench.host.code_page.Encode(list.Text(row)).value().size(), 16U) << ToUtf8(list.Text(row));
        EXPECT_EQ(list.Code(row).empty(), list.Text(row).empty());
        tag = std::max(tag, list.Cell(row, &ListColumns::tag).size());
      }
      longest_tag += tag;
    }
    EXPECT_LE(std::string(model).size() + 1 + longest_tag + 1 + std::string("S").size(), 16U) << model;
  }
}

/// Types for models that no file of the build defines.
const std::string kMadeUpTypes =
    "$I10\r\n1, first, 0, 1, 1, V, 34, 1, Y\r\n2, second, 0, 1, 1, V, 56, 3, Y\r\n"
    "3, third, 0, 1, 1, V, 78, , Y\r\nx, fourth, 0, 1, 1, V, 9, 0, Y\r\n, fifth, 0, 1, 1, V, 9, 0, Y\r\n"
    "4, much too long for it, 0, 1, 1, V, 9, 0, Y\r\n5, 16 characters ok, 0, 1, 1, V, 9, 0, Y\r\n"
    "6, sixth, 0, 1, 1, V, much too long for it, 0, Y\r\n"
    "$I11\r\n0, out, 0, 1, 1, Y, ZZ\r\n3, out 3, 0, 1, 1, Y, YY\r\nx, out x, 0, 1, 1, Y, XX\r\n";

struct MadeUpModelTest : testing::Test {
  MadeUpModelTest() {
    bench.Memory().PutText(48, 16, "ABC-12-X");
    bench.ChooseInput("first");
    bench.ChooseOutput("out");
  }
  /// The outputs' text in the device, so that no output bank is copied.
  void KeepOutput(TablesBench& of) { of.Memory().PutText(96, 16, ToUtf8(of.page->Item(11))); }
  TablesBench bench{"Z2WV", "ABC.def", kMadeUpTypes};
};

TEST_F(MadeUpModelTest, AModelTextAbc12XWithNewTags34AndNoneBecomesAbc34XFollowedByBlanksUpTo16Characters) {
  KeepOutput(bench);
  EXPECT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Bytes(48, 16), "ABC-34-X        ");
}

TEST_F(MadeUpModelTest, AModelOfNoPatternKeepsItsOutputCodes) {
  KeepOutput(bench);
  bench.Memory().PutNumber(79, 1, 7);
  bench.Memory().PutNumber(158, 1, 8);
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Number(79, 1), 7);
  EXPECT_EQ(bench.Memory().Number(158, 1), 8);
  EXPECT_EQ(Count(bench.Sent(), "DS0060-8"), 0) << "the output's text";
}

TEST_F(MadeUpModelTest, TheHeadIsWhatStandsBeforeTheFirstAndTheTailWhatStandsBehindTheLastEndOfAField) {
  KeepOutput(bench);
  bench.Memory().PutText(48, 16, "AB -1-2-3- Y 1");
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Bytes(48, 16), "AB-34-Y 1       ");
}

TEST_F(MadeUpModelTest, AModelTextWithoutATailIsAWriteFailureAndIsNotRewritten) {
  for (const char* text : {"ABC-12-", "ABC", ""}) {
    bench.Memory().PutText(48, 16, text);
    KeepOutput(bench);
    ASSERT_FALSE(bench.RunStage()) << text;
    EXPECT_EQ(bench.Memory().Text(48, 16), text);
    EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::EepromWriteFailed));
  }
}

TEST_F(MadeUpModelTest, AModelTextThatDoesNotFitIsAWriteFailureAndIsNotRewritten) {
  bench.ChooseInput("sixth");
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Text(48, 16), "ABC-12-X");
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::EepromWriteFailed)});
}

TEST_F(MadeUpModelTest, ATypesTextMayHave16CharactersAndNoMore) {
  KeepOutput(bench);
  bench.ChooseInput("16 characters ok");
  EXPECT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Bytes(80, 16), "16 characters ok");
  bench.ChooseInput("much too long for it");
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Bytes(80, 16), "16 characters ok");
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::EepromWriteFailed)});
}

TEST_F(MadeUpModelTest, AnotherHeadThanTheKnownOnesHasNoCurveAndNoCalibrationOfItsInput) {
  KeepOutput(bench);
  bench.Memory().PutNumber(77, 1, 2);
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(Count(bench.Sent(), "DS00C1-2"), 0);
  EXPECT_EQ(Count(bench.Sent(), "G99 I10"), 2) << "before the items, and for the stage";
}

TEST_F(MadeUpModelTest, ATypeWhoseConverterHasNoCalibrationIsAWriteFailure) {
  KeepOutput(bench);
  bench.Memory().PutText(48, 16, "Z2WV-12-X");
  bench.ChooseInput("second");
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(bench.Memory().Number(77, 1), 3);
  EXPECT_EQ(bench.progress.back(), 0.0F);
}

TEST_F(MadeUpModelTest, AnOutputWithoutACalibrationIsAWriteFailureWhenItIsNew) {
  bench.ChooseOutput("out 3");
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::EepromWriteFailed)});
}

TEST_F(MadeUpModelTest, AnOutputWithoutACalibrationPassesWhereTheDeviceHasIt) {
  bench.ChooseOutput("out 3");
  KeepOutput(bench);
  EXPECT_TRUE(bench.RunStage());
}

// --- the failures

/// A stage that fails ends in monitor mode, with its boxes.
struct FailureTest : testing::Test {
  void ExpectFailure(TablesBench& bench, const Texts& boxes) {
    EXPECT_FALSE(bench.RunStage());
    EXPECT_EQ(bench.Boxes(), boxes);
    EXPECT_TRUE(bench.Sent().ends_with("G01 I01 D0")) << bench.Sent();
    EXPECT_EQ(bench.page->Notes.Told(Notice::Stage), u"");
  }
  /// Z2WV with other types than the device has.
  TablesBench& Changed(TablesBench& bench) {
    bench.ChooseInput("-1 - 1 V");
    bench.ChooseOutput("1-5 V");
    return bench;
  }
};

TEST_F(FailureTest, AModeThatCantBeEnteredHasTheAccessBoxAndNoModeCommand) {
  for (const char* fault : {"silent=G99", "garbled=G99", "silent=I10", "garbled=I10"}) {
    TablesBench bench("Z2WV");
    Changed(bench);
    bench.Run([&] { ASSERT_TRUE(bench.Stage().ReadDevice()); });
    bench.device.AddFault(sim::ParseFault(fault));
    bench.page->TransferBar.SetValue(100);
    bool good = true;
    bench.Run([&] { good = bench.Stage().Download(); });
    EXPECT_FALSE(good) << fault;
    EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::EepromModeNotEntered)}) << fault;
    EXPECT_EQ(Count(bench.Sent(), "G01 I01"), 0) << fault;
    EXPECT_EQ(bench.page->TransferBar.Value(), 0.0F);
  }
}

TEST_F(FailureTest, TheModeIsTriedFourTimes) {
  TablesBench bench("Z2WV");
  bench.device.AddFault(sim::ParseFault("silent@1-3"));
  int type = -1;
  bench.Run([&] { type = bench.Stage().ReadAdcType(); });
  EXPECT_EQ(type, 2);
  EXPECT_EQ(bench.Sent(), "G99 G99 G99 G99 I10 DS004D-1 D");
}

TEST_F(FailureTest, AConvertersTypeThatCantBeReadHasItsBoxAlone) {
  for (const char* fault : {"silent=G99", "garbled=I10", "refused-address@3", "silent@4", "garbled@4"}) {
    TablesBench bench("Z2WV");
    bench.device.AddFault(sim::ParseFault(fault));
    int type = 0;
    bench.Run([&] { type = bench.Stage().ReadAdcType(); });
    EXPECT_EQ(type, -1) << fault;
    EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::AdcTypeUnreadable)}) << fault;
  }
}

TEST_F(FailureTest, AConvertersTypeFFCountsAsUnreadable) {
  TablesBench bench("Z2WV");
  bench.Memory().PutNumber(77, 1, 0xFF);
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::AdcTypeUnreadable)});
  EXPECT_EQ(bench.Sent(), "G99 I10 DS004D-1 D") << "the download ends";
}

TEST_F(FailureTest, AConvertersTypeThatCantBeReadInTheStageEndsItInMonitorModeWithTheBarAt0) {
  TablesBench bench("Z2WV");
  Changed(bench);
  int selections = 0;
  bench.line.instead = [&](const std::string& command, std::size_t) -> std::optional<sim::Reply> {
    selections += command == "G99" ? 1 : 0;
    const bool third = command == "DS004D-1" && selections == 3;
    return third ? std::optional(Answer("CNG")) : std::nullopt;
  };
  ExpectFailure(bench, {Shown(BoxKey::AdcTypeUnreadable)});
  EXPECT_EQ(bench.progress.back(), 0.0F);
}

TEST_F(FailureTest, AnInputTypeWithoutANumberHasBothBoxes) {
  for (const char* text : {"third", "fourth", "fifth", "unknown"}) {
    TablesBench bench("Z2WV", "ABC.def", kMadeUpTypes);
    bench.ChooseInput(text);
    bench.ChooseOutput("out");
    ExpectFailure(bench,
                  {Shown(BoxKey::EepromDataInvalid, {u"Item10"}), Shown(BoxKey::InputTypeNumberInvalid)});
    EXPECT_EQ(bench.Boxes().front(), "EEPROM: Item10のﾃﾞｰﾀが不適当です｡");
    EXPECT_EQ(bench.progress.back(), 20.0F) << "its bar is put to 0 with the download's end";
    EXPECT_EQ(Count(bench.Sent(), "DS004E-1"), 0);
  }
}

TEST_F(FailureTest, AnOutputTypeWithoutANumberHasBothBoxes) {
  for (const char* text : {"out x", "unknown"}) {
    TablesBench bench("Z2WV", "ABC.def", kMadeUpTypes);
    bench.ChooseInput("first");
    bench.ChooseOutput(text);
    ExpectFailure(bench,
                  {Shown(BoxKey::EepromDataInvalid, {u"Item11"}), Shown(BoxKey::OutputTypeNumberInvalid)});
    EXPECT_EQ(bench.Boxes().front(), "EEPROM: Item11のﾃﾞｰﾀが不適当です｡");
    EXPECT_EQ(bench.Memory().Number(78, 1), 1) << "what was written before stays";
  }
}

TEST_F(FailureTest, AModelTextThatCantBeReadIsAWriteFailureBeforeAnythingIsWritten) {
  TablesBench bench("Z2WV");
  Changed(bench);
  bench.line.instead = [](const std::string& command, std::size_t) {
    return command == "DS0038-8" ? std::optional(Answer("CNG")) : std::nullopt;
  };
  ExpectFailure(bench, {Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(Count(bench.Sent(), "DS004A-2"), 0) << "the date";
}

TEST_F(FailureTest, AModelTextThatCantBeReadAgainIsNotRewritten) {
  TablesBench bench("Z2WV");
  Changed(bench);
  int reads = 0;
  bench.line.instead = [&](const std::string& command, std::size_t) {
    reads += command == "DS0038-8" ? 1 : 0;
    return command == "DS0038-8" && reads == 2 ? std::optional(Silence()) : std::nullopt;
  };
  ExpectFailure(bench, {Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(bench.Memory().Text(48, 16), "Z2WV-PA-S");
}

struct WriteRow {
  std::string place;  ///< command that chooses it
  int stage;          ///< where the bar stood
};
struct WriteFailureTest : FailureTest, testing::WithParamInterface<WriteRow> {};

TEST_P(WriteFailureTest, ShowsItsBoxOnceAndPutsTheBarTo0) {
  TablesBench bench("Z2WV");
  Changed(bench);
  bench.ChooseInput("-50 - 50 mV");
  bench.line.instead = [](const std::string& command, std::size_t) {
    return command == GetParam().place ? std::optional(Answer("CNG")) : std::nullopt;
  };
  if (GetParam().place == "DS004D-1") {  // is read before as well
    int uses = 0;
    bench.line.instead = [uses](const std::string& command, std::size_t) mutable {
      uses += command == "DS004D-1" ? 1 : 0;
      return command == "DS004D-1" && uses == 2 ? std::optional(Answer("CNG")) : std::nullopt;
    };
  }
  ExpectFailure(bench, {Shown(BoxKey::EepromWriteFailed)});
  ASSERT_FALSE(bench.progress.empty() && GetParam().stage > 0);
  if (GetParam().stage > 0) {
    ASSERT_GE(bench.progress.size(), 2U);
    EXPECT_EQ(bench.progress.at(bench.progress.size() - 2), static_cast<float>(GetParam().stage));
    EXPECT_EQ(bench.progress.back(), 0.0F);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Places, WriteFailureTest,
    testing::Values(WriteRow{"DS004A-2", 0}, WriteRow{"DS0049-1", 0}, WriteRow{"DS0048-1", 0},
                    WriteRow{"DS004E-1", 20}, WriteRow{"DS0050-8", 20}, WriteRow{"DS0058-8", 20},
                    WriteRow{"DS004D-1", 20}, WriteRow{"DS004F-1", 40}, WriteRow{"DS0060-8", 40},
                    WriteRow{"DS0068-8", 40}, WriteRow{"DS00ED-2", 80}, WriteRow{"DS00C1-2", 80},
                    WriteRow{"DS00CB-3", 80}, WriteRow{"DS00D4-3", 80}, WriteRow{"DS0185-2", 80},
                    WriteRow{"DS0161-2", 80}, WriteRow{"DS0172-3", 80}));

TEST_F(FailureTest, AReadBackThatDiffersFromWhatWasWrittenIsAWriteFailure) {
  // The second read behind a write, which the access does not compare by itself.
  TablesBench bench("Z2WV");
  Changed(bench);
  int reads = 0;
  bench.line.instead = [&, chosen = false](const std::string& command, std::size_t) mutable {
    if (command.starts_with("DS")) {
      chosen = command == "DS0048-1";
    }
    reads += chosen && command == "D" ? 1 : 0;
    return chosen && command == "D" && reads == 2 ? std::optional(Answer("D07")) : std::nullopt;
  };
  ExpectFailure(bench, {Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(bench.Memory().Number(72, 1), 29) << "a date that was stamped stays stamped";
}

TEST_F(FailureTest, TheMonitorModeBehindAWrongAnswerComesAfterTheLineWasDrained) {
  TablesBench bench("Z2WV");
  Changed(bench);
  bench.device.AddFault(sim::ParseFault("garbled=DS004A-2"));
  ExpectFailure(bench, {Shown(BoxKey::EepromWriteFailed)});
  const auto& commands = bench.line.Commands();
  const auto mode = commands.size() - 3;
  EXPECT_EQ(commands.at(mode - 1).text, "DS004A-2");
  EXPECT_GE(commands.at(mode).received - commands.at(mode - 1).received, std::chrono::seconds(1));
}

// --- calibration

/// A bank as it is told: width, source of each type, active place; then width, places of the two values,
/// place of their difference.
struct TestBank {
  struct Row {
    std::size_t width;
    std::array<std::size_t, 3> sources;
    std::size_t active;
  };
  struct Difference {
    std::size_t width;
    std::size_t first;
    std::size_t second;
    std::size_t active;
  };
  std::vector<Row> rows;
  std::vector<Difference> differences;
};

const TestBank kInputBank = {.rows = {{2, {237, 253, 269}, 193},
                                      {2, {239, 255, 271}, 195},
                                      {3, {241, 257, 273}, 197},
                                      {3, {244, 260, 276}, 200},
                                      {3, {247, 263, 279}, 206},
                                      {3, {250, 266, 282}, 209}},
                             .differences = {{3, 197, 200, 203}, {3, 206, 209, 212}}};
const TestBank kBankA = {.rows = {{2, {373, 389, 405}, 349},
                                  {2, {375, 391, 407}, 351},
                                  {3, {377, 393, 409}, 355},
                                  {3, {380, 396, 412}, 358},
                                  {3, {383, 399, 415}, 364},
                                  {3, {386, 402, 418}, 367}},
                         .differences = {{2, 349, 351, 353}, {3, 355, 358, 361}, {3, 364, 367, 370}}};
const TestBank kBankB = {.rows = {{2, {440, 456, 472}, 416},
                                  {2, {442, 458, 474}, 418},
                                  {3, {444, 460, 476}, 422},
                                  {3, {447, 463, 479}, 425},
                                  {3, {450, 466, 482}, 431},
                                  {3, {453, 469, 485}, 434}},
                         .differences = {{2, 416, 418, 420}, {3, 422, 425, 428}, {3, 431, 434, 437}}};

/// Fills the memory with bytes that tell their place.
void Fill(sim::Memory& memory) {
  for (std::size_t at = 160; at < 500; ++at) {
    memory.PutNumber(at, 1, static_cast<std::int32_t>(at * 37 % 251));
  }
}

/// What the memory must hold after the copy of a type: `before` with the active places rewritten.
sim::Memory Copied(const sim::Memory& before, const TestBank& bank, std::size_t type) {
  sim::Memory after = before;
  for (const TestBank::Row& row : bank.rows) {
    after.Put(row.active, before.Bytes(row.sources.at(type), row.width));
  }
  for (const TestBank::Difference& difference : bank.differences) {
    const std::size_t width = difference.width == 2 ? 2 : 3;
    after.PutNumber(difference.active, difference.width,
                    after.Number(difference.first, width) - after.Number(difference.second, width));
  }
  return after;
}

struct BankTest : testing::Test {
  void ExpectCopied(TablesBench& bench, const TestBank& bank, std::size_t type,
                    const std::function<bool()>& copy) {
    Fill(bench.Memory());
    const sim::Memory expected = Copied(bench.Memory(), bank, type);
    bool good = false;
    bench.Run([&] {
      bench.page->Line().SendCommandUntrimmed(u"G99\r");
      bench.page->Line().SendCommandUntrimmed(u"I10\r");
      good = copy();
    });
    EXPECT_TRUE(good);
    EXPECT_EQ(bench.Memory().Bytes(160, 340), expected.Bytes(160, 340)) << type;
  }
};

TEST_F(BankTest, EveryTypeOfTheConverterHasItsBank) {
  TablesBench bench("Z2WV");
  for (const int type : {0, 1, 2}) {
    ExpectCopied(bench, kInputBank, static_cast<std::size_t>(type),
                 [&] { return bench.Stage().CopyAdcBank(type); });
  }
}

TEST_F(BankTest, EveryTypeOfTheOutputHasItsBankInTheModelsLayout) {
  for (const char* model : {"Z2WT", "Z2WT2", "Z8WT", "Z2WV", "Z2WV2", "Z8WV", "Z2WF", "Z2WF2", "Z8WF"}) {
    TablesBench bench(model);
    for (const int type : {0, 1, 2}) {
      ExpectCopied(bench, kBankA, static_cast<std::size_t>(type),
                   [&] { return bench.Stage().CopyOutputBank(type); });
    }
  }
}

TEST_F(BankTest, AModelThatMatchesWrOrWmUsesLayoutBAndAddresses416To437) {
  for (const char* model : {"Z2WR", "Z2WR2", "Z8WR", "Z2WM", "Z2WM2", "Z8WM"}) {
    TablesBench bench(model);
    for (const int type : {0, 1, 2}) {
      ExpectCopied(bench, kBankB, static_cast<std::size_t>(type),
                   [&] { return bench.Stage().CopyOutputBank(type); });
    }
  }
}

TEST_F(BankTest, AnotherTypeThan012CopiesNothing) {
  TablesBench bench("Z2WV");
  for (const int type : {3, -1, 99}) {
    bool copied = true;
    bench.Run([&] { copied = bench.Stage().CopyAdcBank(type) || bench.Stage().CopyOutputBank(type); });
    EXPECT_FALSE(copied) << type;
  }
  EXPECT_EQ(bench.Sent(), "");
}

TEST_F(BankTest, ANegativeDifferenceInTwoBytesIsLegal) {
  TablesBench bench("Z2WV");
  bench.Memory().PutNumber(373, 2, 100);
  bench.Memory().PutNumber(375, 2, 65535);
  bool copied = false;
  bench.Run([&] { copied = bench.Stage().ReadAdcType() == 2 && bench.Stage().CopyOutputBank(0); });
  EXPECT_TRUE(copied);
  EXPECT_EQ(bench.Memory().Bytes(353, 2), "\x65\x00"s) << "100 - 65535 = -65435, which is 0065 in two bytes";
  EXPECT_EQ(bench.Memory().Number(351, 2), -1);
}

TEST_F(BankTest, AValueOfMinus1IsCopiedAndAReadThatFailsIsNotTakenForIt) {
  TablesBench bench("Z2WV");
  bench.Memory().PutNumber(241, 3, -1);
  bool copied = false;
  bench.Run([&] { copied = bench.Stage().ReadAdcType() == 2 && bench.Stage().CopyAdcBank(0); });
  EXPECT_TRUE(copied);
  EXPECT_EQ(bench.Memory().Number(197, 3), -1);

  bench.Memory().PutNumber(197, 3, 5);
  bench.device.AddFault(sim::ParseFault("refused=DS00F1-3"));
  bench.Run([&] { copied = bench.Stage().CopyAdcBank(0); });
  EXPECT_FALSE(copied);
  EXPECT_EQ(bench.Memory().Number(197, 3), 5) << "nothing was written";
}

// --- what follows the types

TEST(FollowTest, ADownloadWithUnchangedAdcTypeCopiesNoInputBankAndAnUnchangedItem11NoOutputBank) {
  TablesBench bench("Z2WV");
  bench.ChooseInput("-10 - 10 V");
  bench.ChooseOutput("4-20 mA");
  Fill(bench.Memory());
  const std::string before = bench.Memory().Bytes(160, 340);
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Bytes(160, 340), before);
}

TEST(FollowTest, AnotherAdcTypeCopiesItsBankOfEveryModelThatHasOne) {
  for (const char* model : {"Z2WV", "Z2WV2", "Z8WV", "Z2WF", "Z2WF2", "Z8WF"}) {
    TablesBench bench(model);
    bench.ChooseOutput(ToUtf8(bench.page->Def.ListOf(u"$I11").Text(0)));
    bench.ChooseInput(ToUtf8(bench.page->Def.ListOf(u"$I10").Text(3)));
    if (std::string(model) == "Z8WV") {
      bench.ChooseInput("-50 - 50 mV");
    }
    Fill(bench.Memory());
    const std::string before = bench.Memory().Bytes(349, 91);
    ASSERT_TRUE(bench.RunStage()) << model;
    const std::int32_t adc = bench.Memory().Number(77, 1);
    ASSERT_NE(adc, 2) << model << " has another type than at the start";
    EXPECT_EQ(bench.Memory().Bytes(193, 2), bench.Memory().Bytes(237 + 16 * static_cast<std::size_t>(adc), 2))
        << model;
    EXPECT_EQ(bench.Memory().Bytes(349, 91), before) << "no output bank";
  }
}

TEST(FollowTest, ModelsWithAPotentiometerHaveNoBankOfTheConverter) {
  TablesBench bench("Z2WM", {},
                    "$I10\r\n0, one, 0, 1, 1, V, X, 0, Y\r\n1, two, 0, 1, 1, V, Y, 1, Y\r\n$I11\r\n0, 4-20 "
                    "mA, 4, 20, 4, Y, A\r\n");
  bench.ChooseInput("two");
  bench.ChooseOutput("4-20 mA");
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Number(77, 1), 1);
  EXPECT_EQ(Count(bench.Sent(), "DS00C1-2"), 0);
}

TEST(FollowTest, AnotherOutputCopiesItsBankAndOnTheThirdLineThatOfType2) {
  struct OutputRow {
    const char* model;
    const char* output;
    std::size_t active;
    std::size_t source;
  };
  for (const OutputRow& row : {OutputRow{"Z2WV", "1-5 V", 349, 389}, OutputRow{"Z2WV", "0-10 V", 349, 405},
                               OutputRow{"Z2WM", "1-5 V", 416, 456}, OutputRow{"Z8WV", "0-5 V", 349, 405},
                               OutputRow{"Z8WM", "0-5 V", 416, 472}}) {
    TablesBench bench(row.model);
    bench.ChooseInput(ToUtf8(bench.page->Def.ListOf(u"$I10").Text(0)));
    bench.ChooseOutput(row.output);
    Fill(bench.Memory());
    ASSERT_TRUE(bench.RunStage()) << row.model;
    EXPECT_EQ(bench.Memory().Bytes(row.active, 2), bench.Memory().Bytes(row.source, 2))
        << row.model << row.output;
  }
}

struct CurveRow {
  const char* model;
  const char* other;  ///< type than the first one
  int number;
  std::string file;
};
struct CurveOfTypeTest : testing::TestWithParam<CurveRow> {};

TEST_P(CurveOfTypeTest, IsWrittenWhenTheTypeChanges) {
  TablesBench bench(GetParam().model);
  bench.ChooseInput(GetParam().other);
  bench.ChooseOutput(ToUtf8(bench.page->Def.ListOf(u"$I11").Text(0)));
  bench.Memory().PutNumber(513, 1, GetParam().number);  // though it may already be right
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Number(513, 1), GetParam().number);
  const std::string file = BytesOfHome("system/z2Kv/" + GetParam().file);
  EXPECT_EQ(bench.Memory().Bytes(8189, 3), file.substr(file.size() - 4, 3));
  EXPECT_EQ(bench.Memory().Number(520, 2), 8192 - 3 * static_cast<int>(file.size() / 4));
  EXPECT_EQ(bench.progress.back(), 100.0F);
  EXPECT_EQ(bench.device.Mode(), '0');
}

INSTANTIATE_TEST_SUITE_P(Models, CurveOfTypeTest,
                         testing::Values(CurveRow{"Z2WT", "TC T (CC)", 4, "TC_TypeT_04.tct"},
                                         CurveRow{"Z2WT2", "TC U", 10, "TC_TypeU_10.tct"},
                                         CurveRow{"Z8WT", "TC K (CA)", 1, "TC_TypeK_01.tct"},
                                         CurveRow{"Z2WR", "Ni100", 6, "RTD06_Ni100.tct"},
                                         CurveRow{"Z2WR2", "Ni508.4", 4, "RTD04_Ni508.tct"},
                                         CurveRow{"Z8WR", "Cu10 (25 deg C)", 7, "RTD07_Cu10.tct"}));

struct SameTypeTest : testing::Test {
  SameTypeTest() {
    bench.ChooseInput("JPt100 (JIS'89)");
    bench.ChooseOutput("4-20 mA");
  }
  TablesBench bench{"Z2WR"};
};

TEST_F(SameTypeTest, ACurveThatTheDeviceHoldsIsNotWrittenAgain) {
  ASSERT_TRUE(bench.RunStage());
  EXPECT_TRUE(bench.Sent().ends_with(" G01 I10 D G99 I10 DS0201-1 D G01 I01 D0")) << bench.Sent();
}

TEST_F(SameTypeTest, ACurveThatBrokeOffIsWrittenAnew) {
  bench.Memory().PutNumber(513, 1, 99);
  bench.Memory().Put(8189, "\x11\x22\x33");
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Number(513, 1), 0);
  const std::string file = BytesOfHome("system/z2Kv/RTD00_JPt100_89.tct");
  EXPECT_EQ(bench.Memory().Bytes(8189, 3), file.substr(file.size() - 4, 3));
}

TEST_F(SameTypeTest, ATypeOfTheTableThatCantBeReadIsAWriteFailure) {
  bench.device.AddFault(sim::ParseFault("refused=DS0201-1"));
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(bench.Memory().Number(513, 1), 0);
}

TEST_F(SameTypeTest, ACurveThatFailsIsAWriteFailureAndLeaves99) {
  bench.Memory().PutNumber(513, 1, 99);
  bench.device.AddFault(sim::ParseFault("wrong-read-back@500"));
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(bench.Memory().Number(513, 1), 99);
  EXPECT_EQ(bench.progress.back(), 0.0F);
  EXPECT_TRUE(bench.Sent().ends_with("G01 I01 D0"));
}

TEST_F(SameTypeTest, ATypeWithoutACurveIsAWriteFailure) {
  TablesBench other("Z2WT", "Z2WT.def",
                    "$I10\r\n13, none, 0, 1, 1, V, N, 0, Y\r\n$I11\r\n0, 4-20 mA, 4, 20, 4, Y, A\r\n");
  other.ChooseInput("none");
  other.ChooseOutput("4-20 mA");
  EXPECT_EQ(other.Stage().MissingCurve(), u"") << "there is no file that could be missing";
  EXPECT_FALSE(other.RunStage());
  EXPECT_EQ(other.Boxes(), Texts{Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(other.Memory().Number(513, 1), 0);
}

// --- behind a stage that broke off

struct BrokenStageTest : testing::Test {
  void Choose(const char* input, const char* output) {
    bench.ChooseInput(input);
    bench.ChooseOutput(output);
  }
  /// A stage with another calibration for input and output, which breaks off at this exchange.
  void BreakAt(const std::string& place) {
    Choose("-1 - 1 V", "1-5 V");
    bench.device.AddFault(sim::ParseFault("refused=" + place));
    EXPECT_FALSE(bench.RunStage());
    bench.device.ClearFaults();
  }
  String Told() const { return bench.page->Notes.Told(Notice::Unfinished); }

  TablesBench bench{"Z2WV"};
  const String input_bank = CaptionText(TextKey::InputBankUnfinished);
  const String output_bank = CaptionText(TextKey::OutputBankUnfinished);
};

TEST_F(BrokenStageTest, WhatItLeftUndoneIsToldByPlace) {
  const std::pair<const char*, String> places[] = {{"DS0048-1", u""},  // the date
                                                   {"DS0050-8", input_bank},
                                                   {"DS0060-8", input_bank + u"\n" + output_bank},
                                                   {"DS00FD-2", input_bank + u"\n" + output_bank},
                                                   {"DS00D4-3", input_bank + u"\n" + output_bank},
                                                   {"DS0185-2", output_bank},
                                                   {"DS0172-3", output_bank}};
  for (const auto& [place, told] : places) {
    BrokenStageTest_WhatItLeftUndoneIsToldByPlace_Test other;
    other.BreakAt(place);
    EXPECT_EQ(ToUtf8(other.Told()), ToUtf8(told)) << place;
  }
}

TEST_F(BrokenStageTest, TheNextOneFindsNoChangeAndCopiesNothingAndItIsStillTold) {
  BreakAt("DS00FD-2");
  EXPECT_TRUE(bench.RunStage());
  EXPECT_EQ(Count(bench.Sent(), "DS00C1"), 0);
  EXPECT_EQ(Count(bench.Sent(), "DS015D"), 0);
  EXPECT_EQ(Told(), input_bank + u"\n" + output_bank);
}

TEST_F(BrokenStageTest, OtherTypesAndThenTheChosenOnesBringAllThatWasLeftUndone) {
  TablesBench whole("Z2WV");
  whole.ChooseInput("-1 - 1 V");
  whole.ChooseOutput("1-5 V");
  ASSERT_TRUE(whole.RunStage());
  BreakAt("DS00FD-2");
  Choose("-10 - 10 V", "4-20 mA");
  EXPECT_TRUE(bench.RunStage());
  EXPECT_EQ(Told(), u"");
  Choose("-1 - 1 V", "1-5 V");
  EXPECT_TRUE(bench.RunStage());
  EXPECT_TRUE(bench.Memory().Bytes(0, 8192) == whole.Memory().Bytes(0, 8192));
}

TEST_F(BrokenStageTest, ATypeThatWasNotTakenAfterAllIsToldUntilTheFormerOneIsDownloaded) {
  BreakAt("DS004F-1");
  EXPECT_EQ(Told(), input_bank + u"\n" + output_bank);
  ASSERT_EQ(bench.Memory().Number(79, 1), 0) << "still the former output";
  Choose("-10 - 10 V", "4-20 mA");
  EXPECT_TRUE(bench.RunStage());
  EXPECT_EQ(Told(), u"");
}

TEST_F(BrokenStageTest, AnotherModelIsNotToldWhatIsUndoneInThisOne) {
  BreakAt("DS00FD-2");
  bench.page->DefFile = u"Z2WV2.def";
  bench.Stage().DefinitionRead();
  EXPECT_EQ(Told(), u"");
}

TEST_F(BrokenStageTest, TheSameModelChosenAgainIsStillTold) {
  BreakAt("DS00FD-2");
  bench.Stage().PageCleared();
  bench.Stage().DefinitionRead();
  EXPECT_EQ(Told(), input_bank + u"\n" + output_bank);
}

TEST(BrokenModelTextTest, WhatItShouldBeIsToldForTheNextStageTakesItsFieldsFromTheHalfOne) {
  TablesBench bench("Z2WT");
  const auto told = [&] { return ToUtf8(bench.page->Notes.Told(Notice::Unfinished)); };
  const std::string output_bank = ToUtf8(CaptionText(TextKey::OutputBankUnfinished));
  const std::string should_be = ToUtf8(Filled(CaptionText(TextKey::ModelTextUnfinished), {u"Z2WT-PRB-S"}));
  ASSERT_TRUE(bench.device.Set("01", "10", "TC T (CC)"));
  bench.ChooseInput("TC PR");
  bench.ChooseOutput("1-5 V");
  int written = 0;
  bench.line.instead = [&](const std::string& command, std::size_t) -> std::optional<sim::Reply> {
    written += command == "D5A3257542D505242" ? 1 : 0;  // Z2WT-PRB
    return written > 0 && command == "DS0038-8" ? std::optional(sim::Reply{.text = "CNG"}) : std::nullopt;
  };
  EXPECT_FALSE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Bytes(48, 16), "Z2WT-PRBS       ");
  EXPECT_EQ(told(), output_bank + "\n" + should_be);
  bench.line.instead = nullptr;
  EXPECT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.Memory().Bytes(48, 16), "Z2WT-PRB-PRBS   ");
  EXPECT_EQ(told(), output_bank + "\n" + should_be);
  bench.Memory().PutText(48, 16, "Z2WT-PRB-S");
  EXPECT_TRUE(bench.RunStage());
  EXPECT_EQ(told(), output_bank);
}

// --- before the items

TEST(MissingCurveTest, TellsTheFileThatTheChosenTypeNeedsWhenItCantBeRead) {
  TablesBench bench("Z2WT");
  bench.ChooseInput("TC E (CRC)");
  EXPECT_EQ(bench.Stage().MissingCurve(), u"");
  bench.files.Remove(u"/korva/system/z2Kv/TC_TypeE_02.tct");
  EXPECT_EQ(bench.Stage().MissingCurve(), u"TC_TypeE_02.tct");
  bench.ChooseInput("TC K (CA)");
  EXPECT_EQ(bench.Stage().MissingCurve(), u"");
  bench.files.FailReads(MemoryFiles::Fault::BadDisk);
  EXPECT_EQ(bench.Stage().MissingCurve(), u"TC_TypeK_01.tct");
  bench.ChooseInput("unknown");
  EXPECT_EQ(bench.Stage().MissingCurve(), u"") << "another box tells that";
}

TEST(MissingCurveTest, OnlySensorsNeedOne) {
  for (const char* model : {"Z2WV", "Z2WF2", "Z8WM"}) {
    TablesBench bench(model);
    bench.ChooseInput(ToUtf8(bench.page->Def.ListOf(u"$I10").Text(0)));
    bench.files.FailReads(MemoryFiles::Fault::BadDisk);
    EXPECT_EQ(bench.Stage().MissingCurve(), u"") << model;
  }
  for (const char* model : {"Z2WR", "Z2WR2", "Z8WR"}) {
    TablesBench bench(model);
    bench.ChooseInput("Pt1000");
    bench.files.FailReads(MemoryFiles::Fault::BadDisk);
    EXPECT_EQ(bench.Stage().MissingCurve(), u"RTD05_Pt1000.tct") << model;
  }
}

TEST(ReadDeviceTest, AnotherOutputThanTheDevicesIsNoticedAndTheSameOneIsNot) {
  TablesBench bench("Z2WV");
  bench.ChooseOutput("1-5 V");
  bench.Run([&] { EXPECT_TRUE(bench.Stage().ReadDevice()); });
  EXPECT_TRUE(bench.Stage().OutputTypeChanged);
  bench.ChooseOutput(" 4-20 mA ");
  bench.Run([&] { EXPECT_TRUE(bench.Stage().ReadDevice()); });
  EXPECT_FALSE(bench.Stage().OutputTypeChanged)
      << "each download begins anew, and blanks around do not count";
  EXPECT_EQ(bench.Sent(), "G99 I10 DS004D-1 D G01 I10 D G01 I11 D G99 I10 DS004D-1 D G01 I10 D G01 I11 D");
}

TEST(ReadDeviceTest, AnInputTypeThatCantBeReadEndsTheDownloadAndTheStatusAreaTellsIt) {
  TablesBench bench("Z2WV");
  bench.Run([&] { EXPECT_EQ(bench.Stage().ReadAdcType(), 2); });
  bench.device.AddFault(sim::ParseFault("silent@9-"));
  bench.line.ForgetCommands();
  bench.Run([&] { EXPECT_FALSE(bench.Stage().ReadDevice()); });
  EXPECT_EQ(bench.Sent(), "G99 I10 DS004D-1 D G01 G01 G01 G01");
  EXPECT_EQ(bench.Boxes(), Texts());
  EXPECT_EQ(bench.page->Notes.Told(Notice::Stage), CaptionText(TextKey::InputTypeUnread));
  bench.device.ClearFaults();
  bench.Run([&] { EXPECT_TRUE(bench.Stage().ReadDevice()); });
  EXPECT_EQ(bench.page->Notes.Told(Notice::Stage), u"") << "and is withdrawn with the next one";
}

// --- what the user sees

TEST(StageNoticeTest, TheStatusAreaTellsEachStageAndThenNothing) {
  TablesBench bench("Z2WV");
  bench.ChooseInput("-1 - 1 V");
  bench.ChooseOutput("1-5 V");
  ASSERT_TRUE(bench.RunStage());
  EXPECT_EQ(bench.notices, (Texts{"EEPROM: ﾀﾞｳﾝﾛｰﾄﾞ日付を書き込んでいます",
                                  "EEPROM: 入力ﾀｲﾌﾟを書き込んでいます", "EEPROM: 出力ﾀｲﾌﾟを書き込んでいます",
                                  "EEPROM: 形式を書き込んでいます", "EEPROM: 校正値を書き込んでいます", ""}));
}

TEST(StageNoticeTest, TheTimeLeftIsThatOfTheBlocksToCome) {
  TablesBench bench("Z2WR");
  StageNotice notice(*bench.page);
  bench.host.loop.RunFor(std::chrono::seconds(10));
  notice.BeginBlocks(TextKey::StageLinearizer, 100);
  bench.host.loop.RunFor(std::chrono::seconds(3));
  notice.BlockDone();
  EXPECT_TRUE(bench.notices.back().ends_with(": 1/100 ﾌﾞﾛｯｸ、残り 4 分 57 秒")) << bench.notices.back();
  bench.host.loop.RunFor(std::chrono::seconds(1));
  notice.BlockDone();
  EXPECT_TRUE(bench.notices.back().ends_with(": 2/100 ﾌﾞﾛｯｸ、残り 3 分 16 秒")) << bench.notices.back();
  notice.End();
  EXPECT_FALSE(bench.page->Notes.Visible());
}

}  // namespace
}  // namespace korva::test

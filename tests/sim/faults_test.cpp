#include "sim/faults.h"

#include <gtest/gtest.h>

#include <functional>

#include "model_device.h"

namespace korva::sim {
namespace {

/// A device in programming mode with zero selected, struck from then on.
Device StruckDevice(const std::string& fault) {
  auto device = SampleDevice("QHW.def");
  EnterProgramming(device);
  Read(device, "01", "14");
  device.AddFault(ParseFault(fault));
  return device;
}

TEST(FaultsTest, EveryFaultHasANameThatItsRuleIsReadFrom) {
  for (const auto& info : AllFaults()) {
    EXPECT_EQ(ParseFault(info.name).fault, info.fault) << info.name;
    EXPECT_FALSE(info.what.empty());
  }
  EXPECT_EQ(AllFaults().size(), static_cast<std::size_t>(Fault::NotKept) + 1);
}

TEST(FaultsTest, SilentLosesTheCommand) {
  auto device = StruckDevice("silent");
  EXPECT_TRUE(device.Answer("D5").silent);
  EXPECT_EQ(device.Value("01", "14"), "-200");
}

TEST(FaultsTest, SecondTryOnlyLosesEachCommandTextOnce) {
  auto device = StruckDevice("second-try-only");
  EXPECT_TRUE(device.Answer("G01").silent);
  EXPECT_EQ(device.Answer("G01").text, "COK");
  EXPECT_TRUE(device.Answer("I15").silent);
  EXPECT_EQ(device.Answer("G01").text, "COK");
  EXPECT_EQ(device.Answer("I15").text, "DSPAN:1200");
}

TEST(FaultsTest, LateActsAtOnceAndAnswersAfterAConfiguratorsPatience) {
  auto device = StruckDevice("late");
  const auto reply = device.Answer("D5");
  EXPECT_EQ(reply.latency, std::chrono::milliseconds(3500));
  EXPECT_EQ(reply.text, "DZERO:5");
}

TEST(FaultsTest, RefusedAndNotUsableAreNotCarriedOut) {
  auto refused = StruckDevice("refused");
  EXPECT_EQ(refused.Answer("D5").text, "CNG");
  EXPECT_EQ(refused.Value("01", "14"), "-200");
  auto not_usable = StruckDevice("not-usable");
  EXPECT_EQ(not_usable.Answer("D5").text, "CNU");
  EXPECT_EQ(not_usable.Value("01", "14"), "-200");
}

TEST(FaultsTest, LineFaultsShapeTheReply) {
  auto device = StruckDevice("byte-by-byte");
  EXPECT_TRUE(device.Answer("G01").byte_by_byte);
  device = StruckDevice("doubled");
  EXPECT_TRUE(device.Answer("G01").doubled);
  device = StruckDevice("two-line-ends");
  EXPECT_EQ(device.Answer("G01").line_ends, 2);
  EXPECT_FALSE(device.Answer("G01").late_second_line_end);
  device = StruckDevice("late-second-line-end");
  EXPECT_EQ(device.Answer("G01").line_ends, 2);
  EXPECT_TRUE(device.Answer("G01").late_second_line_end);
}

TEST(FaultsTest, ContentFaultsSpoilTheText) {
  auto device = StruckDevice("noise");
  EXPECT_EQ(device.Answer("G01").text,
            "\xFF"
            "C\x01\x80\xFEOK");
  device = StruckDevice("garbled");
  EXPECT_EQ(device.Answer("I15").text, "??????????");
  EXPECT_EQ(device.Answer("I15").line_ends, 1);
  device = StruckDevice("half");
  EXPECT_EQ(device.Answer("I15").text, "DSPAN");
  EXPECT_EQ(device.Answer("I15").line_ends, 0);
  device = StruckDevice("empty");
  EXPECT_EQ(device.Answer("I15").text, "");
  EXPECT_EQ(device.Answer("I15").line_ends, 1);
  EXPECT_FALSE(device.Answer("I15").silent);
}

TEST(FaultsTest, WrongEchoShowsAnotherValueThanTheOneHeld) {
  auto device = StruckDevice("wrong-echo");
  EXPECT_EQ(device.Answer("D5.25").text, "DZERO:6.25");
  EXPECT_EQ(device.Value("01", "14"), "5.25");
  EXPECT_EQ(device.Answer("Dabc").text, "CNG") << "a refusal is no echo";
  EXPECT_EQ(Read(device, "01", "14"), "DZERO:5.25") << "reading is not struck";
  EXPECT_EQ(Write(device, "01", "02", "FIC"), "DTG:XIC       ");
  EXPECT_EQ(Write(device, "01", "02", "          "), "DTG:X         ");
  EXPECT_EQ(Write(device, "01", "21", "1"), "DX");
  EXPECT_EQ(Write(device, "01", "60", "5"), "DX(01):6.00");
}

TEST(FaultsTest, NotKeptAnswersAWriteWellAndChangesNothing) {
  auto device = StruckDevice("not-kept=D5.25");
  EXPECT_EQ(device.Answer("D5.25").text, "DZERO:5.25");
  EXPECT_EQ(device.Value("01", "14"), "-200");
  EXPECT_EQ(device.Answer("D6").text, "DZERO:6");
  EXPECT_EQ(device.Value("01", "14"), "6") << "another command is not struck";

  auto choosing = StruckDevice("not-kept");
  const auto before = choosing.Value("01", "21");
  EXPECT_NE(Write(choosing, "01", "21", "1"), "D" + before);
  EXPECT_EQ(choosing.Value("01", "21"), before);
  EXPECT_EQ(Write(choosing, "01", "02", "FIC"), "DTG:FIC       ");
  EXPECT_EQ(Read(choosing, "01", "02"), "DTG:TAG-1     ");
}

// --- every fault on the commands of live values and of a forced output

constexpr std::string_view kNoise = "\x01\x80\xFE";

/// A command, and what each kind of fault makes of its reply.
struct StruckCommand {
  std::string line;
  std::string good;        ///< the reply without a fault
  std::string noisy;       ///< with noise in it
  std::string half;        ///< its first half
  std::string wrong_echo;  ///< with another value
  Device (*make)() = [] { return SampleDevice("QHW.def"); };
  std::string refused = "CNG";
  std::string not_usable = "CNU";
  bool keeps = false;  ///< it gives an item a value that stays
};

struct FaultOnCommand {
  Fault fault = Fault::Silent;
  bool carried_out = false;
  std::string text;
  bool silent = false;
  int line_ends = 1;
};

FaultOnCommand Expected(Fault fault, const StruckCommand& command) {
  switch (fault) {
    case Fault::Silent:
    case Fault::SecondTryOnly:
      return {.fault = fault, .carried_out = false, .text = "", .silent = true};
    case Fault::Refused:
      return {.fault = fault, .carried_out = false, .text = command.refused};
    case Fault::NotUsable:
      return {.fault = fault, .carried_out = false, .text = command.not_usable};
    case Fault::Noise:
      return {.fault = fault, .carried_out = true, .text = command.noisy};
    case Fault::Garbled:
      return {.fault = fault, .carried_out = true, .text = std::string(command.good.size(), '?')};
    case Fault::Half:
      return {.fault = fault, .carried_out = true, .text = command.half, .line_ends = 0};
    case Fault::Empty:
      return {.fault = fault, .carried_out = true, .text = ""};
    case Fault::WrongEcho:
      return {.fault = fault, .carried_out = true, .text = command.wrong_echo};
    case Fault::NotKept:
      return {.fault = fault, .carried_out = !command.keeps, .text = command.good};
    case Fault::TwoLineEnds:
    case Fault::LateSecondLineEnd:
      return {.fault = fault, .carried_out = true, .text = command.good, .line_ends = 2};
    default:
      return {.fault = fault, .carried_out = true, .text = command.good};
  }
}

/// Strikes the command with each fault; `carried_out` tells whether the device has done what it says, and
/// `prepare` selects its item. A second try without the fault does it in any case.
void StrikeWithAllFaults(const StruckCommand& command, const std::function<void(Device&)>& prepare,
                         const std::function<bool(Device&)>& carried_out) {
  for (const auto& info : AllFaults()) {
    SCOPED_TRACE(info.name);
    auto device = command.make();
    prepare(device);
    const int number = device.Exchanges() + 1;
    device.AddFault(ParseFault(std::string(info.name) + "@" + std::to_string(number)));
    const Reply reply = device.Answer(command.line);
    const FaultOnCommand expected = Expected(info.fault, command);
    EXPECT_EQ(reply.silent, expected.silent);
    if (!reply.silent) {
      EXPECT_EQ(reply.text, expected.text);
      EXPECT_EQ(reply.line_ends, expected.line_ends);
      EXPECT_EQ(reply.byte_by_byte, info.fault == Fault::ByteByByte);
      EXPECT_EQ(reply.doubled, info.fault == Fault::Doubled);
      EXPECT_EQ(reply.late_second_line_end, info.fault == Fault::LateSecondLineEnd);
      EXPECT_EQ(reply.latency, std::chrono::milliseconds(info.fault == Fault::Late ? 3500 : 10));
    }
    EXPECT_EQ(carried_out(device), expected.carried_out);
    if (!expected.carried_out) {
      EXPECT_EQ(device.Answer(command.line).text, command.good);
      EXPECT_TRUE(carried_out(device));
    }
  }
}

TEST(FaultsTest, EachDoesWhatItsNameSaysOnALiveValue) {
  StrikeWithAllFaults(
      {.line = "I04",
       .good = "DPV:  507.00",
       .noisy = "\xFF"
                "DPV:  " +
                std::string(kNoise) + "507.00",
       .half = "DPV:  ",
       .wrong_echo = "DPV:  507.00"},
      [](Device& device) { device.Answer("G01"); },
      // A read that was lost or refused doesn't move the measurement on.
      [](const Device& device) { return device.Value("01", "04") == "507.00"; });
}

TEST(FaultsTest, EachDoesWhatItsNameSaysOnAModeChange) {
  StrikeWithAllFaults(
      {.line = "D1",
       .good = "D1",
       .noisy = "\xFF"
                "D" +
                std::string(kNoise) + "1",
       .half = "D",
       .wrong_echo = "D2"},
      [](Device& device) { Read(device, "01", "01"); },
      [](const Device& device) { return device.Mode() == '1'; });
}

TEST(FaultsTest, EachDoesWhatItsNameSaysOnAForcedOutput) {
  StrikeWithAllFaults(
      {.line = "D25",
       .good = "DPV:   25.00",
       .noisy = "\xFF"
                "DPV:  " +
                std::string(kNoise) + " 25.00",
       .half = "DPV:  ",
       .wrong_echo = "DPV:   26.00"},
      [](Device& device) {
        EnterProgramming(device);
        Read(device, "01", "03");
      },
      [](const Device& device) { return device.Value("01", "03") == "25.00"; });
}

TEST(FaultsTest, EachDoesWhatItsNameSaysOnAValueWithAUnit) {
  StrikeWithAllFaults(
      {.line = "D12.5",
       .good = "D        12.50 Hz",
       .noisy = "\xFF"
                "D       " +
                std::string(kNoise) + " 12.50 Hz",
       .half = "D        ",
       .wrong_echo = "D        13.50 Hz",
       .make = [] { return Device::ForModel(kHome, "QEY"); },
       .refused = "D    invalid data",
       .not_usable = "D      not usable",
       .keeps = true},
      [](Device& device) {
        EnterProgramming(device);
        Read(device, "01", "10");
      },
      [](const Device& device) { return device.Value("01", "10") == "12.50 Hz"; });
}

TEST(FaultsTest, EachDoesWhatItsNameSaysOnACount) {
  StrikeWithAllFaults(
      {.line = "D250",
       .good = "DCOUNTA       250",
       .noisy = "\xFF"
                "DCOUNTA " +
                std::string(kNoise) + "      250",
       .half = "DCOUNTA  ",
       .wrong_echo = "DCOUNTA       251",
       .make = [] { return Device::ForModel(kHome, "QEC2"); },
       .keeps = true},
      [](Device& device) {
        EnterProgramming(device);
        Read(device, "01", "03");
      },
      [](const Device& device) { return device.Value("01", "03") == "250"; });
}

TEST(FaultsTest, EachDoesWhatItsNameSaysOnACommand) {
  StrikeWithAllFaults(
      {.line = "D",
       .good = "DRESETA0",
       .noisy = "\xFF"
                "DRES" +
                std::string(kNoise) + "ETA0",
       .half = "DRES",
       .wrong_echo = "DRESETA1",
       .make = [] { return Device::ForModel(kHome, "QEC2"); }},
      [](Device& device) {
        device.Set("01", "03", "250");
        EnterProgramming(device);
        Read(device, "01", "12");
      },
      [](const Device& device) { return device.Value("01", "03") == "0"; });
}

TEST(FaultsTest, WrongEchoChangesTheValueAndNeitherPrefixNorUnit) {
  struct Case {
    const char* model;
    const char* item;
    const char* data;
    const char* reply;
  };
  for (const auto& [model, item, data, reply] : {
           Case{"QEY", "08", "100", "D        101 msec"},
           Case{"QEY", "16", "8", "D               9"},
           Case{"QIC", "30", "0.5", "D    FINZER1.50 %"},
           Case{"QEY", "23", "4", "DX:TWO-WIRE PULSE"},
           Case{"QEY", "11", "1", "D           X:kHz"},
           Case{"QEY", "34", "1", "DXll prms default"},
           Case{"QEY", "02", "FIC", "DXIC       "},
           Case{"Z2WT", "14", "12.50", "D     13.50 deg C"},
           Case{"Z2WT", "17", "0.5", "D          1.50 %"},
           Case{"Z2WT", "02", "FIC", "DXIC       "},
           Case{"QEC2", "06", "1500 (UP)", "DALMFRQ1501Hz"},
           Case{"QEC2", "09", "1500", "DALMCNT1501"},
           Case{"QEC2", "03", "4294967295", "DCOUNTA4294967296"},
           Case{"QEY3", "06", "-5", "DCOUNTB        -4"},
           Case{"QCB2", "03", "25", "DOUTSET   26.00"},
       }) {
    auto device = Device::ForModel(kHome, model);
    EnterProgramming(device);
    device.AddFault(ParseFault("wrong-echo"));
    EXPECT_EQ(Write(device, "01", item, data), reply) << model << " " << item;
  }
}

TEST(FaultsTest, WrongEchoLeavesRefusalsAndReadsAlone) {
  auto device = Device::ForModel(kHome, "QEY");
  EnterProgramming(device);
  Read(device, "01", "10");
  device.AddFault(ParseFault("wrong-echo"));
  EXPECT_EQ(device.Answer("D").text, "D       100.00 Hz");
  EXPECT_EQ(device.Answer("Dx").text, "D    invalid data");
  device.AddFault(ParseFault("not-usable"));
  EXPECT_EQ(device.Answer("D5").text, "D      not usable");
}

TEST(FaultsTest, WrongEchoOfAForcedOutputStandsBeforeItsUnit) {
  Device device({.name = "shown", .definition_file = "SHOWN.def", .family_word = "Second"},
                Definition::Parse("$Data\n01, 03_set, , Output, , Y, , , , 1, , , , , , %\n$End\n"));
  EnterProgramming(device);
  EXPECT_EQ(Write(device, "01", "03", "25"), "D   25.00 %");
  device.AddFault(ParseFault("wrong-echo"));
  EXPECT_EQ(Write(device, "01", "03", "25"), "D   26.00 %");
  EXPECT_EQ(device.Value("01", "03"), "25.00");
}

TEST(FaultsTest, StrikeTheValuesOfATableLikeAnyItem) {
  struct Case {
    const char* fault;
    const char* reply;  // to the write of 5.5; "-" for none
    const char* held;
  };
  for (const Case& one :
       {Case{"silent=D5.5", "-", "50.51"}, Case{"refused=D5.5", "CNG", "50.51"},
        Case{"not-usable=D5.5", "CNU", "50.51"}, Case{"late=D5.5", "DX(51):    5.50", "5.50"},
        Case{"garbled=D5.5", "???????????????", "5.50"}, Case{"half=D5.5", "DX(51): ", "5.50"},
        Case{"empty=D5.5", "", "5.50"}, Case{"wrong-echo=D5.5", "DX(51):6.50", "5.50"},
        Case{"second-try-only=D5.5", "-", "50.51"}}) {
    auto device = SampleDevice("QHNY2.def");
    EnterProgramming(device);
    device.AddFault(ParseFault(one.fault));
    EXPECT_EQ(Read(device, "03", "00"), "DX(51):   50.51") << one.fault;
    const auto reply = device.Answer("D5.5");
    EXPECT_EQ(reply.silent ? "-" : reply.text, one.reply) << one.fault;
    EXPECT_EQ(device.Value("03", "00"), one.held) << one.fault;
    EXPECT_EQ(Write(device, "03", "01", "7"), "DY(51):    7.00") << "other commands are not struck";
  }
  auto device = SampleDevice("QHW.def");
  device.AddFault(ParseFault("not-usable=I61"));
  EXPECT_EQ(Read(device, "01", "61"), "CNU");
  EXPECT_EQ(Read(device, "01", "60"), "DX(01):    0.00");
}

TEST(FaultsTest, RuleStrikesItsCommandLinesOnly) {
  struct Case {
    const char* rule;
    const char* struck;  // one character a line of G01 I14 G01 I15: x struck, . not
  };
  for (const auto& row : {Case{"silent", "xxxx"}, Case{"silent@2", ".x.."}, Case{"silent@2-3", ".xx."},
                          Case{"silent@3-", "..xx"}, Case{"silent=G01", "x.x."}, Case{"silent=I1", "...."}}) {
    auto device = SampleDevice();
    device.AddFault(ParseFault(row.rule));
    std::string struck;
    for (const char* const line : {"G01", "I14", "G01", "I15"}) {
      struck += device.Answer(line).silent ? 'x' : '.';
    }
    EXPECT_EQ(struck, row.struck) << row.rule;
    EXPECT_EQ(device.Exchanges(), 4);
  }
}

TEST(FaultsTest, FaultsAddUpAndAreCleared) {
  auto device = SampleDevice();
  device.AddFault(ParseFault("late"));
  device.AddFault(ParseFault("two-line-ends"));
  EXPECT_EQ(device.Answer("G01").latency, kLateReply);
  EXPECT_EQ(device.Answer("G01").line_ends, 2);
  device.ClearFaults();
  EXPECT_EQ(device.Answer("G01").line_ends, 1);
}

TEST(FaultsTest, RuleThatMakesNoSenseIsAnError) {
  for (const char* const bad : {"", "none", "silent@", "silent@0", "silent@-1", "silent@3-2", "silent@x",
                                "silent@2-x", "silent=", "silent 3", "Silent", "silent@99999999999"}) {
    EXPECT_THROW(ParseFault(bad), SetupError) << bad;
  }
}

}  // namespace
}  // namespace korva::sim

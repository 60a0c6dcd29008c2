// Downloads of the page of family Second, against simulated devices: their course, what stops them, and what
// proves a write.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

// The course.

struct Expected {
  std::string command;
  std::size_t reply = 0;  ///< characters of the reply, its carriage return included
  Milliseconds wait{0};   ///< before the next command
};

/// A selection of group and item, and the exchange of its data.
void Access(std::vector<Expected>& course, const std::string& item, std::size_t title,
            const std::string& data, std::size_t reply, Milliseconds wait = 0ms) {
  course.push_back({.command = "G01", .reply = 18});  // D, the words to 16 characters, carriage return
  course.push_back({.command = "I" + item, .reply = title});
  course.push_back({.command = "D" + data, .reply = reply, .wait = wait});
}

/// A read and a write of an item, both answered with a text of 16 characters.
void ReadAndWrite(std::vector<Expected>& course, const std::string& item, const std::string& data) {
  Access(course, item, 18, "", 18);
  Access(course, item, 18, data, 18, 500ms);
}

TEST(V2DownloadTest, SendsItsCommandsOneByOneWithHalfASecondBehindEachWrite) {
  V2Bench bench(u"QIC");
  bench.BoxesOfUpload();
  bench.Type(u"10", u"12.5");
  bench.Pick(bench.V2().units.cbo_unit[0], u"kHz");
  bench.Type(u"08", u"25");
  ASSERT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});

  std::vector<Expected> course = {
      {.command = "G00", .reply = 18}, {.command = "I99", .reply = 18}, {.command = "D", .reply = 18}};
  Access(course, "01", 18, "0", 18);
  Access(course, "01", 18, "1", 18, 500ms);
  Access(course, "34", 18, "1", 18, 500ms);  // "Dall prms default"
  Access(course, "02", 18, "", 12);          // "DTAG-1" and its blanks to ten characters
  Access(course, "02", 18, "TAG-1", 12, 500ms);
  ReadAndWrite(course, "23", "0");
  Access(course, "10", 18, "", 18);
  Access(course, "11", 18, "1", 18, 500ms);
  Access(course, "10", 18, "12.5", 18, 500ms);
  ReadAndWrite(course, "08", "25");
  ReadAndWrite(course, "09", "10");
  ReadAndWrite(course, "16", "1");
  ReadAndWrite(course, "28", "0");
  ReadAndWrite(course, "30", "0.00");
  ReadAndWrite(course, "31", "100.00");
  Access(course, "01", 18, "0", 18);
  Access(course, "01", 18, "0", 18);

  const auto& commands = bench.line.Commands();
  ASSERT_EQ(commands.size(), course.size());
  const Clock character = std::chrono::duration_cast<Clock>(std::chrono::seconds(10)) / 1200;
  const auto characters = [&](std::size_t count) { return static_cast<Clock::rep>(count) * character; };
  Clock due = commands[0].received;
  for (std::size_t at = 0; at < course.size(); ++at) {
    EXPECT_EQ(commands[at].text, course[at].command) << at;
    EXPECT_LT(std::chrono::abs(commands[at].received - due), 1ms)
        << at << ' ' << course[at].command << ' ' << (commands[at].received - due).count();
    if (at + 1 < course.size()) {
      due = commands[at].received + 10ms + characters(course[at].reply) + course[at].wait +
            characters(course[at + 1].command.size() + 1);
    }
  }
}

TEST(V2DownloadTest, EachUnitGoesOutAsItsCodeBeforeItsNumber) {
  V2Bench bench(u"QEYZ");
  bench.BoxesOfUpload();
  bench.Type(u"10", u"12.5");
  bench.Pick(bench.V2().units.cbo_unit[0], u"mHz");
  bench.Pick(bench.V2().units.cbo_unit[1], u"kHz");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  Texts frequencies;
  for (const std::string& write : bench.line.writes) {
    const std::string item = write.substr(0, write.find('='));
    if (item == "10" || item == "11" || item == "17" || item == "20") {
      frequencies.push_back(write);
    }
  }
  const std::string output = ToUtf8(bench.Field(u"17").Text());
  const std::string alarm = ToUtf8(bench.Field(u"20").Text());
  EXPECT_EQ(frequencies, (Texts{"11=2", "10=12.5", "11=1", "17=" + output, "11=0", "20=" + alarm}));
  EXPECT_EQ(bench.device.Value("01", "10"), "12.50 mHz");
}

TEST(V2DownloadTest, AValueWithoutAUnitGoesOutInTheOneThatIsShown) {
  V2Bench bench(u"QIC");
  bench.BoxesOfUpload();
  bench.Pick(bench.V2().units.cbo_unit[0], u"kHz");
  bench.Show(10, u"12.5");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "10"), "12.50 kHz");
  EXPECT_EQ(bench.V2().Item(10), u"12.5");
}

TEST(V2DownloadTest, AnyOtherUnitWritesNoCode) {
  V2Bench bench(u"QIC");
  bench.BoxesOfUpload();
  bench.Show(10, u"600 rpm");
  bench.line.replies["10=600"] = "D600 rpm";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  for (const std::string& write : bench.line.writes) {
    EXPECT_FALSE(write.starts_with("11=")) << write;
  }
}

TEST(V2DownloadTest, ParametersThatTheDefinitionDoesNotWriteAreTheMakers) {
  V2Bench bench(u"QIC");
  ASSERT_TRUE(bench.device.Set("01", "11", "2"));
  bench.BoxesOfUpload();
  bench.Show(28, u"");
  ASSERT_TRUE(bench.device.Set("01", "28", "2:HOLD"));
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "28"), "0:DIRECT");
}

TEST(V2DownloadTest, DoesNotAskForTheDevicesInputTypeFirst) {
  V2Bench bench(u"QIC");
  bench.BoxesOfUpload();
  bench.line.replies["10"] = "D999.00 Hz";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST(V2DownloadTest, ATagIsWrittenEvenWhenItCannotBeRead) {
  V2Bench bench(u"QIC");
  bench.BoxesOfUpload();
  bench.Type(u"02", u"FIC-101");
  bench.line.replies["02"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "02"), "FIC-101");
}

// What stops it.

/// A page of model QIC with its device's set.
struct V2FailureTest : testing::Test {
  V2FailureTest() { bench.BoxesOfUpload(); }
  /// The boxes that a download shows which ends at an item.
  static Texts Mismatch(const String& item, const String& reply) {
    return {Shown(BoxKey::ItemDataMismatch, {item, reply})};
  }
  [[nodiscard]] bool Wrote(std::string_view beginning) const {
    const Texts& writes = bench.line.writes;
    return std::any_of(writes.begin(), writes.end(),
                       [&](const std::string& write) { return write.starts_with(beginning); });
  }
  void ExpectEnded() {
    bench.ExpectAtRest();
    EXPECT_EQ(bench.line.writes.back(), "01=0");
    EXPECT_EQ(bench.device.Mode(), '0');
  }
  V2Bench bench{u"QIC"};
};

TEST_F(V2FailureTest, ProgrammingModeRefusedLeavesTheDeviceUntouched) {
  bench.Type(u"08", u"500");
  bench.line.replies["01=1"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::NotProgrammingMode)});
  EXPECT_EQ(bench.line.writes, (Texts{"01=0", "01=1", "01=1", "01=1", "01=1", "01=0"}));
  ExpectEnded();
}

TEST_F(V2FailureTest, AResetAnsweredWronglyShowsItsBoxAndTheDownloadGoesOn) {
  for (const char* answer : {"Dno prms default", "DALL PRMS DEFAULT", "D    invalid data"}) {
    bench.line.replies["34=1"] = answer;
    EXPECT_EQ(bench.BoxesOfDownload(),
              (Texts{Shown(BoxKey::ParametersNotReset), Shown(BoxKey::DownloadDone)}))
        << answer;
  }
  bench.line.replies["34=1"] = "D  all prms default  ";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(V2FailureTest, AResetWithoutAnAnswerIsTriedFourTimesAndTheDownloadGoesOn) {
  bench.line.replies["34=1"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), (Texts{Shown(BoxKey::ParametersNotReset), Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(std::count(bench.line.writes.begin(), bench.line.writes.end(), "34=1"), 4);
}

TEST_F(V2FailureTest, TheBoxOfAFailedResetComesAfterItsWait) {
  bench.line.replies["34=1"] = "Dno";
  Clock shown{0};
  bench.dialogs.OnBox([&](const Box& box) {
    if (box.text == BoxOf(BoxKey::ParametersNotReset).text) {
      shown = bench.loop.Now();
    }
  });
  bench.BoxesOfDownload();
  const auto& commands = bench.line.Commands();
  const auto reset = std::find_if(commands.begin(), commands.end(),
                                  [](const auto& command) { return command.text == "I34"; });
  // "D1" follows the title, and half a second its answer of four characters: 10 ms, and 8.33 ms each.
  EXPECT_NEAR(std::chrono::duration<double>((shown - (reset + 1)->received)).count(), 0.5433, 0.001);
}

TEST_F(V2FailureTest, AnItemThatCannotBeReadIsNotWritten) {
  bench.line.replies["10"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Mismatch(u"10", u""));
  EXPECT_TRUE(Wrote("23="));
  EXPECT_FALSE(Wrote("11="));
  EXPECT_FALSE(Wrote("10="));
  EXPECT_FALSE(Wrote("08="));
  ExpectEnded();
}

TEST_F(V2FailureTest, AWriteWithoutAnAnswerStopsItWithTheNumberOfTheItem) {
  bench.line.replies["09=10"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Mismatch(u"09", u""));
  EXPECT_FALSE(Wrote("16="));
  ExpectEnded();
}

TEST_F(V2FailureTest, TheMessageReadsAsItShould) {
  bench.line.replies["09=10"] = "D 15 msec ";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{"ﾀﾞｳﾝﾛｰﾄﾞ: Item09: ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ\n\rｴﾗｰﾒｯｾｰｼﾞ: 15 msec"});
}

TEST_F(V2FailureTest, AUnitWithoutAnAnswerIsAFailedWriteAndTheNumberIsNotSent) {
  bench.line.replies["11=0"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Mismatch(u"10", u""));
  EXPECT_EQ(std::count(bench.line.writes.begin(), bench.line.writes.end(), "11=0"), 4);
  EXPECT_FALSE(Wrote("10="));
  ExpectEnded();
}

TEST_F(V2FailureTest, ARefusedUnitIsFoundByTheNumbersAnswer) {
  bench.Pick(bench.V2().units.cbo_unit[0], u"kHz");
  bench.device.AddFault(sim::ParseFault("refused=I11"));
  EXPECT_EQ(bench.BoxesOfDownload(), Mismatch(u"10", u"")) << "the refusal is no title that is known";
  bench.device.ClearFaults();
  bench.Type(u"10", u"12.5");
  // The display tells the refusal where the unit's new value would stand.
  bench.line.replies["11=1"] = "D    invalid data";
  bench.line.replies["10=12.5"] = "D        12.50 Hz";
  EXPECT_EQ(bench.BoxesOfDownload(), Mismatch(u"10", u"12.50 Hz"));
  ExpectEnded();
}

TEST_F(V2FailureTest, AClosedWindowDoesNotCutItShort) {
  bench.loop.After(3s, [&] { EXPECT_TRUE(bench.V2().OnUnload()); });
  bench.BoxesOfDownload();
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
  EXPECT_EQ(bench.status, 0);
  EXPECT_EQ(bench.line.writes.back(), "01=0");
  EXPECT_EQ(bench.dialogs.Boxes().back().box.text, BoxOf(BoxKey::DownloadDone).text);
}

TEST_F(V2FailureTest, AChoiceWithoutACodeStopsItBeforeProgrammingMode) {
  bench.Show(28, u"invalid data");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ValueBad)});
  EXPECT_EQ(bench.V2().Combo[2].ShownLook(), Look::Bad);
  EXPECT_EQ(bench.line.writes, (Texts{"01=0", "01=0"}));
  ExpectEnded();
}

// What proves a write.

struct Proof {
  String item;
  String cell;
  std::string data;   ///< sent
  std::string reply;  ///< what the device says to it
  bool good = true;
};

void PrintTo(const Proof& proof, std::ostream* out) {
  *out << "item " << ToUtf8(proof.item) << ' ' << ToUtf8(proof.cell) << " against \"" << proof.reply << '"';
}

class V2ProofTest : public testing::TestWithParam<Proof> {};

TEST_P(V2ProofTest, IsTakenOrTold) {
  const Proof& proof = GetParam();
  V2Bench bench(u"QIC");
  bench.BoxesOfUpload();
  bench.Show(std::stoi(ToUtf8(proof.item)), proof.cell);
  bench.line.replies[ToUtf8(proof.item) + "=" + proof.data] = "D" + proof.reply;
  const Texts boxes = bench.BoxesOfDownload();
  const String told = proof.reply == "TAG not entered!" ? String() : Trimmed(FromUtf8(proof.reply));
  EXPECT_EQ(boxes, Texts{proof.good ? Shown(BoxKey::DownloadDone)
                                    : Shown(BoxKey::ItemDataMismatch,
                                            {proof.item, told.empty() ? String(10, u' ') : told})});
}

Proof Good(const String& item, const String& cell, const std::string& data, const std::string& reply) {
  return {.item = item, .cell = cell, .data = data, .reply = reply};
}
Proof Bad(const String& item, const String& cell, const std::string& data, const std::string& reply) {
  return {.item = item, .cell = cell, .data = data, .reply = reply, .good = false};
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, V2ProofTest,
    testing::Values(Good(u"10", u"12.5 kHz", "12.5", "   12.50 kHz "),
                    Good(u"10", u"12.50 kHz", "12.50", "12.5kHz"), Good(u"10", u"1E1 Hz", "1E1", "10 Hz"),
                    Bad(u"10", u"12.5 kHz", "12.5", "12.50 Hz"), Bad(u"10", u"12.5 Hz", "12.5", "12.50 mHz"),
                    Bad(u"10", u"12.5 Hz", "12.5", "12.51 Hz"),
                    Bad(u"10", u"12.5 Hz", "12.5", "invalid data"), Bad(u"10", u"0 Hz", "0", "invalid data"),
                    Bad(u"10", u"12.5 Hz", "12.5", ""), Good(u"10", u"12.5 Hz", "12.5", "12.5"),
                    Good(u"08", u"100 msec", "100", "100"), Good(u"08", u"100 msec", "100", "100.0msec"),
                    Bad(u"08", u"100 msec", "100", "100 sec"), Good(u"08", u"100", "100", "100 msec"),
                    Bad(u"08", u"100", "100", "100 sec"), Good(u"16", u"4", "4", " 04 "),
                    Bad(u"16", u"4", "4", "5"), Bad(u"16", u"4", "4", "4 Hz")));

INSTANTIATE_TEST_SUITE_P(FineValues, V2ProofTest,
                         testing::Values(Good(u"30", u"0.12 %", "0.12", "FINZER0.10 %"),
                                         Good(u"30", u"0.08 %", "0.08", "FINZER 0.10 %"),
                                         Good(u"30", u"0.08", "0.08", "FINZER0.10"),
                                         Bad(u"30", u"0.13 %", "0.13", "FINZER0.10 %"),
                                         Bad(u"30", u"0.07 %", "0.07", "FINZER0.10 %"),
                                         Good(u"31", u"100 %", "100", "FINSPN100.02 %"),
                                         Bad(u"31", u"100 %", "100", "FINSPN100.03 %"),
                                         Bad(u"30", u"0 %", "0", "FINZER"),
                                         Bad(u"30", u"0 %", "0", "invalid data")));

INSTANTIATE_TEST_SUITE_P(
    TextsOfChoicesAndTag, V2ProofTest,
    testing::Values(Good(u"28", u"2:HOLD", "2", "     2:HOLD "), Bad(u"28", u"2:HOLD", "2", "1:REVERSE"),
                    Bad(u"28", u"2:HOLD", "2", "2: HOLD"), Bad(u"28", u"2:HOLD", "2", "02:HOLD"),
                    Good(u"02", u"007", "007", "007       "), Bad(u"02", u"007", "007", "7"),
                    Bad(u"02", u"12.5 Hz", "12.5 Hz", "12.50 Hz"), Bad(u"02", u"PUMP", "PUMP", "pump"),
                    Good(u"02", u"          ", "          ", "TAG not entered!"),
                    Bad(u"02", u"PUMP", "PUMP", "TAG not entered!")));

}  // namespace
}  // namespace korva::test

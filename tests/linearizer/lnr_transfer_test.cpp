// What proves a value of the table, and the transfer by itself against a device that answers as told.

#include "linearizer/lnr_transfer.h"

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "linearizer/lnr_item.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"
#include "support/scripted_line.h"

namespace korva::test {
namespace {

struct ReplyCase {
  String sent;
  String reply;
  bool same;
};

TEST(LnrReplyMatchesTest, ADeviceThatRoundsTo12Point34Or12Point35PassesAndOneThatAnswers12Point33Stops) {
  for (const ReplyCase& one :
       {ReplyCase{u"12.345", u"X(05):   12.34", true}, ReplyCase{u"12.345", u"X(05):   12.35", true},
        ReplyCase{u"12.345", u"X(05):   12.33", false}, ReplyCase{u"12.345", u"X(05):   12.36", false},
        ReplyCase{u"-12.345", u"Y(16):  -12.34", true}, ReplyCase{u"-12.345", u"Y(16):  -12.36", false},
        ReplyCase{u"-12.345", u"Y(16):   12.34", false}}) {
    EXPECT_EQ(LnrReplyMatches(one.sent, one.reply), one.same) << ToUtf8(one.sent + u" " + one.reply);
  }
}

TEST(LnrReplyMatchesTest, ExactlyOneHundredthAwayCountsBothWays) {
  for (const ReplyCase& one :
       {ReplyCase{u"12.34", u"X(05):12.33", true}, ReplyCase{u"12.34", u"X(05):12.35", true},
        ReplyCase{u"12.34", u"X(05):12.329", false}, ReplyCase{u"12.34", u"X(05):12.351", false},
        ReplyCase{u"0", u"X(05):0.01", true}, ReplyCase{u"0", u"X(05):-0.01", true},
        ReplyCase{u"299.99", u"X(05):300.00", true}, ReplyCase{u"-299.99", u"X(05):-300.00", true},
        ReplyCase{u"0.29", u"X(05):0.30", true}, ReplyCase{u"0.07", u"X(05):0.06", true}}) {
    EXPECT_EQ(LnrReplyMatches(one.sent, one.reply), one.same) << ToUtf8(one.sent + u" " + one.reply);
  }
}

TEST(LnrReplyMatchesTest, ReplyWithoutANumberBehindItsHeadIsTheSameAsNothingNotEvenAsZero) {
  for (const String reply : {u"", u"X(05):", u"X(05)", u"NEEDLESS", u"ERROR", u"X(05):   ", u"??????????",
                             u"X(05):ABC", u"X(05):-", u"X(05):.", u"0", u"0.00"}) {
    EXPECT_FALSE(LnrReplyMatches(u"0", reply)) << ToUtf8(reply);
  }
  EXPECT_TRUE(LnrReplyMatches(u"0", u"X(05):    0.00"));
}

TEST(LnrReplyMatchesTest, TextWithoutANumberWasNeverTakenByTheDevice) {
  for (const String sent : {u"", u"ABC", u"-", u"12.5%", u"????"}) {
    EXPECT_FALSE(LnrReplyMatches(sent, u"X(05):    0.00")) << ToUtf8(sent);
    EXPECT_FALSE(LnrReplyMatches(sent, u"X(05):   12.50")) << ToUtf8(sent);
  }
}

TEST(LnrReplyMatchesTest, AUnitBehindTheDevicesNumberDoesNotCount) {
  EXPECT_TRUE(LnrReplyMatches(u"12.5", u"X(05):   12.50 %"));
}

/// The transfer on a page whose device answers every selection with 50 and every 50 and 0 with an echo,
/// unless told otherwise.
class ScriptedTransfer : public PageBench {
 public:
  explicit ScriptedTransfer(const String& model) {
    port.Connect(1, &line);
    Choose(model);
    table.SetUp(Part<Linearizer>(Page()).LnrFlexGrid.Rows() - 1);
    for (const char* const group : {"G01", "G02", "G03"}) {
      line.Answer(group, "COK");
    }
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      line.Answer((item < 10 ? "I0" : "I") + std::to_string(item), "DX(01):   50.00");
    }
    line.Answer("D1", "D1");
    line.Answer("D50", "DX(01):   50.00");
    line.Answer("D0", "DX(01):    0.00");
    line.ForgetCommands();
  }
  bool Upload() {
    bool done = false;
    Do([&] { done = transfer.Upload(); });
    return done;
  }
  bool Download() {
    bool done = false;
    Do([&] { done = transfer.DownloadLnr(); });
    return done;
  }
  void Fill(const String& value) {
    for (int row = 1; row <= table.Points(); ++row) {
      table.Store(row, 1, value);
      table.Store(row, 2, value);
    }
  }

  ScriptedLine line{port};
  LnrTable table{Page().GroupItem, Part<Linearizer>(Page()).LnrFlexGrid, {u"k", u"X(k)", u"Y(k)"}};
  LnrTransfer transfer{Page(), table, Part<Linearizer>(Page()).LnrProgressBar};
};

TEST(LnrUploadTest, AReplyOfSixCharactersOrLessARefusalAndSilenceAreEmptyCellsAndTheUploadGoesOn) {
  ScriptedTransfer bench(u"QHW");
  bench.Fill(u"7");
  bench.line.Answer("I60", "DX(01):");
  bench.line.Answer("I61", "DX(1:");
  bench.line.Answer("I62", "DX(02):      ");
  bench.line.Answer("I63", "CNG");
  bench.line.Answer("I64", "CNU");
  bench.line.Answer("I65", kSilence);
  bench.line.Answer("I66", "DX(04):  -1.20  ");
  bench.line.Answer("I67", "DY(04):5");
  EXPECT_TRUE(bench.Upload());
  for (int item = 60; item <= 65; ++item) {
    EXPECT_EQ(bench.Page().Item(item), u"") << item;
  }
  EXPECT_EQ(bench.Page().Item(66), u"-1.20");
  EXPECT_EQ(bench.Page().Item(67), u"5");
  for (int item = 68; item <= 91; ++item) {
    EXPECT_EQ(bench.Page().Item(item), u"50.00") << item;
  }
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

TEST(LnrUploadTest, ASilentDeviceIsAskedFourTimesForEachValue) {
  ScriptedTransfer bench(u"QHW");
  bench.line.Answer("G01", kSilence);
  EXPECT_TRUE(bench.Upload());
  EXPECT_EQ(bench.line.Commands().size(), 32U * 4);
  EXPECT_TRUE(bench.table.IsBlank());
}

struct EchoCase {
  String sent;
  const char* echo;
  bool taken;
};

TEST(LnrDownloadTest, AnEchoThatIsNoProofStopsTheDownloadAtThatItem) {
  for (const EchoCase& one :
       {EchoCase{u"12.345", "DX(03):   12.34", true}, EchoCase{u"12.345", "DX(03):   12.35", true},
        EchoCase{u"12.345", "DX(03):   12.33", false}, EchoCase{u"12.345", "DX(03):", false},
        EchoCase{u"12.345", "DNEEDLESS", false}, EchoCase{u"12.345", "D??????????????", false},
        EchoCase{u"7", "DX(03):    7.01", true}, EchoCase{u"7", "DX(03):    6.98", false}}) {
    ScriptedTransfer bench(u"QHW");
    bench.Fill(u"50");
    bench.table.Store(3, 1, one.sent);  // item 64
    bench.line.Answer("D" + ToUtf8(one.sent), one.echo);
    EXPECT_EQ(bench.Download(), one.taken) << one.echo;
    const auto& commands = bench.line.Commands();
    const std::string last = commands.back().text;
    EXPECT_EQ(last, one.taken ? "D50" : "D" + ToUtf8(one.sent)) << one.echo;
    EXPECT_EQ(commands.at(commands.size() - 2).text, one.taken ? "I91" : "I64") << one.echo;
    EXPECT_EQ(bench.TakeBoxes().empty(), one.taken) << one.echo;
  }
}

TEST(LnrDownloadTest, WithoutAnEchoTheValueIsReadOnceMoreAndThatReplyCounts) {
  for (const auto& [held, taken] : {std::pair{"DX(03):    7.00", true}, {"DX(03):    6.00", false}}) {
    ScriptedTransfer bench(u"QHW");
    bench.Fill(u"50");
    bench.table.Store(3, 1, u"7");
    bench.line.Answer("D7", kSilence);
    bench.line.Answer("I64", held);
    EXPECT_EQ(bench.Download(), taken);
    std::string around;
    for (const auto& command : bench.line.Commands()) {
      around += command.text + " ";
    }
    const std::string tries = "G01 I64 G01 I64 D7 G01 I64 D7 G01 I64 D7 G01 I64 D7 G01 I64 ";
    EXPECT_NE(around.find(tries + (taken ? "G01 I65 " : "")), std::string::npos) << around;
  }
}

TEST(LnrDownloadTest, ABlankCellGoesAsZeroAndReadsBackAsZero) {
  for (const String blank : {u"", u"   "}) {
    ScriptedTransfer bench(u"QHW");
    bench.Fill(u"50");
    bench.table.Store(3, 1, blank);
    EXPECT_TRUE(bench.Download());
    EXPECT_NE(bench.line.Sent().find("G01 I64 G01 I64 D0 G01 I65"), std::string::npos);
    EXPECT_EQ(bench.table.Value(3, 1), blank) << "the page keeps its cell";
  }
}

TEST(LnrDownloadTest, WhatTheCheckTakesForTheNumberOfACellIsWhatGoesToTheDevice) {
  ScriptedTransfer bench(u"QHW");
  bench.Fill(u"50");
  bench.table.Store(3, 1, u" 50 %");
  EXPECT_TRUE(CheckLnrRange(bench.table));
  EXPECT_TRUE(bench.Download());
  EXPECT_EQ(bench.line.Sent().find('%'), std::string::npos);
  EXPECT_EQ(bench.table.Value(3, 1), u" 50 %") << "the page keeps its cell";
}

TEST(LnrDownloadTest, NothingIsWrittenToTheLongTablesFirstGroupAfterAnEmptyRead) {
  ScriptedTransfer bench(u"QHNY1");
  bench.Fill(u"50");
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.line.Answer("I07", kSilence);
  EXPECT_FALSE(bench.Download());
  const std::string sent = bench.line.Sent();
  EXPECT_TRUE(sent.ends_with("D50 G02 I07 G02 I07 G02 I07 G02 I07 G02 I07 G02 I07 G02 I07 G02 I07")) << sent;
}

TEST(LnrDownloadTest, NoTableIsWrittenToADeviceThatDoesNotTakeTheMode) {
  ScriptedTransfer bench(u"QHW");
  bench.Fill(u"50");
  bench.line.Answer("D1", "CNG");
  EXPECT_FALSE(bench.Download());
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D1 G01 I01 D1 G01 I01 D1 G01 I01 D1");
  EXPECT_EQ(bench.TakeBoxes(), std::vector<std::string>{Shown(BoxKey::NotProgrammingMode)});
}

}  // namespace
}  // namespace korva::test

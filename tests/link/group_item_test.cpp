#include "link/group_item.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "support/scripted_line.h"
#include "support/virtual_host.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::kSilence;

struct DialectTest : testing::Test {
  DialectTest() {
    host.port.Connect(1, &line);
    link.OpenAtStart(u"1200,n,8,1");
  }

  /// Queues replies of one chunk each.
  void Replies(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
      line.AnswerNext(text);
    }
  }

  test::VirtualHost host;
  test::ScriptedLine line{host.port};
  SharedState shared;
  SerialLink link{host.platform, shared};
};

struct CokDialectTest : DialectTest {
  CokDialect cok{link, shared};
};

TEST_F(CokDialectTest, AReadSelectsGroupAndItemAndCutsTheLeadingLetter) {
  Replies({"COK", "DZERO:  12.5 "});
  EXPECT_EQ(cok.ReadItem({u"01", u"14"}), u"ZERO:  12.5");
  EXPECT_EQ(line.Sent(), "G01 I14");
}

TEST_F(CokDialectTest, EachTryIsToldWhileItsReplyIsAwaited) {
  std::vector<std::string> told;
  link.OnWaiting = [&](const String& text) {
    const std::string words = ToUtf8(text);
    if (told.empty() || words.empty() || words.ends_with(" 0 秒")) {
      told.push_back(words);
    }
  };
  EXPECT_EQ(cok.ReadItemRetry(2, {u"03", u"14"}), u"");
  EXPECT_EQ(told,
            (std::vector<std::string>{"応答待ち: Group 03, Item 14（1/3 回目）COM 1, 1200 bps, 1 秒",
                                      "応答待ち: Group 03, Item 14（2/3 回目）COM 1, 1200 bps, 0 秒",
                                      "応答待ち: Group 03, Item 14（3/3 回目）COM 1, 1200 bps, 0 秒", ""}));
}

TEST_F(CokDialectTest, ARetriedReadIsTrimmed) {
  Replies({"COK", "D  12.5 "});
  EXPECT_EQ(cok.ReadItem({u"01", u"14"}), u"  12.5");
  Replies({"COK", "D  12.5 "});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"14"}), u"12.5");
}

TEST_F(CokDialectTest, AnItemOfNoUseReadsAsNeedlessAndIsNotReadAgain) {
  Replies({"COK", "CNU"});
  EXPECT_EQ(cok.ReadItem({u"01", u"14"}), u"NEEDLESS");
  line.ForgetCommands();
  Replies({"COK", "CNU"});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"14"}), u"NEEDLESS");
  EXPECT_EQ(line.Sent(), "G01 I14");
}

TEST_F(CokDialectTest, ARefusedItemReadsAsErrorAndIsNotReadAgain) {
  Replies({"COK", "CNG"});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"14"}), u"ERROR");
  EXPECT_EQ(line.Sent(), "G01 I14");
}

TEST_F(CokDialectTest, AnyOtherReplyToTheGroupIsAFailureEvenIfItIsPlainText) {
  for (const std::string reply : {"COK2", "cok", "CNG", "D      enter item", ""}) {
    line.ForgetCommands();
    line.AnswerNext(reply);
    EXPECT_EQ(cok.ReadItem({u"01", u"14"}), u"") << reply;
    EXPECT_EQ(line.Sent(), "G01") << reply;
  }
}

TEST_F(CokDialectTest, AReadWithoutAReplyIsRepeatedFromTheGroupOn) {
  Replies({"COK"});
  line.AnswerNext(kSilence);
  Replies({"COK", "D1"});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"14"}), u"1");
  EXPECT_EQ(line.Sent(), "G01 I14 G01 I14");
  EXPECT_EQ(line.Unused(), 0U);
}

TEST_F(CokDialectTest, ASilentDeviceCostsTwelveSecondsAtThreeRepeats) {
  EXPECT_EQ(cok.ReadItemRetry(3, {u"00", u"99"}), u"");
  EXPECT_EQ(line.Sent(), "G00 G00 G00 G00");
  EXPECT_EQ(host.loop.Now(), Clock(12s));
}

TEST_F(CokDialectTest, NoRepeatsMeansExactlyOneTry) {
  EXPECT_EQ(cok.ReadItemRetry(0, {u"00", u"99"}), u"");
  EXPECT_EQ(line.Sent(), "G00");
  line.ForgetCommands();
  EXPECT_EQ(cok.WriteItemRetry(0, {u"01", u"01"}, u"0"), u"");
  EXPECT_EQ(line.Sent(), "G01");
}

TEST_F(CokDialectTest, AWriteGivesTheEcho) {
  Replies({"COK", "D 10", "DZERO: 12.50 "});
  EXPECT_EQ(cok.WriteItem({u"01", u"14"}, u"12.5"), u"ZERO: 12.50");
  EXPECT_EQ(line.Sent(), "G01 I14 D12.5");
}

TEST_F(CokDialectTest, ARetriedWriteTrimsTheEcho) {
  Replies({"COK", "D 10", "D   12.50 "});
  EXPECT_EQ(cok.WriteItemRetry(3, {u"01", u"14"}, u"12.5"), u"12.50");
}

struct StopCase {
  std::vector<std::string> replies;
  std::string sent;
  String last;
};

TEST_F(CokDialectTest, AWriteStopsAtARefusalAndKeepsItAsTheLastReply) {
  const std::vector<StopCase> cases = {
      {{"CNG"}, "G01", u"CNG"},
      {{"hello"}, "G01", u"hello"},
      {{""}, "G01", u""},
      {{"COK", "CNG"}, "G01 I14", u"CNG"},
      {{"COK", "CNU"}, "G01 I14", u"CNU"},
      {{"COK", ""}, "G01 I14", u""},
      {{"COK", "D 10", "CNG"}, "G01 I14 D12.5", u"CNG"},
      {{"COK", "D 10", "CNU"}, "G01 I14 D12.5", u"CNU"},
      {{"COK", "D 10", ""}, "G01 I14 D12.5", u""},
  };
  for (const StopCase& one : cases) {
    line.ForgetCommands();
    shared.LastItemReply = u"before";
    Replies(one.replies);
    EXPECT_EQ(cok.WriteItem({u"01", u"14"}, u"12.5"), u"");
    EXPECT_EQ(line.Sent(), one.sent);
    EXPECT_EQ(shared.LastItemReply, one.last);
  }
}

TEST_F(CokDialectTest, AWriteThatGoesWellLeavesTheLastReplyAlone) {
  shared.LastItemReply = u"before";
  Replies({"COK", "D 10", "D 12.5"});
  cok.WriteItem({u"01", u"14"}, u"12.5");
  EXPECT_EQ(shared.LastItemReply, u"before");
}

TEST_F(CokDialectTest, ARefusedWriteIsRepeatedFromTheGroupOn) {
  Replies({"COK", "D 10", "CNG", "COK", "D 10", "CNG"});
  EXPECT_EQ(cok.WriteItemRetry(1, {u"01", u"14"}, u"12.5"), u"");
  EXPECT_EQ(line.Sent(), "G01 I14 D12.5 G01 I14 D12.5");
  EXPECT_EQ(shared.LastItemReply, u"CNG");
}

TEST_F(CokDialectTest, AnEmptyTagComesBackAsItWasWrittenWithItsTenBlanks) {
  Replies({"COK", "DTG:PUMP1     ", "DTG:          "});
  EXPECT_EQ(cok.WriteItemRetry(3, {u"01", u"02"}, u"          "), u"TG:          ");
  EXPECT_EQ(line.Commands().back().text, "D          ");
}

TEST_F(CokDialectTest, AnEmptyTagThatIsReadIsTrimmed) {
  Replies({"COK", "DTG:          "});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"02"}), u"TG:");
}

TEST_F(CokDialectTest, AReplyOfTheLetterAloneIsNoTextAndReadAgain) {
  Replies({"COK", "D", "COK", "D", "COK", "D7"});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"14"}), u"7");
}

TEST_F(CokDialectTest, ADialectIsItemAccess) {
  ItemAccess& items = cok;
  Replies({"COK", "D7", "COK", "D7", "D8"});
  EXPECT_EQ(items.ReadRetry(0, {u"01", u"14"}), u"7");
  EXPECT_EQ(items.WriteRetry(0, {u"01", u"14"}, u"8"), u"8");
}

TEST_F(CokDialectTest, AnAcceptanceInPlaceOfDataIsNoDataAndTheLineIsDrainedBeforeTheRetry) {
  Replies({"COK", "COK", "COK", "D7"});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"14"}), u"7");
  EXPECT_EQ(line.Sent(), "G01 I14 G01 I14");
  EXPECT_GE(line.Commands()[2].received - line.Commands()[1].received, Clock(1s));
  EXPECT_LE(line.Commands()[2].received - line.Commands()[1].received, Clock(1100ms));
  line.ForgetCommands();
  Replies({"COK", "D7", "COK", "COK", "D7", "D8"});
  EXPECT_EQ(cok.WriteItemRetry(3, {u"01", u"14"}, u"8"), u"8");
  EXPECT_EQ(line.Sent(), "G01 I14 D8 G01 I14 D8");
  EXPECT_GE(line.Commands()[3].received - line.Commands()[2].received, Clock(1s));
  EXPECT_EQ(shared.LastItemReply, u"COK");
}

TEST_F(CokDialectTest, TheLineIsDrainedBehindAnyAnswerToTheGroupThatIsNoAcceptance) {
  Replies({"D7", "COK", "D7"});
  EXPECT_EQ(cok.ReadItemRetry(3, {u"01", u"14"}), u"7");
  EXPECT_GE(line.Commands()[1].received - line.Commands()[0].received, Clock(1s));
}

TEST_F(CokDialectTest, ARefusalOfAnItemOrOfDataLeavesTheLineInStep) {
  Replies({"COK", "D7", "CNG", "COK", "CNU", "COK", "D7", "D8"});
  EXPECT_EQ(cok.WriteItemRetry(3, {u"01", u"14"}, u"8"), u"8");
  EXPECT_LE(host.loop.Now(), Clock(800ms));
}

TEST_F(CokDialectTest, WhatNoDeviceSendsAsDataIsNone) {
  for (const std::string reply : {"????", "12.5", "D1\rD1", "D1\x01", "D1\xFF"}) {
    Replies({"COK", reply, "COK", "D7"});
    EXPECT_EQ(cok.ReadItemRetry(1, {u"01", u"14"}), u"7") << reply;
    Replies({"COK", "D7", reply});
    EXPECT_EQ(cok.WriteItemRetry(0, {u"01", u"14"}, u"8"), u"") << reply;
  }
}

TEST_F(CokDialectTest, AnEchoThatIsTheReplyBeforeIsListenedToOnlyWhenItTellsAnotherNumber) {
  struct Case {
    std::string reply;
    String data;
    bool doubtful;
  };
  for (const Case& one : {Case{"DZERO:12.5", u"12.5", false}, Case{"DZERO:12.50", u"12.5", false},
                          Case{"DZERO:12.5", u"12", true}, Case{"D 12.50 kHz", u"12.5", false},
                          Case{"D 12.50 kHz", u"13", true}, Case{"DAL:5.0 (UP)", u"5 (UP)", false},
                          Case{"DTG:PUMP 1", u"PUMP 1", false}, Case{"DK", u"1", false},
                          Case{"D4-20 mA", u"1", false}, Case{"D1", u"0", true}, Case{"D1", u"1", false}}) {
    Replies({"COK", one.reply, one.reply});
    const Clock begin = host.loop.Now();
    EXPECT_NE(cok.WriteItemRetry(0, {u"01", u"14"}, one.data), u"") << "the device may make it what it was";
    EXPECT_EQ(host.loop.Now() - begin > Clock(1s), one.doubtful) << one.reply << ' ' << ToUtf8(one.data);
  }
}

TEST_F(CokDialectTest, AReplySentTwiceIsNotTakenForTheEcho) {
  Replies({"COK"});
  line.AnswerNext({{40ms, "DZERO:10\r"}, {110ms, "DZERO:10\r"}});
  line.AnswerNext({{200ms, "CNG\r"}});
  EXPECT_EQ(cok.WriteItemRetry(0, {u"01", u"14"}, u"12.5"), u"");
}

TEST_F(CokDialectTest, AnyEchoTellsThatAModeWasTakenButARefusalOrAnAcceptance) {
  for (const std::string echo : {"D0", "D 1", "ok", "????"}) {
    Replies({"COK", "D1", echo});
    EXPECT_NE(cok.WriteModeRetry(0, {u"01", u"01"}, u"0"), u"") << echo;
  }
  for (const std::string echo : {"CNG", "CNU", "COK", ""}) {
    Replies({"COK", "D1", echo});
    EXPECT_EQ(cok.WriteModeRetry(0, {u"01", u"01"}, u"0"), u"") << echo;
  }
}

struct EnterItemDialectTest : DialectTest {
  EnterItemDialect enter_item{link, shared};
};

constexpr const char* kEnterItem = "D      enter item";

TEST_F(EnterItemDialectTest, AnItemIsSelectedByItsTitle) {
  shared.KnownItemNames[0] = u"Zero Adjust";
  shared.KnownItemNames[33] = u"Last";
  Replies({kEnterItem, "D  Zero Adjust  "});
  EXPECT_TRUE(enter_item.SelectItem({u"01", u"14"}));
  EXPECT_EQ(line.Sent(), "G01 I14");
  Replies({"D      Enter item", "DLast"});
  EXPECT_TRUE(enter_item.SelectItem({u"01", u"15"}));
}

TEST_F(EnterItemDialectTest, AnotherReplyToTheGroupSelectsNothing) {
  for (const std::string reply : {"COK", "D   ENTER ITEM", "D enter items", "enter item", ""}) {
    line.ForgetCommands();
    line.AnswerNext(reply);
    EXPECT_FALSE(enter_item.SelectItem({u"01", u"14"})) << reply;
    EXPECT_EQ(line.Sent(), "G01") << reply;
  }
}

TEST_F(EnterItemDialectTest, ADigitBehindTheWordTypeIsNoPartOfATitle) {
  shared.KnownItemNames[0] = u"Input Type";
  for (const auto& [title, known] : std::vector<std::pair<std::string, bool>>{{"DInput Type1", true},
                                                                              {"DInput TypeX", true},
                                                                              {"DInput Type", true},
                                                                              {"DInput Type12", false},
                                                                              {"DInput type1", false}}) {
    Replies({kEnterItem, title});
    EXPECT_EQ(enter_item.SelectItem({u"01", u"10"}), known) << title;
  }
}

TEST_F(EnterItemDialectTest, TheFixedTitlesAreKnownExactly) {
  for (const StringView name :
       {u"maintenance sw", u"Maintenance SW", u"Status 1", u"Status", u"Sensor Comp.", u"unit frequency",
        u"prms initializer", u"Linearize Table", u"TC Table", u"RTD Table", u"Linearization Table",
        u"Output Mode", u"Output Trim", u"Output Up/Down"}) {
    EXPECT_TRUE(enter_item.IsKnownItemName(String(name))) << ToUtf8(name);
  }
  for (const StringView name : {u"status", u"Status 2", u"Maintenance sw", u"Output", u"OUTPUT MODE", u""}) {
    EXPECT_FALSE(enter_item.IsKnownItemName(String(name))) << ToUtf8(name);
  }
}

TEST_F(EnterItemDialectTest, NoDataGoesOutToADeviceInAnotherMenu) {
  Replies({kEnterItem, "Dunknown title"});
  EXPECT_EQ(enter_item.WriteParam({u"01", u"14"}, u"5"), u"");
  EXPECT_EQ(line.Sent(), "G01 I14");
}

TEST_F(EnterItemDialectTest, NoDataGoesOutToADeviceThatDoesNotNameItsItem) {
  Replies({kEnterItem});
  EXPECT_EQ(enter_item.WriteParam({u"01", u"14"}, u"5"), u"");
  EXPECT_EQ(line.Sent(), "G01 I14");
}

TEST_F(EnterItemDialectTest, ALoneLetterReadsAnItem) {
  Replies({kEnterItem, "DStatus", "D   12.5  "});
  EXPECT_EQ(enter_item.ReadParam({u"01", u"14"}), u"12.5");
  EXPECT_EQ(line.Sent(), "G01 I14 D");
}

TEST_F(EnterItemDialectTest, ADeviceWithoutATagGivesTenBlanks) {
  Replies({kEnterItem, "DStatus", "DTAG not entered!"});
  EXPECT_EQ(enter_item.ReadParamRetry(3, {u"01", u"02"}), u"          ");
}

TEST_F(EnterItemDialectTest, AnItemThatIsNotReadyIsReadAgain) {
  Replies({kEnterItem, "DStatus", "D invalid data", kEnterItem, "DStatus", "D 5"});
  EXPECT_EQ(enter_item.ReadParamRetry(3, {u"01", u"18"}, u"invalid data"), u"5");
  Replies({kEnterItem, "DStatus", "D invalid data", kEnterItem, "DStatus", "D invalid data"});
  EXPECT_EQ(enter_item.ReadParamRetry(1, {u"01", u"18"}, u"invalid data"), u"");
  Replies({kEnterItem, "DStatus", "D invalid data"});
  EXPECT_EQ(enter_item.ReadParamRetry(3, {u"01", u"18"}), u"invalid data") << "an item that is always ready";
}

TEST_F(EnterItemDialectTest, AWriteGivesTheReply) {
  Replies({kEnterItem, "DStatus", "D all prms default "});
  EXPECT_EQ(enter_item.WriteParam({u"01", u"34"}, u"1"), u"all prms default");
  EXPECT_EQ(line.Sent(), "G01 I34 D1");
}

TEST_F(EnterItemDialectTest, APairGoesOutHeadFirst) {
  Replies({kEnterItem, "DStatus", "D1", kEnterItem, "DStatus", "D2"});
  EXPECT_EQ(enter_item.WriteParamPair({u"01", u"60"}, u"", u"Z"), u"1");
  EXPECT_EQ(line.Sent(), "G01 I60 DZ");
  EXPECT_EQ(enter_item.WriteParamPair({u"01", u"60"}, u"12", u"P"), u"2");
  EXPECT_EQ(line.Commands().back().text, "DP12");
}

TEST_F(EnterItemDialectTest, AnItemsNameIsItsReplyToTheSelection) {
  Replies({kEnterItem, "D   SYSVER   1.00 "});
  EXPECT_EQ(enter_item.ReadItemName({u"00", u"99"}), u"SYSVER   1.00");
  EXPECT_EQ(line.Sent(), "G00 I99");
}

TEST_F(EnterItemDialectTest, AnItemsNameIsNotReadBehindACapitalisedReply) {
  Replies({"D      Enter item"});
  EXPECT_EQ(enter_item.ReadItemName({u"00", u"99"}), u"");
  EXPECT_EQ(line.Sent(), "G00");
}

TEST_F(EnterItemDialectTest, ANameOfBlanksIsReadAgain) {
  Replies({kEnterItem, "D", kEnterItem, "DSYSVER"});
  EXPECT_EQ(enter_item.ReadItemNameRetry(1, {u"00", u"99"}), u"SYSVER");
}

TEST_F(EnterItemDialectTest, EveryWrapperTriesOnceMoreThanItRepeats) {
  EXPECT_EQ(enter_item.ReadParamRetry(3, {u"01", u"14"}), u"");
  EXPECT_EQ(line.Sent(), "G01 G01 G01 G01");
  line.ForgetCommands();
  EXPECT_EQ(enter_item.WriteParamRetry(1, {u"01", u"14"}, u"5"), u"");
  EXPECT_EQ(line.Sent(), "G01 G01");
  line.ForgetCommands();
  EXPECT_EQ(enter_item.WriteParamPairRetry(0, {u"01", u"28"}, u"", u"Z"), u"");
  EXPECT_EQ(line.Sent(), "G01");
  line.ForgetCommands();
  EXPECT_EQ(enter_item.ReadItemNameRetry(2, {u"00", u"99"}), u"");
  EXPECT_EQ(line.Sent(), "G00 G00 G00");
}

TEST_F(EnterItemDialectTest, AWriteMayReachTheDeviceMoreThanOnce) {
  Replies({kEnterItem, "DStatus"});
  line.AnswerNext(kSilence);
  Replies({kEnterItem, "DStatus", "D5"});
  EXPECT_EQ(enter_item.WriteParamRetry(3, {u"01", u"14"}, u"5"), u"5");
  EXPECT_EQ(line.Sent(), "G01 I14 D5 G01 I14 D5");
}

TEST_F(EnterItemDialectTest, TheDevicesOwnWordsPassThrough) {
  for (const std::string text : {"invalid data", "SET_user_TAG", "input number", "output number",
                                 "input num-data", "output num-data", "rest_linear", "CNG", "CNU"}) {
    Replies({kEnterItem, "DStatus", "D" + text});
    EXPECT_EQ(ToUtf8(enter_item.ReadParam({u"01", u"42"})), text);
  }
}

TEST_F(EnterItemDialectTest, ARefusalOfDataIsAFailedWriteAndIsRepeated) {
  Replies({kEnterItem, "DStatus", "CNG", kEnterItem, "DStatus", "CNU", kEnterItem, "DStatus", "D5"});
  EXPECT_EQ(enter_item.WriteParamRetry(3, {u"01", u"14"}, u"5"), u"5");
  EXPECT_LE(host.loop.Now(), Clock(800ms)) << "a refusal leaves the line in step";
  for (const std::string refusal : {"CNG", "CNU"}) {
    Replies({kEnterItem, "DStatus", refusal});
    EXPECT_EQ(enter_item.WriteParam({u"01", u"14"}, u"5"), u"") << refusal;
    Replies({kEnterItem, "DStatus", refusal});
    EXPECT_EQ(enter_item.WriteParamPair({u"01", u"60"}, u"", u"Z"), u"") << refusal;
  }
}

TEST_F(EnterItemDialectTest, ARefusedItemReadsAsErrorOrNeedlessAndIsNotReadAgain) {
  Replies({kEnterItem, "DStatus", "CNG"});
  EXPECT_EQ(enter_item.ReadParamRetry(3, {u"01", u"14"}), u"ERROR");
  Replies({kEnterItem, "DStatus", "CNU"});
  EXPECT_EQ(enter_item.ReadParamRetry(3, {u"01", u"14"}), u"NEEDLESS");
  EXPECT_EQ(line.Commands().size(), 6U);
}

TEST_F(EnterItemDialectTest, AnyTextTellsThatAModeWasTaken) {
  for (const std::string echo : {"D0", "CNG", "CNU", "ok", "????"}) {
    Replies({kEnterItem, "DStatus", echo});
    EXPECT_NE(enter_item.WriteModeRetry(0, {u"01", u"01"}, u"0"), u"") << echo;
  }
  Replies({kEnterItem, "DStatus"});
  EXPECT_EQ(enter_item.WriteModeRetry(0, {u"01", u"01"}, u"0"), u"");
}

TEST_F(EnterItemDialectTest, TheLineIsDrainedBehindAnUnknownTitleAndBehindAnotherMenu) {
  for (const std::vector<std::string>& wrong :
       {std::vector<std::string>{kEnterItem, kEnterItem}, {kEnterItem, "Dnowhere"}, {"DStatus"}, {"CNG"}}) {
    line.ForgetCommands();
    Replies(wrong);
    Replies({kEnterItem, "DStatus", "D5"});
    EXPECT_EQ(enter_item.ReadParamRetry(1, {u"01", u"14"}), u"5");
    const auto& commands = line.Commands();
    EXPECT_GE(commands[wrong.size()].received - commands[wrong.size() - 1].received, Clock(1s));
  }
}

TEST_F(EnterItemDialectTest, AMenuInPlaceOfAnItemsNameIsNone) {
  Replies({kEnterItem, kEnterItem, kEnterItem, "DSYSVER"});
  EXPECT_EQ(enter_item.ReadItemNameRetry(1, {u"00", u"99"}), u"SYSVER");
}

TEST_F(EnterItemDialectTest, ATitleSentTwiceIsNotTakenForData) {
  Replies({kEnterItem});
  line.AnswerNext({{40ms, "DStatus\r"}, {110ms, "DStatus\r"}});
  line.AnswerNext({{200ms, "D5\r"}});
  Replies({kEnterItem, "DStatus", "D5"});
  EXPECT_EQ(enter_item.ReadParamRetry(1, {u"01", u"14"}), u"5");
  Replies({kEnterItem, "DStatus", "DStatus"});
  EXPECT_EQ(enter_item.ReadParam({u"01", u"02"}), u"Status") << "a tag may read like a title";
}

TEST_F(EnterItemDialectTest, ADialectIsItemAccess) {
  ItemAccess& items = enter_item;
  Replies({kEnterItem, "DStatus", "D7", kEnterItem, "DStatus", "D8"});
  EXPECT_EQ(items.ReadRetry(0, {u"01", u"14"}), u"7");
  EXPECT_EQ(items.WriteRetry(0, {u"01", u"14"}, u"8"), u"8");
}

}  // namespace
}  // namespace korva

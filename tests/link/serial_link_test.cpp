#include "link/serial_link.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "support/scripted_line.h"
#include "support/virtual_host.h"

namespace korva {
namespace {

using namespace std::chrono_literals;

constexpr Clock kCharacter = Clock(10s) / 1200;  // on the wire

struct SerialLinkTest : testing::Test {
  SerialLinkTest() {
    host.port.Connect(1, &line);
    link.OpenAtStart(u"1200,n,8,1");
  }

  /// What a failure of SendCommandWaitReply tells the user.
  std::string FailureOf(const String& command) {
    try {
      link.SendCommandWaitReply(command);
    } catch (const RuntimeFailure& failure) {
      return ToUtf8(failure.Text());
    }
    return "no failure";
  }

  /// One exchange that goes well, after which the link is idle.
  void Exchange() {
    line.AnswerNext("COK");
    ASSERT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
    line.ForgetCommands();
  }

  test::VirtualHost host;
  test::ScriptedLine line{host.port};
  SharedState shared;
  SerialLink link{host.platform, shared};
};

TEST_F(SerialLinkTest, ACommandGoesOutWithItsCarriageReturnAndTheReplyComesBackWithout) {
  line.Answer("G01", "COK");
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), u"COK");
  EXPECT_EQ(line.Sent(), "G01");
  EXPECT_EQ(host.loop.Now(), 4 * kCharacter + 10ms);
}

// What is told while it waits.

TEST_F(SerialLinkTest, TellsEachSecondWhatItAwaitsAndThenThatItDoesNoMore) {
  std::vector<std::pair<Clock, std::string>> told;
  link.OnWaiting = [&](const String& text) { told.emplace_back(host.loop.Now(), ToUtf8(text)); };
  line.AnswerNext({{2500ms, "COK\r"}});
  link.SendCommandTrimmed(u"G01\r");
  const Clock end = 4 * kCharacter + 2500ms;
  EXPECT_EQ(told, (std::vector<std::pair<Clock, std::string>>{{1s, "応答待ち: COM 1, 1200 bps, 1 秒"},
                                                              {2s, "応答待ち: COM 1, 1200 bps, 2 秒"},
                                                              {end, ""}}));
  told.clear();
  line.AnswerNext("COK");
  link.SendCommandTrimmed(u"G01\r");
  EXPECT_TRUE(told.empty()) << "a device that answers is not waited for";
}

TEST_F(SerialLinkTest, TellsWhichItemItAwaitsAtWhichTry) {
  std::vector<std::string> told;
  link.OnWaiting = [&](const String& text) { told.push_back(ToUtf8(text)); };
  const auto announce = [this](int attempt) {
    link.Announce(SerialLink::Purpose{.group = u"01", .item = u"14", .attempt = attempt, .tries = 4});
  };
  announce(1);
  link.SendCommandTrimmed(u"G01\r");
  EXPECT_EQ(told.at(0), "応答待ち: Group 01, Item 14（1/4 回目）COM 1, 1200 bps, 1 秒");
  EXPECT_NE(told.back(), "") << "another try follows";
  told.clear();
  announce(2);
  line.AnswerNext({{1500ms, "COK\r"}});
  link.SendCommandTrimmed(u"G01\r");
  EXPECT_EQ(told,
            (std::vector<std::string>{"応答待ち: Group 01, Item 14（2/4 回目）COM 1, 1200 bps, 0 秒",
                                      "応答待ち: Group 01, Item 14（2/4 回目）COM 1, 1200 bps, 1 秒", ""}));
}

TEST_F(SerialLinkTest, TellsWhyItsPortIsNotOpen) {
  EXPECT_EQ(link.WhyNotOpen(), u"");
  link.ChoosePort(2);
  EXPECT_EQ(link.WhyNotOpen(), u"COM 2（virtual COM2）を開けません。ﾎﾟｰﾄが見つかりません。");
  host.port.RefuseFor({.what = SystemReason::Case::InUse, .words = u"busy"}, "dialout");
  link.ChoosePort(3);
  EXPECT_EQ(link.WhyNotOpen(), u"COM 3（virtual COM3）を開けません。ほかのﾌﾟﾛｸﾞﾗﾑが使用中です。");
  host.port.RefuseFor({.what = SystemReason::Case::NotPermitted, .words = u"denied"}, "dialout");
  EXPECT_EQ(link.WhyNotOpen(),
            u"COM 3（virtual COM3）を開けません。ｱｸｾｽする権限がありません。"
            u"ｸﾞﾙｰﾌﾟ dialout に加わり、ﾛｸﾞｲﾝし直してください。");
  host.port.RefuseFor({.what = SystemReason::Case::NotPermitted, .words = u"denied"});
  EXPECT_EQ(link.WhyNotOpen(), u"COM 3（virtual COM3）を開けません。ｱｸｾｽする権限がありません。");
  host.port.RefuseFor({.words = u"Input/output error"});
  EXPECT_EQ(link.WhyNotOpen(), u"COM 3（virtual COM3）を開けません。Input/output error");
  link.ChoosePort(1);
  EXPECT_EQ(link.WhyNotOpen(), u"");
  link.Close();
  EXPECT_EQ(link.WhyNotOpen(), u"") << "closed, not refused";
}

TEST_F(SerialLinkTest, AReplyThatArrivesInSeveralChunksIsJoined) {
  line.AnswerNext({{10ms, "C"}, {200ms, "O"}, {2900ms, "K\r"}});
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), u"COK");
}

TEST_F(SerialLinkTest, OnlyTheLastChunksFinalCarriageReturnEndsAReply) {
  line.AnswerNext({{10ms, "CO\rK"}, {50ms, "X\r"}});
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), u"CO\rKX");
}

TEST_F(SerialLinkTest, AReplyWithTwoCarriageReturnsLosesBoth) {
  line.AnswerNext({{10ms, "COK\r\r"}});
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), u"COK");
}

TEST_F(SerialLinkTest, AReplyLosesNoMoreThanTwoCarriageReturns) {
  line.AnswerNext({{10ms, "COK\r\r\r"}});
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), u"COK\r");
}

TEST_F(SerialLinkTest, AReplyThatIsALoneCarriageReturnIsAnEmptyTextAndNoFailure) {
  line.AnswerNext("");
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), u"");
  EXPECT_EQ(link.RThreshold(), 1);
  line.AnswerNext("\r");
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), u"");
}

TEST_F(SerialLinkTest, ACharacterOfTwoBytesMayArriveInTwoChunks) {
  line.AnswerNext({{10ms, "D\x83"}, {20ms, "\x41\r"}});  // full-width A in katakana
  EXPECT_EQ(link.SendCommandWaitReply(u"I02\r"), u"Dア");
}

TEST_F(SerialLinkTest, ASilentDeviceIsGivenUpAfterThreeSecondsWithoutSpinning) {
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  EXPECT_EQ(host.loop.Now(), Clock(3s));
  EXPECT_EQ(host.loop.PumpCount(), 1U);
}

TEST_F(SerialLinkTest, TheThreeSecondsSpanTheWholeExchange) {
  line.AnswerNext({{1500ms, "CO"}, {3100ms, "K\r"}});
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  EXPECT_EQ(host.loop.Now(), Clock(3s));
}

TEST_F(SerialLinkTest, ATimeOutEndsTheProgramNamingTheCommandWhereItIsNotForeseen) {
  const std::string failure = FailureOf(u"G99\r");
  EXPECT_NE(failure.find("「G99」"), std::string::npos) << failure;
  EXPECT_NE(failure.find("応答がありませんでした"), std::string::npos) << failure;
}

TEST_F(SerialLinkTest, ATimeOutLeavesTheTimerTickingAndReceiveEventsOff) {
  Exchange();
  EXPECT_EQ(link.RThreshold(), 1);
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  EXPECT_EQ(link.RThreshold(), 0);
  EXPECT_TRUE(link.IntervalTimerCheck());
  link.IntervalTimerOff();
  EXPECT_TRUE(link.IntervalTimerCheck());
}

TEST_F(SerialLinkTest, AfterATimeOutTheNextExchangeBehavesNormally) {
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  host.loop.RunFor(2s);
  line.Answer("G01", "COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(link.RThreshold(), 1);
  EXPECT_FALSE(link.IntervalTimerCheck());
  host.loop.RunFor(10s);
  EXPECT_FALSE(link.IntervalTimerCheck()) << "the timer must be off";
}

TEST_F(SerialLinkTest, TextWithoutACarriageReturnIsLostWithTheTimeOut) {
  line.AnswerNext({{10ms, "D12"}});
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
}

TEST_F(SerialLinkTest, AReplyThatComesAfterItsTimeOutIsReadAsTheNextOneWithoutSleeping) {
  line.AnswerNext(test::ScriptedLine::OneChunk("D12", 3200ms));
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  host.loop.RunFor(1s);
  const Clock before = host.loop.Now();
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"D12");
  EXPECT_EQ(host.loop.Now(), before);
}

TEST_F(SerialLinkTest, StaleTextWithoutACarriageReturnIsReadAsTheStartOfTheNextReply) {
  line.AnswerNext({{3200ms, "D1"}});
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  host.loop.RunFor(1s);
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"D1COK");
}

TEST_F(SerialLinkTest, ReceiveEventsAreOffUntilTheFirstExchangeHasEnded) {
  EXPECT_EQ(link.RThreshold(), 0);
  host.port.Deliver("hello ");
  host.loop.RunFor(1s);
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"hello COK");
  EXPECT_EQ(link.RThreshold(), 1);
}

TEST_F(SerialLinkTest, TextThatArrivesBetweenExchangesDoesNotReachTheNextReply) {
  Exchange();
  host.port.Deliver("noise");
  host.port.DeliverAt(host.loop.Now() + 20ms, "more\r");
  host.loop.RunFor(1s);
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
}

TEST_F(SerialLinkTest, TextThatArrivesBetweenExchangesStartsTheTimerAtHalfASecond) {
  Exchange();
  host.port.Deliver("noise");
  host.loop.RunFor(499ms);
  EXPECT_FALSE(link.IntervalTimerCheck());
  host.loop.RunFor(1ms);
  EXPECT_TRUE(link.IntervalTimerCheck());
}

TEST_F(SerialLinkTest, UnaskedTextIsGatheredUpToTheChunkThatEndsIt) {
  Exchange();
  host.port.DeliverAt(host.loop.Now() + 2900ms, "AB");
  host.port.DeliverAt(host.loop.Now() + 3300ms, "CD");
  host.port.DeliverAt(host.loop.Now() + 3700ms, "E\r");
  const Clock begin = host.loop.Now();
  EXPECT_EQ(link.RcvMsg(), u"ABCD");
  EXPECT_EQ(host.loop.Now() - begin, Clock(3700ms));
}

TEST_F(SerialLinkTest, UnaskedTextFromBeforeIsNotTakenForTheTextAwaited) {
  Exchange();
  host.port.Deliver("old\r");
  host.port.Deliver("older");
  host.loop.RunFor(1s);
  host.port.DeliverAt(host.loop.Now() + 100ms, "AB");
  host.port.DeliverAt(host.loop.Now() + 200ms, "\r");
  EXPECT_EQ(link.RcvMsg(), u"AB");
}

TEST_F(SerialLinkTest, UnaskedTextThatDoesNotComeOrDoesNotEndInTimeIsEmpty) {
  Exchange();
  Clock begin = host.loop.Now();
  EXPECT_EQ(link.RcvMsg(), u"");
  EXPECT_EQ(host.loop.Now() - begin, Clock(3s));
  begin = host.loop.Now();
  host.port.DeliverAt(begin + 100ms, "AB");
  EXPECT_EQ(link.RcvMsg(), u"");
  EXPECT_EQ(host.loop.Now() - begin, Clock(600ms));
}

TEST_F(SerialLinkTest, ABreakOfTheLineBetweenExchangesCountsAsABlank) {
  Exchange();
  const Clock begin = host.loop.Now();
  host.loop.After(100ms, [this] { host.port.Remove(1); });
  EXPECT_EQ(link.RcvMsg(), u"");
  EXPECT_EQ(host.loop.Now() - begin, Clock(600ms));
}

TEST_F(SerialLinkTest, APortThatHasGoneFailsAtOnceAndWorksAgainWhenItIsBackAndOpened) {
  Exchange();
  host.port.Remove(1);
  const Clock begin = host.loop.Now();
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  EXPECT_EQ(host.loop.Now(), begin);
  EXPECT_FALSE(link.PortOpen());
  host.port.Connect(1, &line);
  link.ChoosePort(1);
  Exchange();
}

TEST_F(SerialLinkTest, ABrokenPortIsOpenedAgainWithItsSettingsOnceItIsBack) {
  link.Reopen(u"9600,n,8,1");
  Exchange();
  host.port.Remove(1);
  link.OpenAgainIfBroken();
  EXPECT_FALSE(link.PortOpen()) << "it is not back yet";
  host.port.Connect(1, &line);
  link.OpenAgainIfBroken();
  EXPECT_EQ(host.port.Settings().baud, 9600);
  Exchange();
}

TEST_F(SerialLinkTest, APortThatWorksOrNeverOpenedIsNotOpenedAgain) {
  std::vector<int> opened;
  link.OnOpened = [&opened](int number, const String& /*settings*/, bool /*open*/) {
    opened.push_back(number);
  };
  link.OpenAgainIfBroken();
  link.ChoosePort(3);
  link.OpenAgainIfBroken();
  link.Close();
  link.OpenAgainIfBroken();
  EXPECT_EQ(opened, std::vector<int>{3});
}

// --- a line out of step

TEST_F(SerialLinkTest, ALineOutOfStepIsDrainedUntilASecondIsQuietBeforeTheNextCommand) {
  Exchange();
  const Clock begin = host.loop.Now();
  link.LoseStep();
  host.port.DeliverAt(begin + 400ms, "DZERO");
  host.port.DeliverAt(begin + 900ms, ":1\r");
  line.AnswerNext("D12.5");
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"D12.5");
  EXPECT_EQ(line.Commands().back().received - begin, Clock(1900ms) + 4 * kCharacter);
  line.AnswerNext("COK");
  const Clock next = host.loop.Now();
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(line.Commands().back().received - next, 4 * kCharacter) << "in step again";
}

TEST_F(SerialLinkTest, ALineThatDoesNotFallQuietIsDrainedForThreeSeconds) {
  Exchange();
  const Clock begin = host.loop.Now();
  link.LoseStep();
  for (int at = 0; at < 40; ++at) {
    host.port.DeliverAt(begin + at * 90ms, "x\r");
  }
  link.SendCommandTrimmed(u"I14\r");
  EXPECT_EQ(line.Commands().back().received - begin, Clock(3s) + 4 * kCharacter);
}

TEST_F(SerialLinkTest, ALineThatHasBeenQuietLongEnoughIsNotWaitedForAgain) {
  Exchange();
  link.LoseStep();
  host.loop.RunFor(1500ms);
  const Clock begin = host.loop.Now();
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(line.Commands().back().received - begin, 4 * kCharacter);
}

TEST_F(SerialLinkTest, DrainingTellsWhetherSomethingCame) {
  Exchange();
  EXPECT_FALSE(link.Drain());
  host.port.DeliverAt(host.loop.Now() + 500ms, "COK\r");
  EXPECT_FALSE(link.Drain()) << "a second has been quiet already";
  Exchange();
  host.port.DeliverAt(host.loop.Now() + 500ms, "COK\r");
  EXPECT_TRUE(link.Drain());
}

TEST_F(SerialLinkTest, TimeOutsAloneAddNoPause) {
  Exchange();
  const Clock begin = host.loop.Now();
  for (int at = 0; at < 5; ++at) {
    link.SendCommandTrimmed(u"G01\r");
  }
  EXPECT_EQ(host.loop.Now() - begin, Clock(15s));
  line.AnswerNext("COK");
  line.AnswerNext("D12.5");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"D12.5");
  EXPECT_EQ(host.loop.Now() - begin, Clock(15s) + 8 * kCharacter + 20ms);
}

TEST_F(SerialLinkTest, ATimeOutBehindAReplyThatMayHaveBeenOwedLeavesTheLineOutOfStep) {
  Exchange();
  link.SendCommandTrimmed(u"G01\r");
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  const Clock begin = host.loop.Now();
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(line.Commands().back().received - begin, Clock(1s) + 4 * kCharacter);
}

TEST_F(SerialLinkTest, ACloseRequestEndsTheProgramWhileTheLineIsDrained) {
  Exchange();
  shared.CommBusy = true;
  link.LoseStep();
  const Clock begin = host.loop.Now();
  host.loop.After(100ms, [this] { shared.QuitRequested = true; });
  EXPECT_THROW(link.SendCommandTrimmed(u"G01\r"), ProgramEnd);
  EXPECT_EQ(host.loop.Now() - begin, Clock(100ms));
  EXPECT_EQ(line.Sent(), "");
}

// --- one exchange at a time

TEST_F(SerialLinkTest, NoExchangeBeginsInsideAnotherOne) {
  std::vector<String> inner;
  line.AnswerNext(test::ScriptedLine::OneChunk("COK", 900ms));
  host.loop.After(300ms, [&] { inner.push_back(link.SendCommandTrimmed(u"G02\r")); });
  host.loop.After(400ms, [&] {
    const std::string failure = FailureOf(u"G03\r");
    EXPECT_NE(failure.find("「G03」"), std::string::npos) << failure;
    EXPECT_NE(failure.find("交信中"), std::string::npos) << failure;
  });
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(inner, std::vector<String>{u""});
  EXPECT_EQ(line.Sent(), "G01");
  Exchange();
}

TEST_F(SerialLinkTest, NoExchangeBeginsWhileTheLineIsDrained) {
  Exchange();
  link.LoseStep();
  host.loop.After(500ms, [this] { EXPECT_EQ(link.SendCommandTrimmed(u"G02\r"), u""); });
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(line.Sent(), "G01");
}

TEST_F(SerialLinkTest, ABabblingLineCannotFillTheMemory) {
  line.AnswerNext({{10ms, std::string(1 << 20, 'x')}, {20ms, "\r"}});
  EXPECT_EQ(link.SendCommandWaitReply(u"G01\r"), String(1024, u'x'));
}

TEST_F(SerialLinkTest, APauseLastsAsLongAsItSaysWithEventsAlive) {
  int ticks = 0;
  const TimerId timer = host.loop.StartTimer(200ms, [&ticks] { ++ticks; });
  link.WaitFor(500);
  EXPECT_EQ(host.loop.Now(), Clock(500ms));
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(host.loop.PumpCount(), 3U);
  host.loop.StopTimer(timer);
  link.WaitFor(100);
  EXPECT_EQ(host.loop.Now(), Clock(600ms));
  EXPECT_THROW(host.loop.Pump(), std::logic_error) << "no timer may tick on";
}

TEST_F(SerialLinkTest, ACloseRequestEndsTheProgramAtTheEndOfAPause) {
  shared.CommBusy = true;
  host.loop.After(100ms, [this] { shared.QuitRequested = true; });
  EXPECT_THROW(link.WaitFor(500), ProgramEnd);
  EXPECT_EQ(host.loop.Now(), Clock(500ms));
  EXPECT_FALSE(shared.CommBusy);
  EXPECT_FALSE(shared.DownloadBusy);
}

TEST_F(SerialLinkTest, ACloseRequestEndsTheProgramAtTheEndOfAnExchange) {
  shared.CommBusy = true;
  line.AnswerNext(test::ScriptedLine::OneChunk("COK", 900ms));
  host.loop.After(100ms, [this] { shared.QuitRequested = true; });
  EXPECT_THROW(link.SendCommandTrimmed(u"G01\r"), ProgramEnd);
  EXPECT_EQ(host.loop.Now(), 4 * kCharacter + 900ms);
  EXPECT_FALSE(shared.CommBusy);
}

TEST_F(SerialLinkTest, ACloseRequestEndsTheProgramAtATimeOutAndNotAsAFailure) {
  host.loop.After(100ms, [this] { shared.QuitRequested = true; });
  EXPECT_THROW(link.SendCommandWaitReply(u"G01\r"), ProgramEnd);
}

TEST_F(SerialLinkTest, ACloseRequestEndsTheProgramWhileUnaskedTextIsAwaited) {
  Exchange();
  host.loop.After(100ms, [this] { shared.QuitRequested = true; });
  EXPECT_THROW(link.RcvMsg(), ProgramEnd);
}

TEST_F(SerialLinkTest, ADownloadHoldsACloseRequestOff) {
  shared.CommBusy = shared.DownloadBusy = shared.QuitRequested = true;
  line.Answer("G01", "COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  EXPECT_NO_THROW(link.WaitFor(500));
  EXPECT_EQ(link.RcvMsg(), u"");
  EXPECT_TRUE(shared.CommBusy);
  EXPECT_TRUE(shared.DownloadBusy);
}

TEST_F(SerialLinkTest, APortThatIsNotOpenFailsAtOnce) {
  link.Close();
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  EXPECT_EQ(link.SendCommandStripped(u"G01\r"), u"");
  const std::string failure = FailureOf(u"G99\r");
  EXPECT_NE(failure.find("「G99」"), std::string::npos) << failure;
  EXPECT_NE(failure.find("ﾎﾟｰﾄが開いていません"), std::string::npos) << failure;
  EXPECT_EQ(host.loop.Now(), Clock(0));
  EXPECT_EQ(link.RThreshold(), 0);
}

TEST_F(SerialLinkTest, ChoosingAPortThatDoesNotExistShowsNothingAndKeepsTheSettings) {
  link.Reopen(u"9600,n,8,1");
  link.ChoosePort(3);
  EXPECT_EQ(link.CommPort(), 3);
  EXPECT_EQ(link.Settings(), u"9600,n,8,1");
  EXPECT_EQ(host.port.Number(), 3);
  EXPECT_FALSE(link.PortOpen());
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  EXPECT_TRUE(host.dialogs.Boxes().empty());
  link.ChoosePort(1);
  EXPECT_TRUE(link.PortOpen());
  EXPECT_EQ(host.port.Settings().baud, 9600);
}

TEST_F(SerialLinkTest, ThePortStartsAsNumberOneAndOpensWithItsSettings) {
  EXPECT_EQ(link.CommPort(), 1);
  EXPECT_EQ(link.Settings(), u"1200,n,8,1");
  EXPECT_TRUE(link.PortOpen());
  EXPECT_EQ(host.port.Settings().baud, 1200);
  EXPECT_EQ(host.port.Settings().parity, 'n');
  EXPECT_EQ(host.port.Settings().data_bits, 8);
  EXPECT_EQ(host.port.Settings().stop_bits, 1);
}

TEST_F(SerialLinkTest, ReopeningForgetsWhatWasNotRead) {
  host.port.Deliver("stale");
  host.loop.RunFor(1s);
  link.Reopen(u"1200,n,8,1");
  line.AnswerNext("COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
}

TEST_F(SerialLinkTest, ACharacterThatTheCodePageLacksKeepsTheWholeCommandBack) {
  EXPECT_EQ(link.SendCommandTrimmed(u"DTG☃\r"), u"");
  const std::string failure = FailureOf(u"DTG☃\r");
  EXPECT_NE(failure.find("「DTG☃」"), std::string::npos) << failure;
  EXPECT_NE(failure.find("送信できない文字"), std::string::npos) << failure;
  host.loop.RunFor(5s);
  EXPECT_EQ(line.Sent(), "");
  EXPECT_EQ(host.loop.Now(), Clock(5s)) << "it must fail at once";
}

TEST_F(SerialLinkTest, AFullWidthLetterGoesOutAsItsBytesOfTheCodePage) {
  line.AnswerNext("DS");
  EXPECT_EQ(link.SendCommandTrimmed(u"DＳ\r"), u"DS");
  EXPECT_EQ(line.Sent(), "D\x82\x72");
}

TEST_F(SerialLinkTest, ASlowDeviceIsLookedAtTwiceASecond) {
  link.SlowDevice = [] { return true; };
  line.AnswerNext({{10ms, "CO"}, {500ms, "K\r"}});
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(host.loop.Now(), Clock(1s));
}

TEST_F(SerialLinkTest, ASlowDeviceThatStaysSilentIsGivenUpAfterThreeSecondsToo) {
  link.SlowDevice = [] { return true; };
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"");
  EXPECT_EQ(host.loop.Now(), Clock(3s));
}

TEST_F(SerialLinkTest, WhetherADeviceIsSlowIsAskedInEachPass) {
  int asked = 0;
  link.SlowDevice = [&asked] { return ++asked == 1; };
  line.AnswerNext(test::ScriptedLine::OneChunk("COK", 600ms));
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(host.loop.Now(), 4 * kCharacter + 600ms);
  EXPECT_EQ(asked, 2);
}

TEST_F(SerialLinkTest, ACloseRequestEndsTheProgramAtTheNextLookAtASlowDevice) {
  link.SlowDevice = [] { return true; };
  host.loop.After(600ms, [this] { shared.QuitRequested = true; });
  EXPECT_THROW(link.SendCommandTrimmed(u"G01\r"), ProgramEnd);
  EXPECT_EQ(host.loop.Now(), Clock(1s));
}

TEST_F(SerialLinkTest, TheTrafficIsToldLineByLine) {
  std::vector<std::string> told;
  link.OnTraffic = [&told](const SerialLink::Traffic& traffic) {
    told.push_back((traffic.sent ? "> " : "< ") + ToUtf8(traffic.text) + (traffic.ok ? "" : " failed"));
  };
  line.AnswerNext("D  12.5 ");
  link.SendCommandTrimmed(u"I14\r");
  link.SendCommandTrimmed(u"G01\r");
  link.Close();
  link.SendCommandTrimmed(u"G02\r");
  EXPECT_EQ(told, (std::vector<std::string>{"> I14", "< D  12.5 ", "> G01", "<  failed", "> G02 failed"}));
}

TEST_F(SerialLinkTest, APortHasTheNameThatAUserKnows) { EXPECT_EQ(link.DeviceName(2), u"virtual COM2"); }

struct ReplyCase {
  std::string reply;
  String trimmed;
  String stripped;
};

TEST_F(SerialLinkTest, RepliesAreTrimmedOrStrippedAsTheirDialectNeeds) {
  const std::vector<ReplyCase> cases = {
      {"COK", u"COK", u"OK"},
      {"  COK  ", u"COK", u"COK"},
      {"D   12.5  ", u"D   12.5", u"12.5"},
      {"D      enter item", u"D      enter item", u"enter item"},
      {"D   EEPROM Access", u"D   EEPROM Access", u"EEPROM Access"},
      {"DTG:          ", u"DTG:          ", u"TG:"},
      {"DTG:           ", u"DTG:", u"TG:"},
      {"DTG:         ", u"DTG:", u"TG:"},
      {"DTG:PUMP1     ", u"DTG:PUMP1", u"TG:PUMP1"},
      {"DTAG not entered!", u"DTAG not entered!", u"          "},
      {"D TAG not entered! ", u"D TAG not entered!", u"          "},
      {"DTAG not entered", u"DTAG not entered", u"TAG not entered"},
      {"D", u"D", u"          "},
      {"D    ", u"D", u"          "},
      {"DSET_user_TAG", u"DSET_user_TAG", u"SET_user_TAG"},
      {"Dinvalid data", u"Dinvalid data", u"invalid data"},
      {"", u"", u""},
  };
  for (const ReplyCase& one : cases) {
    line.AnswerNext(one.reply);
    EXPECT_EQ(link.SendCommandTrimmed(u"I02\r"), one.trimmed) << one.reply;
    line.AnswerNext(one.reply);
    EXPECT_EQ(link.SendCommandStripped(u"I02\r"), one.stripped) << one.reply;
  }
}

}  // namespace
}  // namespace korva
